// SPDX-License-Identifier: MIT
#include "SpreadsheetImport.h"

#include "CsvGuard.h"
#include "Environment.h"
#include "IdNames.h"
#include "Paths.h"
#include "ResModel.h"
#include "StringFileFormat.h"
#include "Workbook.h"

#include <utility>

using namespace StringFileFormat;

namespace
{

// Rows of the sheet.
constexpr quint32 COUNT_ROW = 0;
constexpr quint32 NAMES_ROW = 1;
constexpr quint32 FIRST_ROW = 2;
constexpr quint32 FEWEST = 3; // columns and rows

/// Returns the text of a cell as a message shows it.
QString CellText(const QString &text)
{
    return text.isEmpty() ? QStringLiteral("nothing") : u'"' + Cut(text) + u'"';
}

/// Returns what is wrong with the start of a sheet, followed by what is expected.
QString WhatIsExpected(const QString &wrong)
{
    return wrong + QStringLiteral("; only the first sheet is read, and its first row must have \"%1\" in A1 and the "
                                  "number of languages in B1")
                       .arg(COUNT_WORD);
}

/// Returns the file and its sheet as messages name them.
QString PlaceOf(const QString &name, const Sheet &sheet)
{
    return sheet.name.isEmpty() ? name + u':' : QStringLiteral("%1, sheet \"%2\":").arg(name, sheet.name);
}

/// The texts of a sheet, row by row.
class SheetTexts : public IImportSource
{
public:
    SheetTexts(const Sheet &texts, bool hasGuards) : sheet(texts), isGuarded(hasGuards) {}
    QString Id(quint32 row) const override { return sheet.At(row, 0); }
    QString Text(quint32 row, quint32 column) const override
    {
        const QString text = sheet.At(row, column);
        return isGuarded ? WithoutCsvGuard(text).toString() : text;
    }
    bool HasText(quint32 row, quint32 column, QStringView text) const override
    {
        return isGuarded ? Text(row, column) == text : sheet.HasText(row, column, text);
    }
    quint32 EndColumn(quint32 row) const override { return sheet.EndColumn(row); }
    ImportPlace PlaceOf(quint32 row, quint32 column) const override
    {
        return {CellName(column, row + 1), {}, int(row) + 1};
    }

private:
    const Sheet &sheet;
    const bool isGuarded;
};

/// Makes the plan for a sheet. An object can be used only once.
class SheetReader
{
public:
    /// `sheetPlace` is the sheet as messages name it, and `file` is its workbook.
    SheetReader(CResModel &model, const Sheet &texts, QString file, QString sheetPlace, bool useOwnNames,
                ImportPlan &emptyPlan)
        : document(model), env(model.env), sheet(texts), path(std::move(file)), place(std::move(sheetPlace)),
          ownNames(useOwnNames), plan(emptyPlan)
    {
    }

    /// Returns 0, or the code of the failure that stopped it.
    int Read(IImportWatch *watch)
    {
        if (sheet.UsedColumns() < FEWEST || sheet.UsedRows() < FEWEST) {
            Tell("sheet.almost-empty", Severity::Warning, 0,
                 WhatIsExpected(
                     QStringLiteral(
                         "there are texts in %1 rows and %2 columns, and a string table has at least 3 of each")
                         .arg(sheet.UsedRows())
                         .arg(sheet.UsedColumns())),
                 "the sheet is almost empty.");
            return SHEET_EMPTY;
        }
        if (const int code = ReadHeader())
            return code;
        TellCut();
        for (quint32 row = FIRST_ROW; row < sheet.EndRow(); ++row) {
            const size_t before = plan.RowCount();
            ReadRow(row);
            if (watch && plan.RowCount() > before)
                watch->RowPlanned(plan, before);
        }
        return OK;
    }

private:
    /// Reports what is wrong with the header, and explains what the fixed line of the report doesn't say.
    template <typename... Arguments>
    void Tell(const char *code, Severity severity, quint32 row, const QString &what, const char *format,
              Arguments... arguments)
    {
        const Finding finding{code, severity, path, int(row) + 1, {}, what};
        if constexpr (sizeof...(arguments) == 0)
            env.Report(finding, "%s", format);
        else
            env.Report(finding, format, arguments...);
        env.Explain(place + u' ' + what);
    }

