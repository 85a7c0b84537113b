// SPDX-License-Identifier: MIT
#include "CodePoints.h"
#include "LanguageTable.h"
#include "OpeningReport.h"
#include "PrintStringFile.h"
#include "ProjectSave.h"
#include "Session.h"
#include "StringStats.h"
#include "StringsExport.h"
#include "StringsImport.h"
#include "Subcommands.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <map>
#include <optional>
#include <set>

namespace
{

class StringsSubcommand : public ISubcommand
{
public:
    CLI::App *Add(CLI::App &app) override
    {
        CLI::App *subcommand = app.add_subcommand("strings", "Export, import, count or print the strings of a project");
        subcommand->require_subcommand(1);
        exporting = exporter.Add(*subcommand, project);
        importing = importer.Add(*subcommand, project);
        stats = subcommand->add_subcommand("stats", "Count the texts of each language");
        codePoints = subcommand->add_subcommand("codepoints", "List the characters that the texts use");
        cat = subcommand->add_subcommand("cat", "Print a string file as UTF-8, for git");
        cat->add_option("FILE", file, "The string file")->type_name("")->required();
        for (CLI::App *sub : {stats, codePoints})
            AddProject(*sub, project);
        stats->add_flag("--json", json, JSON_HELP);
        codePoints
            ->add_option("--language", wantedLanguages,
                         "Only this language, by name, number or code; can be repeated (default: all)")
            ->type_name("LANGUAGE")
            ->allow_extra_args(false);
        AddChoice(*codePoints, "--format", format, "list|ranges|c",
                  "The form of the list: one character a line, ranges, or a table in C (default: list)");
        return subcommand;
    }

    int Run(Session &session) override
    {
        if (*cat)
            return PrintStringFile(session, AbsolutePath(file));
        const QString path = AbsolutePath(project);
        exporter.FixPaths();
        if (*importing && !importer.FixPaths())
            return EXIT_WRONG_USE;
        if (*importing && !importer.ChangesNothing() && !session.LockProject(path))
            return EXIT_FAILED;
        const bool strict = *importing && importer.IsStrict();
        if (strict && HasInterruptedSave(session.env, path))
            return EXIT_FAILED;
        CResDoc *document = session.OpenQuietly(path);
        if (!document || (strict && !TellOfOpening(session, document->PathName(), document, true)))
            return EXIT_FAILED;
        session.handler.idleOutput = [&session](QStringView text) { session.report.Write(text); };
        if (*stats)
            return PrintStats(session, *document);
        if (*codePoints)
            return PrintCodePoints(session, *document);
        return *exporting ? exporter.Run(session, *document) : importer.Run(session, *document);
    }

private:
    int PrintCodePoints(Session &session, const CResDoc &document) const
    {
        CodePoints points;
        std::set<std::string> unknown(wantedLanguages.begin(), wantedLanguages.end());
        int rows = 0;
        std::map<qint32, std::string> codes;
        for (const KnownLanguage &known : KnownLanguages(document.env))
            codes[known.number] = known.code.toStdString();
        for (const LanguageStats &language : StringStats(document, rows)) {
            const size_t named = unknown.erase(language.name.toStdString()) +
                                 unknown.erase(std::to_string(language.number)) + unknown.erase(codes[language.number]);
            if (named > 0 || wantedLanguages.empty())
                points.Add(CodePointsOf(document, language.number));
        }
        for (const std::string &language : unknown)
            Complain(QStringLiteral("--language %1: the project has no such language")
                         .arg(QString::fromStdString(language)));
        if (!unknown.empty())
            return EXIT_WRONG_USE;
        const CodePointFormat form = format == "c"        ? CodePointFormat::C
                                     : format == "ranges" ? CodePointFormat::Ranges
                                                          : CodePointFormat::List;
        session.report.WriteBytes(CodePointsText(points, form));
        return session.StatusAfter(EXIT_FINE);
    }

    int PrintStats(Session &session, const CResDoc &document) const
    {
        int rows = 0;
        const std::vector<LanguageStats> languages = StringStats(document, rows);
        if (json) {
            QJsonArray list;
            for (const LanguageStats &language : languages) {
                list.append(QJsonObject{{QStringLiteral("language"), language.number},
                                        {QStringLiteral("name"), language.name},
                                        {QStringLiteral("texts"), language.texts},
                                        {QStringLiteral("missing"), language.missing},
                                        {QStringLiteral("same_as_first"), language.sameAsFirst}});
            }
            const QJsonObject all{{QStringLiteral("rows"), rows}, {QStringLiteral("languages"), list}};
            session.report.WriteBytes(QJsonDocument(all).toJson());
            return session.StatusAfter(EXIT_FINE);
        }
        session.report.Write(QStringLiteral("%1 strings\n\n   texts  missing  as first  language\n").arg(rows));
        for (const LanguageStats &language : languages) {
            const QString numbers =
                QStringLiteral("%1%2%3").arg(language.texts, 8).arg(language.missing, 9).arg(language.sameAsFirst, 10);
            session.report.Write(numbers + QStringLiteral("  ") + language.name +
                                 QStringLiteral(" (%1)\n").arg(language.number));
        }
        return session.StatusAfter(EXIT_FINE);
    }

    std::string project;
    bool json = false;
    StringsExport exporter;
    StringsImport importer;
    CLI::App *exporting = nullptr;
    CLI::App *importing = nullptr;
    CLI::App *codePoints = nullptr;
    std::vector<std::string> wantedLanguages;
    std::string format = "list";
    CLI::App *stats = nullptr;
    CLI::App *cat = nullptr;
};

} // namespace

std::unique_ptr<ISubcommand> MakeStringsSubcommand()
{
    return std::make_unique<StringsSubcommand>();
}
