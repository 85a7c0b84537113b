// SPDX-License-Identifier: MIT
#include "ByteCount.h"
#include "ConvertedSizes.h"
#include "Depfile.h"
#include "HostFiles.h"
#include "OpeningReport.h"
#include "PackRequest.h"
#include "PackTrialReport.h"
#include "Paths.h"
#include "ProjectInputs.h"
#include "ProjectSave.h"
#include "PseudoTranslation.h"
#include "Subcommands.h"

namespace
{

class PackSubcommand : public Subcommand<PackArguments>
{
public:
    using Subcommand::Subcommand;

    int Run(Session &session) override
    {
        if (!HasRightWords())
            return EXIT_WRONG_USE;
        PackRequest request;
        request.projectPath = AbsolutePath(project);
        request.inputFile = AbsolutePath(input);
        request.outputFile = AbsolutePath(output);
        request.resolution = QString::fromStdString(resolution);
        request.targetKind = QString::fromStdString(target);
        request.imageConvert = convertImages;
        request.version = version;
        // Opening would finish a save that was interrupted.
        if ((strict || dryRun) && HasInterruptedSave(session.env, request.projectPath))
            return EXIT_FAILED;
        session.handler.packTemp = AbsolutePath(temp);
        session.handler.packHeaders = AbsolutePath(headers);
        session.handler.packBudget = budgetBytes;
        session.handler.packOptions = [this, folder = AbsolutePath(cache)](PackOptions &options) {
            options.once = options.once || once;
            options.sorted = options.sorted || sorted;
            options.jobs = jobs.value_or(options.jobs);
            options.cache = cache.empty() ? options.cache : folder;
            options.cacheLimit = cacheBytes != 0 ? cacheBytes : options.cacheLimit;
        };
        if (dryRun)
            return TryToPack(session, request);
        // Made absolute now, since a pack changes to the project's folder.
        const QString depfilePath = AbsolutePath(depfile);
        std::vector<QByteArray> inputs;
        if (!depfile.empty()) {
            session.handler.packInputs = &inputs;
            session.handler.packDepfile = depfilePath;
        }
        session.handler.beforePack = [&](CResDoc &document) { return MayPack(session, document); };
        session.handler.Pack(request);
        const int status = hasWrongWord ? int(EXIT_WRONG_USE) : session.LastStatus();
        if (strict && session.handler.LastError() == int(ReportCode::NoDocument))
            (void)TellOfOpening(session, request.projectPath, nullptr, true);
        if (const int code = session.handler.LastError())
            Complain(QStringLiteral("the pack failed with %1: %2").arg(code).arg(PackReportText(code)));
        if (status == EXIT_FINE && !depfile.empty())
            return WriteDependencies(session, request, depfilePath, std::move(inputs));
        return status;
    }

private:
    /// Returns false, with a message, if a pack doesn't know a word of the command line.
    [[nodiscard]] bool HasRightWords()
    {
        const auto refuse = [](const char *option, const std::string &word, const char *right) {
            ComplainOfValue(option, word, right);
            return false;
        };
        if (!HasKnownTarget())
            return false;
        if (jobs && (*jobs < 1 || *jobs > PackOptions::MOST_JOBS))
            return refuse("--jobs", std::to_string(*jobs), "a number from 1 to 64");
        const auto isBytes = [&](const char *option, const std::string &word, quint64 &bytes) {
            bytes = ParseByteCount(QString::fromStdString(word)).value_or(0);
            return word.empty() || bytes != 0 ||
                   refuse(option, word, "a number of bytes, or of units such as in 512K or 2M");
        };
        return isBytes("--budget", budget, budgetBytes) && isBytes("--cache-size", cacheSize, cacheBytes);
    }

    int TryToPack(Session &session, const PackRequest &request)
    {
        CResDoc *const document = session.OpenQuietly(request.projectPath);
        if (!document) {
            if (strict)
                (void)TellOfOpening(session, request.projectPath, nullptr, true);
            return EXIT_FAILED;
        }
        const bool isWhole = MayPack(session, *document);
        if (hasWrongWord)
            return EXIT_WRONG_USE;
        PackTrial trial;
        trial.sizes = ConvertedSizes();
        session.handler.TryPack(*document, request, trial);
        ReportTrial(session, trial, OutputOf(request));
        return session.StatusAfter(isWhole && trial.faults.empty() ? EXIT_FINE : EXIT_FAILED);
    }

    static QString OutputOf(const PackRequest &request)
    {
        return request.outputFile.isEmpty() ? request.inputFile + QStringLiteral(".pkd") : request.outputFile;
    }

    /// Reports what is wrong with the opened project or with the requested pack. Returns true if it may be packed.
    [[nodiscard]] bool MayPack(Session &session, CResDoc &document)
    {
        const QString &path = document.PathName();
        bool isWhole = !strict || TellOfOpening(session, path, &document, true);
        const auto size = ParseResolution(QString::fromStdString(resolution));
        const OpeningCheck check(session.env, session.tables, path, &document);
        if (const auto reason = check.UnlistedResolution(size->width, size->height)) {
            session.env.Explain(FindingText(*reason));
            isWhole = isWhole && !strict;
        }
        if (!isWhole && !dryRun)
            session.env.ExplainFailure(QStringLiteral("nothing is written because of --strict"));
        return isWhole && (pseudo.empty() || UsePseudoTexts(session, document));
    }

    /// Changes the texts in memory only: the document is packed and not saved.
    [[nodiscard]] bool UsePseudoTexts(Session &session, CResDoc &document)
    {
        bool isKnown = true;
        const QString wrong = TranslateToPseudo(document, QString::fromStdString(pseudo), isKnown);
        hasWrongWord = !isKnown;
        if (!wrong.isEmpty())
            session.env.ExplainFailure(QStringLiteral("--pseudo: ") + wrong);
        return wrong.isEmpty();
    }

    static int WriteDependencies(Session &session, const PackRequest &request, const QString &path,
                                 std::vector<QByteArray> inputs)
    {
        inputs.push_back(request.inputFile.toUtf8());
        auto *document = static_cast<CResDoc *>(session.documents.FindDocument(request.projectPath));
        for (const QString &file : document ? ProjectInputs(*document) : QStringList())
            inputs.push_back(HostPath(file));
        const QString problem = WriteDepfile(path, OutputOf(request).toUtf8(), std::move(inputs));
        if (!problem.isEmpty())
            Complain(problem);
        return problem.isEmpty() ? EXIT_FINE : EXIT_FAILED;
    }

    quint64 budgetBytes = 0;   // 0: none
    quint64 cacheBytes = 0;    // 0: not given
    bool hasWrongWord = false; // which only the opened project shows
};

} // namespace

std::unique_ptr<ISubcommand> MakeSubcommand(PackArguments &&arguments)
{
    return std::make_unique<PackSubcommand>(std::move(arguments));
}
