// SPDX-License-Identifier: MIT
#include "StringsImportSubcommand.h"

#include "CheckSettings.h"
#include "ExchangeLanguages.h"
#include "ImportListing.h"
#include "OpeningReport.h"
#include "Paths.h"
#include "ProjectSave.h"
#include "SpreadsheetImport.h"
#include "StandardInput.h"
#include "StringsSubcommands.h"
#include "TranslationFormats.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <optional>

using namespace Qt::StringLiterals;

namespace
{

constexpr char INPUT[] = "-";
constexpr qint64 LARGEST_INPUT = qint64(256) << 20; // bytes, as for files

int StatusOf(Session &session, bool isFine)
{
    return session.StatusAfter(isFine && session.env.ErrorCount == 0 ? EXIT_FINE : EXIT_FAILED);
}

/// Returns false, with a message, if the string file can't hold the texts to import.
bool TakesAll(const ImportPlan &plan)
{
    constexpr qsizetype SHOWN = 10;
    const QStringList &cells = plan.Refused();
    if (cells.isEmpty())
        return true;
    Complain(u"a string can't contain a tab or a line break, so nothing is saved; fix %1%2"_s.arg(
        cells.first(qMin(cells.size(), SHOWN)).join(u", "),
        cells.size() > SHOWN ? u" and %1 more"_s.arg(cells.size() - SHOWN) : QString()));
    return false;
}

/// Applies a plan with `apply` and saves the project. `status` is the exit status so far. Returns the new one.
template <typename Apply> int ApplyAndSave(Session &session, CResDoc &document, int status, const Apply &apply)
{
    if (document.TakeInChanges() != CResDoc::Outside::None) {
        Complain(document.PathName() + u": its files changed during the import, so nothing is saved; import again"_s);
        return EXIT_FAILED;
    }
    apply();
    (void)document.DoFileSave();
    const bool saved = document.lastSave.write == 0;
    if (!saved)
        Complain(document.PathName() + u": failed to save the project with the imported texts"_s);
    else if (document.lastSave.generate != 0 || session.env.FailureCount > 0)
        Complain(document.PathName() + u": the imported texts are saved, but not all of the headers"_s);
    return session.StatusAfter(saved && document.lastSave.generate == 0 ? status : int(EXIT_FAILED));
}

} // namespace

/// Makes paths absolute. Returns false, with a message, if the files can't be imported together.
bool StringsImportSubcommand::ChooseFiles()
{
    const auto inputs = std::count(names.begin(), names.end(), INPUT);
    if (inputs > 1 || (inputs == 1) == format.empty()) {
        Complain(inputs > 1    ? u"-: standard input can be read only once"_s
                 : inputs == 1 ? u"-: name the format of the input with --format"_s
                               : u"--format is for standard input (-); the extension of a file selects its format"_s);
        return false;
    }
    for (const std::string &name : names) {
        const QString shown = name == INPUT ? u"standard input"_s : QString::fromStdString(name);
        const std::string extension = format == "xliff" ? "xlf" : format;
        files.push_back({AbsolutePath(name == INPUT ? "-." + extension : name), shown});
    }
    for (auto file = files.begin(); file != files.end(); ++file) {
        if (std::any_of(files.begin(), file, [&](const ImportFile &other) { return other.path == file->path; })) {
            Complain(u"%1: it is named twice; name each file once"_s.arg(file->name));
            return false;
        }
    }
    const auto isTranslation = [](const ImportFile &file) { return TranslationFormatOf(file.path) != nullptr; };
    isWorkbook = std::none_of(files.begin(), files.end(), isTranslation);
    options.replace = replace;
    options.onlyExisting = onlyExisting;
    options.acceptStale = acceptStale;
    options.includeUnfinished = includeUnfinished;
    options.ownNames = ownNames;
    options.unguard = unguard;
    options.sheet = QString::fromStdString(sheet);
    if (files.size() > 1 && !std::all_of(files.begin(), files.end(), isTranslation)) {
        Complain(u"several files can only be imported together if they are translation files (.po, .xlf)"_s);
        return false;
    }
    return ChooseOptions();
}

/// Returns false, with a message, if an option isn't for the format of the files.
bool StringsImportSubcommand::ChooseOptions() const
{
    if (!isWorkbook && (options.ownNames || options.unguard || !sheet.empty())) {
        Complain(u"--own-names, --unguard and --sheet are for workbooks only"_s);
        return false;
    }
    if (isWorkbook && (options.acceptStale || options.includeUnfinished)) {
        Complain(u"--accept-stale and --include-unfinished are for translation files only"_s);
        return false;
    }
    return true;
}

