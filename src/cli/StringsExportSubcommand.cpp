// SPDX-License-Identifier: MIT
#include "StringsExportSubcommand.h"

#include "CheckOutputs.h"
#include "CheckSettings.h"
#include "FileFault.h"
#include "HostFiles.h"
#include "Paths.h"
#include "Spreadsheet.h"
#include "StringsSubcommands.h"
#include "TemporaryFolder.h"
#include "TranslationFormats.h"

#include <QDir>
#include <QFileInfo>

#include <unistd.h>

using namespace Qt::StringLiterals;

int StringsExportSubcommand::Run(Session &session)
{
    path = AbsolutePath(file); // opening a project changes the current folder
    isFolder = QString::fromStdString(file).endsWith(u'/') || QFileInfo(path).isDir();
    CResDoc *const document = session.OpenQuietly(AbsolutePath(project));
    if (!document)
        return EXIT_FAILED;
    if (file == "-")
        return ExportToOutput(session, *document);
    session.handler.idleOutput = [&session](QStringView text) { session.report.Write(text); };
    return Export(session, *document);
}

/// Prints the file. The lines of the export go to standard error.
int StringsExportSubcommand::ExportToOutput(Session &session, CResDoc &document)
{
    if (format.empty()) {
        Complain(u"-: name the format of the output with --format"_s);
        return EXIT_WRONG_USE;
    }
    const TemporaryFolder folder(HostPath(QDir::tempPath()), "morvanite-export");
    if (folder.Error() != 0) {
        Complain(WhyNotWritten(QDir::tempPath(), folder.Error()));
        return EXIT_FAILED;
    }
    const bool hasTemplate = format == "po" && wanted.size() == 1 && wanted.front() == "none";
    path = QString::fromUtf8(folder.Path()) + u"/export."_s +
           (hasTemplate         ? u"pot"_s
            : format == "xliff" ? u"xlf"_s
                                : QString::fromStdString(format));
    isFolder = false;
    session.handler.idleOutput = [](QStringView text) { StandardOutput(STDERR_FILENO).Write(text); };
    const int status = Export(session, document);
    QByteArray bytes;
    if (status == EXIT_FINE && ReadFile(path, bytes) == 0)
        session.report.WriteBytes(bytes);
    return status;
}

int StringsExportSubcommand::Export(Session &session, CResDoc &document)
{
    std::vector<Finding> ofSettings;
    const CheckSettings settings = ReadCheckSettings(DirectoryOf(document.PathName()), ofSettings);
    const ExchangeLanguages languages(document, settings);
    if (!ChooseFormat() || !ChooseSource(languages, settings.source) || !ChooseLanguages(languages))
        return EXIT_WRONG_USE;
    const QString title = FileTitle(document.PathName());
    if (!job.format) {
        if (isFolder)
            path += u'/' + title + u'.' + QString::fromStdString(format);
        if (!MayWrite({path}, document, settings))
            return EXIT_WRONG_USE;
        return MakeFolder() ? ExportWorkbook(session, document) : int(EXIT_FAILED);
    }
    if (!ChooseFiles(languages, title))
        return EXIT_WRONG_USE;
    QStringList outputs;
    for (const TranslationExportJob::File &one : job.files)
        outputs.append(one.path);
    if (!MayWrite(outputs, document, settings))
        return EXIT_WRONG_USE;
    if (!MakeFolder())
        return EXIT_FAILED;
    const QString why = ExportTranslations(document, languages, settings, job);
    if (!why.isEmpty())
        Complain(why);
    return session.StatusAfter(why.isEmpty() && session.env.ErrorCount == 0 ? EXIT_FINE : EXIT_FAILED);
}

/// Returns false, with a message, if the export would replace a file of the project.
bool StringsExportSubcommand::MayWrite(const QStringList &outputs, CResDoc &document, const CheckSettings &settings)
{
    const QString clash =
        ClashOfOutputs(outputs, document.env, document.PathName(), &document, settings, IfBuildFile::Replace);
    if (!clash.isEmpty())
        Complain(clash);
    return clash.isEmpty();
}

