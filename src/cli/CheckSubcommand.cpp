// SPDX-License-Identifier: MIT
#include "Baseline.h"
#include "CheckOutput.h"
#include "CheckOutputs.h"
#include "CheckProject.h"
#include "ConvertedSizes.h"
#include "FileFault.h"
#include "HostFiles.h"
#include "LazyPictures.h"
#include "LoadRules.h"
#include "Paths.h"
#include "ProjectSave.h"
#include "RuleReport.h"
#include "Rules.h"
#include "ScreenOption.h"
#include "Session.h"
#include "Subcommands.h"
#include "TextContext.h"

#include <string_view>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

class CheckSubcommand : public Subcommand<CheckArguments>
{
public:
    using Subcommand::Subcommand;

    int Run(Session &session) override
    {
        if (!explain.empty())
            return Explain(session);
        if (project.empty()) {
            Complain(u"check: PROJECT is required"_s);
            return EXIT_WRONG_USE;
        }
        if (!HasRightWords())
            return EXIT_WRONG_USE;
        folder = CurrentFolder(); // opening a project changes it
        const QString path = AbsolutePath(project);
        const QString headerPath = AbsolutePath(header);
        baselinePath = AbsolutePath(baseline);
        newBaselinePath = newBaseline == "-" ? QString() : AbsolutePath(newBaseline);
        outputPath = output == "-" ? QString() : AbsolutePath(output);

        if (!outputPath.isEmpty() && (outputPath == baselinePath || outputPath == headerPath)) {
            Complain(u"%1 is not written because the check reads it"_s.arg(outputPath));
            return EXIT_WRONG_USE;
        }

        CheckResult result;
        result.project = path;
        result.relativeTo = folder;
        result.version = QStringLiteral(MORVANITE_VERSION);
        if (!Check(session, path, headerPath, result))
            return EXIT_WRONG_USE;
        if (summary)
            CountMissingTexts(result);
        return Report(session, result);
    }

private:
    [[nodiscard]] bool HasRightWords()
    {
        for (const std::string &rule : rules) {
            if (!FindRule(QString::fromStdString(rule))) {
                Complain(u"--rule %1: there is no such rule; \"check --explain all\" lists them"_s.arg(
                    QString::fromStdString(rule)));
                return false;
            }
        }
        if (newBaseline == "-" && output == "-") {
            Complain(u"-o and --write-baseline can't both be standard output"_s);
            return false;
        }
        return ReadScreenSizes(resolutions, screens);
    }

    /// Opens the project and checks it. The lines of the opening are findings, so they aren't printed.
    [[nodiscard]] bool Check(Session &session, const QString &path, const QString &headerPath, CheckResult &result)
    {
        std::vector<Finding> loaded;
        const Notifier<const Finding &>::Listener listener(
            session.env.found, [&loaded](const Finding &finding) { loaded.push_back(finding); });
        session.handler.idleOutput = [](QStringView) {};
        QStringList explained;
        const auto explainer =
            std::exchange(session.env.explain, [&explained](const QString &text) { explained.append(text); });
        // Opening would finish a save that was interrupted, and a check writes nothing.
        auto *const document = HasInterruptedSave(session.env, path)
                                   ? nullptr
                                   : static_cast<CResDoc *>(session.documents.OpenDocumentFile(path));
        session.env.explain = explainer;

        std::vector<Finding> ofSettings;
        CheckSettings settings = ReadCheckSettings(DirectoryOf(path), ofSettings);
        for (size_t i = 0; !rules.empty() && i < settings.levels.size(); ++i)
            settings.levels[i] = LevelOfChosen(AllRules()[i], settings.levels[i]);
        if (const QString clash = ClashOfOutputs({outputPath, newBaselinePath}, session.env, path, document, settings);
            !clash.isEmpty()) {
            Complain(clash);
            return false;
        }
        if (document) {
            const TextContext texts(*document, settings);
            result.languages = texts.Languages();
            CheckInput input{*document,  settings,           texts, loaded, screens.empty() ? settings.target : screens,
                             headerPath, CountAlphaOfPicture};
            input.measureLayouts = SizesOfConvertedLayouts;
            result.findings = CheckProject(input);
            if (IsPictureModuleMissing())
                Complain(u"libmorvanite-pictures.so, which must be beside the program, can't be loaded, so "
                         "\"image-alpha-few\" finds nothing"_s);
        } else {
            result.findings = CheckUnopened(session.env, session.tables, path, settings, loaded, explained);
        }
        AddFindings(result, settings, ofSettings);
        const bool isReadable = ApplyBaseline(result, settings);
        SortFindings(result.findings);
        return isReadable;
    }