    /// Warns if the file ends within a row of texts.
    void TellCut()
    {
        if (sheet.cutRow == 0 || EqualsNoCase(sheet.At(quint32(sheet.cutRow) - 1, 0), END_WORD))
            return;
        env.Report({"sheet.cut-short", Severity::Warning, path, sheet.cutRow, {}, {}},
                   "the file ends within row %d, so texts may be missing or cut short.", sheet.cutRow);
    }

    int Expect(quint32 row, quint32 column, QStringView expected, bool anywhere = false)
    {
        const QString found = sheet.At(row, column);
        if (anywhere ? found.contains(expected) : found == expected)
            return OK;
        const QString cell = CellName(column, row + 1);
        Tell("sheet.header", Severity::Error, row,
             row == COUNT_ROW ? WhatIsExpected(QStringLiteral("has %1 in cell A1").arg(CellText(found)))
                              : QStringLiteral("cell %1 has %2 instead of \"%3\"").arg(cell, CellText(found), expected),
             "invalid file format; \"%s\" expected at cell %s.", expected.toUtf8().constData(), qUtf8Printable(cell));
        return WRONG_HEADER;
    }

    int ReadHeader()
    {
        if (const int code = Expect(COUNT_ROW, 0, COUNT_WORD, /*anywhere=*/true))
            return code;
        int languages = LeadingNumber(sheet.At(COUNT_ROW, 1));
        if (languages < 1) {
            Tell("sheet.language-count", Severity::Warning, COUNT_ROW,
                 QStringLiteral("cell B1 has %1 instead of the number of languages, so no language is read")
                     .arg(CellText(sheet.At(COUNT_ROW, 1))),
                 "%s = %d.", COUNT_WORD.toUtf8().constData(), languages);
            languages = 0;
        }
        hasType = EqualsNoCase(sheet.At(NAMES_ROW, 1), TYPE_WORD);
        firstText = hasType ? 2 : 1;
        if (qint64(sheet.UsedColumns()) < qint64(languages) + firstText + 1) {
            Tell("sheet.language-count", Severity::Error, COUNT_ROW,
                 QStringLiteral("cell B1 says %1 languages, which need %2 columns, but only %3 columns have texts")
                     .arg(languages)
                     .arg(qint64(languages) + firstText + 1)
                     .arg(sheet.UsedColumns()),
                 "invalid number of languages.");
            return WRONG_HEADER;
        }
        int code = Expect(NAMES_ROW, 0, ID_WORD);
        if (code == OK && hasType)
            code = Expect(NAMES_ROW, 1, TYPE_WORD);
        if (code == OK)
            code = Expect(NAMES_ROW, firstText, DESCRIPTION_WORD);
        return code == OK ? ReadLanguages(quint32(languages)) : code;
    }

    int ReadLanguages(quint32 languages)
    {
        plan.AddLanguage(DESCRIPTION, QString(), firstText);
        if (hasType)
            plan.SetKindColumn(1);
        for (quint32 column = firstText + 1; column <= firstText + languages; ++column) {
            const QString name = sheet.At(NAMES_ROW, column);
            const int number = NumberOf(name);
            if (number == -1) {
                Tell("sheet.language-unknown", Severity::Error, NAMES_ROW,
                     QStringLiteral("cell %1 has %2, but neither the project nor section Language of tuvik.ini has a "
                                    "language of that name")
                         .arg(CellName(column, NAMES_ROW + 1), CellText(name)),
                     "language \"%s\" is unrecognized.", Shown(name).constData());
                return UNKNOWN_LANGUAGE;
            }
            plan.AddLanguage(number, name.trimmed(), column); // as it was looked up
        }
        return OK;
    }

    /// Returns the language's number, or -1. Uses the language table; for a name that it lacks, uses the project's own
    /// language with that name, so that exported workbooks can be imported. With `ownNames` the project comes first. If
    /// several languages have the same name, each column gets the next of them.
    [[nodiscard]] int NumberOf(const QString &name) const
    {
        const int number = env.LanguageNumber(name);
        const CResFolder *strings = document.root.FindFolder(KIND_STRINGS, 2);
        if ((number != -1 && !ownNames) || !strings || name.trimmed().isEmpty())
            return number;
        const CResFolder *found = nullptr;
        for (const auto &folder : strings->subfolders) {
            if (folder->kind != KIND_LANGUAGE || folder->index == DESCRIPTION ||
                !EqualsNoCase(folder->title.trimmed(), name.trimmed()))
                continue;
            const bool isTaken = plan.HasFolder(*folder);
            if (!found || !isTaken)
                found = folder.get();
            if (!isTaken)
                break;
        }
        return found ? found->index : number;
    }

