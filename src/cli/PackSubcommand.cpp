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
#include "RemoteSubcommand.h"
#include "ScreenSize.h"
#include "Subcommands.h"

namespace
{

class PackSubcommand : public ISubcommand
{
public:
    CLI::App *Add(CLI::App &app) override
    {
        CLI::App *subcommand =
            app.add_subcommand("pack", "Pack a project's resources into a copy of an application file");
        AddProject(*subcommand, project);
        subcommand->add_option("--input", input, "The application file; it isn't changed")
            ->type_name("FILE")
            ->required();
        subcommand->add_option("--output", output, "The file to write (default: the input's name and \".pkd\")")
            ->type_name("FILE");
        subcommand->add_option("--resolution", resolution, "The screen size of the device, such as 240x320")
            ->type_name("WxH")
            ->required();
        subcommand->add_option("--target", target, "The format of the application file; axf is ELF")
            ->type_name("axf|dll")
            ->required();
        subcommand
            ->add_option("--convert-images", convertImages,
                         "Convert the pictures to the device's format unless N is 0 (default: 0)")
            ->type_name("N");
        subcommand->add_option("--ver", version, "The version number in the developer's log")->type_name("N");
        CLI::Option *depfileOption = subcommand->add_option("--depfile", depfile, DEPFILE_HELP)->type_name("FILE");
        CLI::Option *strictOption = subcommand->add_flag("--strict", strict, STRICT_HELP);
        CLI::Option *tempOption =
            subcommand->add_option("--temp", temp, "Write temporary files to DIR instead of beside the sources")
                ->type_name("DIR");
        CLI::Option *headersOption =
            subcommand
                ->add_option("--headers", headers,
                             "The folder with the headers (default: the folder that a save writes them to)")
                ->type_name("DIR");
        CLI::Option *pseudoOption =
            subcommand
                ->add_option("--pseudo", pseudo,
                             "Make the texts of this language from those of the source, to try out the application; "
                             "the project isn't changed")
                ->type_name("LANGUAGE");
        CLI::Option *budgetOption =
            subcommand
                ->add_option(
                    "--budget", budget,
                    "Write nothing and exit with 1 if the resources have more bytes than this; K and M are units")
                ->type_name("BYTES");
        CLI::Option *sortedOption = subcommand->add_flag(
            "--sorted", sorted,
            "Pack every table in ascending order of its numbers, so that the device finds them faster");
        std::vector<CLI::Option *> localOptions = AddSpeedOptions(*subcommand);
        CLI::Option *dryRunOption = subcommand->add_flag(
            "--dry-run", dryRun, "Write nothing, and print the sizes and everything that would make the pack fail");
        dryRunOption->excludes(depfileOption);
        CLI::Option *remoteOption = subcommand->add_flag("--remote", remote, REMOTE_HELP);
        for (CLI::Option *option : {depfileOption, strictOption, tempOption, headersOption, pseudoOption, budgetOption,
                                    sortedOption, dryRunOption})
            localOptions.push_back(option);
        for (CLI::Option *option : localOptions)
            remoteOption->excludes(option);
        return subcommand;
    }

    int Run(Session &session) override
    {
        if (!HasRightWords())
            return EXIT_WRONG_USE;
        PackCommandRecord request;
        request.projectPath = AbsolutePath(project);
        request.inputFile = AbsolutePath(input);
        request.outputFile = AbsolutePath(output);
        request.resolution = QString::fromStdString(resolution);
        request.targetKind = QString::fromStdString(target);
        request.imageConvert = convertImages;
        request.version = version;
        if (remote)
            return RunRemotely(session, request);
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
    /// Adds the options that change only how long a pack takes, and returns them.
    std::vector<CLI::Option *> AddSpeedOptions(CLI::App &subcommand)
    {
        return {
            subcommand.add_flag("--once", once,
                                "Make the side file from the bytes of the section, if the settings allow it"),
            subcommand
                .add_option("--jobs", jobs,
                            "Convert N pictures at a time, 1 to 64 (default: the settings' number, or 1)")
                ->type_name("N"),
            subcommand.add_option("--cache", cache, "Keep converted pictures in DIR, for the next pack")
                ->type_name("DIR"),
            subcommand
                .add_option("--cache-size", cacheSize,
                            "The most bytes that the files in the cache have; K and M are units (default: 1024M)")
                ->type_name("BYTES"),
        };
    }

    /// Returns false, with a message, if a pack doesn't know a word of the command line.
    [[nodiscard]] bool HasRightWords()
    {
        const auto refuse = [](const char *option, const std::string &word, const char *right) {
            Complain(QStringLiteral("%1 is \"%2\", but it must be %3")
                         .arg(QString::fromLatin1(option), QString::fromStdString(word), QString::fromLatin1(right)));
            return false;
        };
        if (!PackModeOf(QString::fromStdString(target)))
            return refuse("--target", target, "axf (an ELF file) or dll");
        if (!ParseScreenSize(QString::fromStdString(resolution))) // stricter than for an IDE's record
            return refuse("--resolution", resolution, "a width and a height in pixels, such as 240x320");
        if (jobs && (*jobs < 1 || *jobs > PackOptions::MOST_JOBS))
            return refuse("--jobs", std::to_string(*jobs), "a number from 1 to 64");
        const auto isBytes = [&](const char *option, const std::string &word, quint64 &bytes) {
            bytes = ParseByteCount(QString::fromStdString(word)).value_or(0);
            return word.empty() || bytes != 0 ||
                   refuse(option, word, "a number of bytes, or of units such as in 512K or 2M");
        };
        return isBytes("--budget", budget, budgetBytes) && isBytes("--cache-size", cacheSize, cacheBytes);
    }

    int TryToPack(Session &session, const PackCommandRecord &request)
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

    static QString OutputOf(const PackCommandRecord &request)
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

    static int WriteDependencies(Session &session, const PackCommandRecord &request, const QString &path,
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

    std::string project;
    std::string input;
    std::string output;
    std::string resolution;
    std::string target;
    std::string depfile;
    std::string temp;
    std::string headers;
    std::string pseudo;
    int convertImages = 0;
    int version = 0;
    bool remote = false;
    bool strict = false;
    bool dryRun = false;
    bool sorted = false;
    std::string budget;
    quint64 budgetBytes = 0; // 0: none
    bool once = false;
    std::optional<int> jobs;
    std::string cache;
    std::string cacheSize;
    quint64 cacheBytes = 0;    // 0: not given
    bool hasWrongWord = false; // which only the opened project shows
};

} // namespace

std::unique_ptr<ISubcommand> MakePackSubcommand()
{
    return std::make_unique<PackSubcommand>();
}