    /// The rule about the settings stays on: because of a broken line, a chosen rule may find nothing.
    [[nodiscard]] RuleLevel LevelOfChosen(const Rule &rule, RuleLevel level) const
    {
        if (rule.id == std::string_view("check-settings"))
            return level;
        if (std::find(rules.begin(), rules.end(), rule.id) == rules.end())
            return RuleLevel::Off;
        return level == RuleLevel::Off ? RuleLevel::Note : level;
    }

    static void AddFindings(CheckResult &result, const CheckSettings &settings, const std::vector<Finding> &findings)
    {
        RuleReport report(settings, [&](Finding &&finding) { result.findings.push_back(std::move(finding)); });
        report.AddFound(findings);
    }

    [[nodiscard]] bool ApplyBaseline(CheckResult &result, const CheckSettings &settings) const
    {
        if (baselinePath.isEmpty())
            return true;
        QByteArray bytes;
        if (const int error = ReadFile(baselinePath, bytes); error != 0) {
            Complain(WhyNotRead(baselinePath, error));
            return false;
        }
        std::vector<Finding> ofBaseline;
        Baseline accepted;
        accepted.Parse(bytes, baselinePath, ofBaseline);
        accepted.Apply(result.findings, result.known, result.ProjectFolder());
        AddFindings(result, settings, ofBaseline);
        result.hasBaseline = true;
        return true;
    }

    [[nodiscard]] int Report(Session &session, const CheckResult &result) const
    {
        if (!newBaseline.empty()) {
            std::vector<Finding> all = result.findings;
            all.insert(all.end(), result.known.begin(), result.known.end());
            if (!Write(session, newBaselinePath, Baseline::Bytes(all, result.ProjectFolder())))
                return EXIT_FAILED;
        }
        const QByteArray bytes = format == "json"    ? CheckJson(result)
                                 : format == "sarif" ? CheckSarif(result)
                                                     : CheckText(result);
        const bool isTaken = newBaseline == "-" && output.empty(); // standard output has the baseline
        if (!isTaken && !Write(session, outputPath, bytes))
            return EXIT_FAILED;
        session.report.Flush();
        const int errors = result.Count(Severity::Error);
        const int warnings = result.Count(Severity::Warning);
        const int notes = result.Count(Severity::Note);
        if (format == "text" && errors + warnings + notes > 0)
            Complain(u"errors: %1, warnings: %2, notes: %3"_s.arg(errors).arg(warnings).arg(notes));
        const bool hasFailed = (failOn != "never" && errors > 0) ||
                               ((failOn == "warning" || failOn == "note") && warnings > 0) ||
                               (failOn == "note" && notes > 0);
        return hasFailed ? EXIT_FAILED : EXIT_FINE;
    }

    /// Writes to a file; to standard output if the path is empty.
    [[nodiscard]] static bool Write(Session &session, const QString &file, const QByteArray &bytes)
    {
        if (file.isEmpty()) {
            session.report.WriteBytes(bytes);
            return true;
        }
        const int error = WriteFileAtomically(file, bytes, IfDevice::WriteThrough);
        if (error != 0)
            Complain(WhyNotWritten(file, error));
        return error == 0;
    }

    [[nodiscard]] int Explain(Session &session) const
    {
        const QString wanted = QString::fromStdString(explain);
        bool isKnown = false;
        for (const Rule &rule : AllRules()) {
            if (wanted != u"all" && wanted != QLatin1StringView(rule.id))
                continue;
            isKnown = true;
            session.report.WriteBytes(ExplanationOf(rule).toUtf8());
        }
        if (!isKnown)
            Complain(u"--explain %1: there is no such rule; \"check --explain all\" lists them"_s.arg(wanted));
        return isKnown ? EXIT_FINE : EXIT_WRONG_USE;
    }

    QString folder;
    QString baselinePath;
    QString newBaselinePath;
    QString outputPath;
    std::vector<ScreenSize> screens;
};

} // namespace

std::unique_ptr<ISubcommand> MakeSubcommand(CheckArguments &&arguments)
{
    return std::make_unique<CheckSubcommand>(std::move(arguments));
}
