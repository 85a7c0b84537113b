// SPDX-License-Identifier: MIT
#include "StringTransfer.h"

#include "CResDoc.h"
#include "CheckOutputs.h"
#include "ExchangeLanguages.h"
#include "Paths.h"
#include "Spreadsheet.h"
#include "StringGridRules.h"
#include "TranslationExport.h"
#include "TranslationFormats.h"
#include "TranslationImport.h"
#include "ViewBoxes.h"
#include "WaitCursor.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace
{

/// Explains what a result has in addition to the lines of the report.
void Explain(CResDoc &document, const SpreadsheetResult &result)
{
    if (!result.reason.isEmpty())
        document.env.Explain(result.reason);
}

CheckSettings SettingsOf(const CResDoc &document)
{
    std::vector<Finding> ofSettings; // the check tells them
    return ReadCheckSettings(DirectoryOf(document.PathName()), ofSettings);
}

bool IsTranslation(const QString &path)
{
    return TranslationFormatOf(path) != nullptr;
}

/// Returns the names of files without their folders, or of the first of many.
QString NamesOf(const QStringList &paths)
{
    constexpr qsizetype MOST = 10;
    QStringList names;
    for (const QString &path : paths.first(qMin(paths.size(), MOST)))
        names << FileName(path);
    return names.join(u", ") + (paths.size() > MOST ? u" and %1 more"_s.arg(paths.size() - MOST) : QString());
}

} // namespace

bool StringTransfer::ImportWorkbook(const QString &path)
{
    const WaitCursor cursor;
    const SpreadsheetResult result = ImportSpreadsheet(document, path);
    Explain(document, result);
    return result.code == 0;
}

bool StringTransfer::ImportTranslations(const QStringList &paths)
{
    const WaitCursor cursor;
    const CheckSettings settings = SettingsOf(document);
    const ExchangeLanguages languages(document, settings);
    std::vector<ImportFile> files;
    for (const QString &path : paths)
        files.push_back({path, FileName(path)});
    TranslationImport import(document, languages, {});
    if (!import.Read(files))
        return false;
    const int kept = import.Plan().Count(CellFate::Kept);
    if (!import.Plan().ChangesTable())
        document.env.Explain(NothingImported());
    import.Plan().Apply();
    if (kept > 0)
        document.env.Explain(u"texts of the table that differ from those of the files stay: %1"_s.arg(kept));
    return true;
}

bool StringTransfer::Import()
{
    const QStringList paths =
        boxes.OpenFileDialog(QString::fromLatin1(EXCHANGE_FILTER), 1, /*multiSelect=*/true, QString());
    if (paths.isEmpty())
        return false;
    if (std::all_of(paths.begin(), paths.end(), IsTranslation)) {
        if (ImportTranslations(paths))
            return true;
        boxes.ShowMessage(u"Failed to import the translations, so the table is as before."_s);
        return false;
    }
    if (paths.size() > 1) {
        boxes.ShowMessage(u"Several files can only be imported together if they are translation files (.po, .xlf)."_s);
        return false;
    }
    if (!ImportWorkbook(paths.front()))
        boxes.ShowMessage(u"Failed to import from Excel."_s);
    return true;
}

void StringTransfer::Export()
{
    const QString path = boxes.SaveFileDialog(QString::fromLatin1(EXCHANGE_FILTER), QString());
    if (path.isEmpty())
        return;
    if (const TranslationFormat *const format = TranslationFormatOf(path))
        ExportToTranslations(path, *format);
    else
        ExportWorkbook(path);
}

void StringTransfer::ExportWorkbook(const QString &path)
{
    const QString clash = ClashOfOutputs({path}, document.env, document.PathName(), &document, SettingsOf(document),
                                         IfBuildFile::Replace);
    SpreadsheetResult result;
    if (clash.isEmpty()) {
        const WaitCursor cursor;
        result = ExportSpreadsheet(document, path);
    } else {
        document.env.Explain(clash);
    }
    Explain(document, result);
    if (result.code != 0 || !clash.isEmpty())
        boxes.ShowMessage(u"Failed to export to Excel."_s);
}

void StringTransfer::ExportToTranslations(const QString &path, const TranslationFormat &format)
{
    const CheckSettings settings = SettingsOf(document);
    const ExchangeLanguages languages(document, settings);
    TranslationExportJob job{&format, languages.Source().value_or(0), {}};
    if (languages.Source())
        job.files = TranslationFilesFor(path, format, languages, job.source);
    QString why = job.files.empty() ? u"the project has no source language, or no other language"_s
                                    : WhyNotTogether(job.files, languages);
    QStringList names;
    for (const TranslationExportJob::File &file : job.files)
        names << file.path;
    if (why.isEmpty())
        why = ClashOfOutputs(names, document.env, document.PathName(), &document, settings, IfBuildFile::Replace);
    if (why.isEmpty() && !MayReplace(names, path))
        return;
    if (why.isEmpty()) {
        const WaitCursor cursor;
        why = ExportTranslations(document, languages, settings, job);
    }
    if (!why.isEmpty()) {
        document.env.Explain(why);
        boxes.ShowMessage(u"Failed to export the strings."_s);
    } else if (names.size() > 1) {
        document.env.Explain(u"each language has its own file: "_s + NamesOf(names));
    }
}

bool StringTransfer::MayReplace(const QStringList &files, const QString &confirmed)
{
    QStringList existing;
    for (const QString &file : files) {
        if (file != confirmed && QFileInfo::exists(file))
            existing << file;
    }
    return existing.isEmpty() || boxes.AskYesNo(u"Each language has its own file, and these exist: %1.\n"
                                                "Do you want to replace them?"_s.arg(NamesOf(existing)));
}

bool StringTransfer::ImportDropped(const QStringList &paths)
{
    bool isAny = false;
    for (const QString &path : paths) {
        const QString name = FileName(path);
        switch (JudgeDrop(path)) {
        case DropVerdict::Skip:
            break;
        case DropVerdict::WrongType:
            boxes.ShowMessage(QStringLiteral("\"%1\": %2").arg(name, QStringLiteral("Inappropriate file type.")));
            break;
        case DropVerdict::Import:
            if (ImportWorkbook(path))
                isAny = true;
            else
                boxes.ShowMessage(QStringLiteral("Failed to import \"%1\".").arg(name));
        }
    }
    return isAny;
}