/// Reads standard input, if it is one of the files. Returns false, with a message, if it has nothing.
bool StringsImportSubcommand::ReadInput()
{
    const auto input = std::find(names.begin(), names.end(), INPUT);
    if (input == names.end())
        return true;
    QByteArray content;
    if (const int error = ReadStandardInput(content, LARGEST_INPUT)) {
        Complain(u"standard input: "_s +
                 (error == EFBIG ? u"it has more than 256 MiB"_s : QString::fromLocal8Bit(std::strerror(error))));
        return false;
    }
    if (content.isEmpty()) {
        Complain(u"standard input is empty, so nothing is imported"_s);
        return false;
    }
    files[size_t(input - names.begin())].content = std::move(content);
    return true;
}

bool StringsImportSubcommand::ChooseLanguages(const ExchangeLanguages &languages)
{
    for (const std::string &word : wanted) {
        const QString name = QString::fromStdString(word);
        const std::optional<qint32> language = languages.Find(name);
        if (!language) {
            Complain(u"--language %1: neither the project nor tuvik.ini has such a language"_s.arg(name));
            return false;
        }
        options.languages.push_back(*language);
    }
    return true;
}

int StringsImportSubcommand::Run(Session &session)
{
    if (!ChooseFiles()) // before a project is opened, which changes the current folder
        return EXIT_WRONG_USE;
    if (!ReadInput())
        return EXIT_FAILED;
    const QString path = AbsolutePath(project);
    if ((!dryRun && !session.LockProject(path)) || (strict && HasInterruptedSave(session.env, path)))
        return EXIT_FAILED;
    if (isWorkbook)
        BeginReading();
    CResDoc *const document = session.OpenQuietly(path);
    if (!document || (strict && !TellOfOpening(session, document->PathName(), document, true)))
        return EXIT_FAILED;
    session.handler.idleOutput = [&session](QStringView text) { session.report.Write(text); };
    return Import(session, *document);
}

int StringsImportSubcommand::Import(Session &session, CResDoc &document)
{
    if (session.env.ErrorCount > 0 && !dryRun) {
        Complain(u"the project has the errors above, and a save would drop the elements that they name, so nothing is "
                 "imported; fix the errors first"_s);
        return EXIT_FAILED;
    }
    std::vector<Finding> ofSettings;
    const CheckSettings settings = ReadCheckSettings(DirectoryOf(document.PathName()), ofSettings);
    const ExchangeLanguages languages(document, settings);
    if (!ChooseLanguages(languages))
        return EXIT_WRONG_USE;
    ImportLines lines(session.report);
    std::optional<ImportJson> structured;
    if (json) {
        structured.emplace(session.report);
        session.handler.idleOutput = [](QStringView text) { fputs(text.toUtf8().constData(), stderr); };
    }
    IImportWatch *const watch = !dryRun ? nullptr : json ? static_cast<IImportWatch *>(&*structured) : &lines;
    const int status =
        isWorkbook ? ImportWorkbook(session, document, watch) : ImportTranslations(session, document, languages, watch);
    if (structured)
        structured->End();
    return status;
}

void StringsImportSubcommand::BeginReading()
{
    ImportFile &file = files.front();
    if (!file.content)
        file.name = file.path; // in messages too, so that they say which of several folders it is in
    reading = std::make_unique<SheetReading>(std::move(file), options.sheet);
}

int StringsImportSubcommand::ImportWorkbook(Session &session, CResDoc &document, IImportWatch *watch)
{
    std::optional<SpreadsheetImport> import(std::in_place, document, std::move(reading), options);
    const SpreadsheetResult result = import->Read(watch);
    if (!result.reason.isEmpty())
        Complain(result.reason);
    const int status = StatusOf(session, result.code == 0);
    if (result.code != 0 || !TakesAll(import->Plan()))
        return EXIT_FAILED;
    if (dryRun)
        return status;
    return ApplyAndSave(session, document, status, [&import] {
        import->Plan().Apply();
        import.reset(); // frees the workbook's texts, which take as much memory as the save
    });
}

int StringsImportSubcommand::ImportTranslations(Session &session, CResDoc &document, const ExchangeLanguages &languages,
                                                IImportWatch *watch) const
{
    std::optional<TranslationImport> import(std::in_place, document, languages, options);
    const bool isFine = import->Read(files, watch);
    const int status = StatusOf(session, isFine);
    if (!isFine) {
        session.report.Flush(); // the errors
        Complain(u"nothing is imported, because of the errors above"_s);
        return EXIT_FAILED;
    }
    if (dryRun)
        return status;
    const auto count = [&import](CellFate fate) { return import->Plan().Count(fate); };
    if (count(CellFate::Filled) + count(CellFate::New) + count(CellFate::Replaced) + count(CellFate::Same) == 0)
        Complain(u"no text is imported; --dry-run shows why"_s);
    return ApplyAndSave(session, document, status, [&import] {
        import->Plan().Apply();
        import.reset();
    });
}

std::unique_ptr<ISubcommand> MakeSubcommand(StringsImportArguments &&arguments)
{
    return std::make_unique<StringsImportSubcommand>(std::move(arguments));
}
