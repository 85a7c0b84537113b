// SPDX-License-Identifier: MIT
#pragma once

#include "CheckOutput.h"
#include "CheckProject.h"
#include "LoadRules.h"
#include "Rules.h"
#include "StringFileBytes.h"
#include "TestProject.h"
#include "TextContext.h"

#include <gmock/gmock.h>

/// A project "demo" that is checked as the command does.
struct CheckedProject : TestProject
{
    explicit CheckedProject(const QByteArray &resources = "<APP id=\"APP_demo\" />\n", const QByteArray &settings = {},
                            const QByteArray &types = "Count=1\nType_0=Normal\n")
        : TestProject(resources, "[Resource Type]\n" + types + settings)
    {
        env->explain = [this](const QString &text) { explained.append(text); };
    }

    /// Puts the strings into the project; `readable` has "|" between the fields.
    void PutStrings(const QByteArray &readable)
    {
        folder.Put("demo/res/ref_list_demo.txt", StringFileBytes(readable));
        folder.Put("demo/res/demo.res.xml",
                   "<APP id=\"APP_demo\">\n    <RESOLUTION width=\"240\" height=\"320\" class=\"image\" />\n"
                   "    <STRING>res\\ref_list_demo.txt</STRING>\n</APP>\n");
    }

    /// Opens and checks the project.
    std::vector<Finding> Check()
    {
        documents.CloseAll();
        std::vector<Finding> loaded;
        const Notifier<const Finding &>::Listener listener(
            env->found, [&loaded](const Finding &finding) { loaded.push_back(finding); });
        CResDoc *const document = Open();
        std::vector<Finding> findings;
        const CheckSettings settings = ReadCheckSettings(folder.Path("demo"), findings);
        std::vector<Finding> checked;
        if (document) {
            const TextContext texts(*document, settings);
            checked = CheckProject({*document, settings, texts, loaded, screens, oldHeader});
        } else {
            checked = CheckUnopened(*env, tables, Path(), settings, loaded, explained);
        }
        findings.insert(findings.end(), checked.begin(), checked.end());
        return findings;
    }

    /// The findings of some rules as "FILE:LINE ID: text" without folders, sorted by the check.
    std::vector<std::string> Findings(const QByteArrayList &rules)
    {
        std::vector<std::string> lines;
        for (const Finding &finding : Check()) {
            if (rules.contains(finding.code))
                lines.push_back(QStringLiteral("%1:%2 %3: %4")
                                    .arg(QFileInfo(finding.file).fileName())
                                    .arg(finding.line)
                                    .arg(finding.id, finding.text)
                                    .toStdString());
        }
        return lines;
    }

    /// The rules that have findings, without those about translations.
    std::vector<std::string> RulesThatFire()
    {
        std::vector<std::string> rules;
        for (const Finding &finding : Check())
            rules.emplace_back(finding.code);
        return rules;
    }

    std::vector<ScreenSize> screens;
    QString oldHeader;
    QStringList explained;
};