/// Sets `job.format`, which stays null for a workbook.
bool StringsExportSubcommand::ChooseFormat()
{
    isTemplate = wanted.size() == 1 && wanted.front() == "none";
    const TranslationFormat *const ofName = isFolder ? nullptr : TranslationFormatOf(path);
    if (ofName && ofName->isTemplate && !isTemplate && !wanted.empty()) {
        Complain(path + u": a template has no translations, so leave out --language, or name a .po file"_s);
        return false;
    }
    isTemplate = isTemplate || (ofName && ofName->isTemplate);
    if (format.empty()) {
        job.format = ofName;
        const QString extension = ToLowerSimple(FileExtension(path));
        const bool isWorkbook = extension == u"xls" || extension == u"xlsx" || extension == u"csv";
        if (isFolder)
            Complain(path + u": it is a folder, so name the format of its files with --format"_s);
        else if (!ofName && !isWorkbook)
            Complain(path + u": its name doesn't end in .xls, .xlsx, .csv, .po, .pot or .xlf; for a folder with "
                            "translation files add --format po or --format xliff"_s);
        return !isFolder && (ofName || isWorkbook);
    }
    const QString extension = format == "xliff" ? u"xlf"_s : QString::fromStdString(format);
    const bool isTranslation = format == "po" || format == "xliff";
    if (!isTranslation) {
        if (!isFolder && !path.endsWith(u'.' + extension, Qt::CaseInsensitive)) {
            Complain(u"%1: with --format %2 its name must end in .%2"_s.arg(path, extension));
            return false;
        }
        return true;
    }
    if (ofName && !QStringView(ofName->extension).startsWith(extension.left(2))) {
        Complain(u"%1: its extension is another format than that of --format"_s.arg(path));
        return false;
    }
    isFolder = !ofName;
    job.format = ofName ? ofName : TranslationFormatOf(isTemplate ? u"x.pot"_s : u"x."_s + extension);
    return true;
}

bool StringsExportSubcommand::ChooseSource(const ExchangeLanguages &languages, const QString &ofSettings)
{
    const QString word = wantedSource.empty() ? ofSettings : QString::fromStdString(wantedSource);
    const auto source = word.isEmpty() ? languages.Source() : languages.Find(word);
    if (source && languages.IsInProject(*source)) {
        job.source = *source;
        return true;
    }
    if (wantedSource.empty() && !job.format && !onlyMissing && wanted.empty())
        return true; // nothing depends on it
    Complain(word.isEmpty() ? u"the project has no languages"_s
                            : u"%1: the project has no language \"%2\""_s.arg(
                                  wantedSource.empty() ? u"key source of morvanite-check.ini"_s : u"--source"_s, word));
    return false;
}

bool StringsExportSubcommand::ChooseLanguages(const ExchangeLanguages &languages)
{
    if (isTemplate) {
        if (!job.format || !QStringView(job.format->extension).startsWith(u"po"))
            Complain(u"--language none: only the format po has templates"_s);
        else if (onlyMissing)
            Complain(u"--only-missing: a template has no language whose texts can be missing"_s);
        else
            return true;
        return false;
    }
    for (const std::string &word : wanted) {
        const QString name = QString::fromStdString(word);
        const auto language = languages.Find(name);
        if (!language || !languages.IsInProject(*language)) {
            Complain(u"--language %1: the project has no such language"_s.arg(name));
            return false;
        }
        if (*language == job.source && job.format) {
            Complain(u"--language %1: it is the source language; --source names another one"_s.arg(name));
            return false;
        }
        if (std::find(chosen.begin(), chosen.end(), *language) == chosen.end())
            chosen.push_back(*language);
    }
    return true;
}

bool StringsExportSubcommand::ChooseFiles(const ExchangeLanguages &languages, const QString &title)
{
    if (isTemplate) {
        job.files = {{isFolder ? path + u'/' + title + u".pot"_s : path, job.source}};
        job.onlyMissing = false;
        return true;
    }
    job.onlyMissing = onlyMissing;
    if (chosen.empty()) {
        for (const qint32 language : languages.OfProject()) {
            if (language != job.source)
                chosen.push_back(language);
        }
    }
    if (chosen.empty() || (!isFolder && chosen.size() > 1)) {
        Complain(chosen.empty() ? u"the project has no language besides the source language"_s
                                : QString::fromStdString(file) +
                                      u": a file has one language; name it with --language, or name a folder"_s);
        return false;
    }
    for (const qint32 language : chosen) {
        const QString name = FileNameOf(languages.CodeOf(language), *job.format);
        job.files.push_back({isFolder ? path + u'/' + name : path, language});
    }
    const QString why = WhyNotTogether(job.files, languages);
    if (!why.isEmpty())
        Complain(why);
    return why.isEmpty();
}

/// Makes the folder of the files, if it doesn't exist.
bool StringsExportSubcommand::MakeFolder() const
{
    if (!isFolder)
        return true;
    const QString folder = job.format ? path : DirectoryOf(path);
    if (QFileInfo(folder).isDir() || CreateFolderOnDisk(folder))
        return true;
    Complain(folder + u": the folder can't be made: "_s + QString::fromLocal8Bit(std::strerror(errno)));
    return false;
}

int StringsExportSubcommand::ExportWorkbook(Session &session, CResDoc &document) const
{
    SpreadsheetChoice choice{chosen, onlyMissing, job.source};
    if (!chosen.empty())
        choice.languages.push_back(job.source);
    const SpreadsheetResult result = ExportSpreadsheet(document, path, choice);
    if (!result.reason.isEmpty())
        Complain(result.reason);
    return session.StatusAfter(result.code == 0 && session.env.ErrorCount == 0 ? EXIT_FINE : EXIT_FAILED);
}

std::unique_ptr<ISubcommand> MakeSubcommand(StringsExportArguments &&arguments)
{
    return std::make_unique<StringsExportSubcommand>(std::move(arguments));
}