    void ReadRow(quint32 row)
    {
        const QString id = sheet.At(row, 0);
        if (EqualsNoCase(id, END_WORD))
            return;
        if (id.isEmpty()) {
            env.Report({"sheet.no-id", Severity::Warning, path, int(row) + 1, {}, {}}, "empty ID discarded (Line %d).",
                       int(row) + 1);
            if (sheet.EndColumn(row) > 0)
                plan.AddLostRow(row);
            return;
        }
        if (!IsValidIdName(id))
            env.Report({"import.id-invalid", Severity::Error, path, int(row) + 1, id, {}}, "invalid ID format - [%s].",
                       Shown(id).constData());
        plan.AddRow(row, ReadKind(row, id));
    }

    bool ReadKind(quint32 row, const QString &id)
    {
        if (!hasType)
            return false;
        const QString type = sheet.At(row, 1);
        if (type != PUSH_WORD && type != NORMAL_WORD)
            env.Report({"sheet.kind-invalid", Severity::Error, path, int(row) + 1, id, {}},
                       "invalid push format - [%s].", Shown(type).constData());
        return type == PUSH_WORD;
    }

    CResModel &document;
    Environment &env;
    const Sheet &sheet;
    const QString path;
    const QString place;
    const bool ownNames;
    ImportPlan &plan;
    bool hasType = false;
    quint32 firstText = 0; // the column of descriptions
};

} // namespace

QString CellName(quint32 column, quint32 row)
{
    QString letters;
    for (quint32 rest = column + 1; rest > 0; rest = (rest - 1) / 26)
        letters.prepend(QChar(u'A' + (rest - 1) % 26));
    return letters + QString::number(row);
}

SpreadsheetImport::SpreadsheetImport(CResModel &model, ImportFile workbook, const ImportOptions &importOptions)
    : SpreadsheetImport(model, std::make_unique<SheetReading>(std::move(workbook), importOptions.sheet), importOptions)
{
}

SpreadsheetImport::SpreadsheetImport(CResModel &model, std::unique_ptr<SheetReading> begun,
                                     const ImportOptions &importOptions)
    : document(model), reading(std::move(begun)), ownNames(importOptions.ownNames),
      texts(std::make_unique<SheetTexts>(sheet, importOptions.unguard &&
                                                    !EqualsNoCase(FileExtension(reading->File().path), u"csv"))),
      plan(model, *texts, reading->File().path, importOptions)
{
}

SpreadsheetResult SpreadsheetImport::Read(IImportWatch *watch)
{
    Environment &env = document.env;
    env.RefreshSettings();
    env.ResetCounts();
    env.LimitWarnings(); // each of a million rows may have a warning
    SpreadsheetResult result;
    const ImportFile &file = reading->File();
    const WorkbookResult opened = reading->Take(sheet);
    if (opened.HasFailed()) {
        const bool isNone = opened.fault == WorkbookFault::NoWorkbook;
        env.Report({isNone ? "sheet.no-workbook" : "sheet.broken", Severity::Error, file.path, 0, {}, opened.reason},
                   isNone ? "failed to connect to Excel." : "failed to import from Excel.");
        result = {SHEET_FAILED, opened.reason};
    } else {
        result.code = SheetReader(document, sheet, file.path, PlaceOf(file.name, sheet), ownNames, plan).Read(watch);
    }
    env.EndReport(FileTitle(document.PathName()), "import");
    return result;
}

SpreadsheetResult ImportSpreadsheet(CResModel &document, const QString &path)
{
    SpreadsheetImport import(document, {path, path});
    SpreadsheetResult result = import.Read();
    if (result.code == 0 && !import.Plan().ChangesTable())
        result.reason = NothingImported();
    import.Plan().Apply();
    return result;
}
