// SPDX-License-Identifier: MIT
#include "Environment.h"
#include "IdNames.h"
#include "LackingSource.h"
#include "Paths.h"
#include "ResModel.h"
#include "Spreadsheet.h"
#include "StringFileFormat.h"
#include "Workbook.h"

#include <algorithm>

using namespace StringFileFormat;

namespace
{

/// The string table as the rows of a sheet: two header rows, the strings, and a row with their number.
class TableSource : public ISheetSource
{
public:
    /// `extension` is the format.
    TableSource(const CResModel &model, const CResFolder &strings, const SpreadsheetChoice &exportChoice,
                const QString &extension)
        : document(model), choice(exportChoice), keepsHalfPairs(EqualsNoCase(extension, u"xls")),
          keepsNulls(!EqualsNoCase(extension, u"csv"))
    {
        for (const auto &folder : strings.subfolders) {
            if (folders.empty() || IsChosen(folder->index))
                folders.push_back(folder.get());
        }
        next = folders.empty() ? nullptr : FirstFrom(folders.front()->resources.First());
        for (CBaseRes *row = next; row; row = FirstFrom(row->NextInFolder()))
            ++count;
        CountLacking();
        languages = QString::number(folders.empty() ? 0 : folders.size() - 1);
        total = QString::number(count);
    }

    /// The rows that are left out because they lack a text to translate.
    [[nodiscard]] int Lacking() const { return lacking; }

    qint64 RowCount() const override { return HEADER_ROWS + count + 1; }
    int ColumnCount() const override { return FIXED_COLUMNS + languages.toInt(); }

    std::span<const QStringView> Row(qint64 row) override
    {
        cells.clear();
        if (row == 0)
            cells = {COUNT_WORD, languages};
        else if (row == 1)
            PutColumns();
        else if (row < HEADER_ROWS + count)
            PutString();
        else
            cells = {END_WORD, total};
        return cells;
    }

private:
    static constexpr int HEADER_ROWS = 2;
    static constexpr int FIXED_COLUMNS = 3;

    [[nodiscard]] bool IsChosen(qint32 language) const
    {
        const auto &chosen = choice.languages;
        return chosen.empty() || std::find(chosen.begin(), chosen.end(), language) != chosen.end();
    }

    /// Returns the first row to export from `row` on.
    [[nodiscard]] CBaseRes *FirstFrom(CBaseRes *row) const
    {
        while (row && choice.onlyMissing && !LacksText(static_cast<CStringRes &>(*row)))
            row = row->NextInFolder();
        return row;
    }

    static bool HasText(CStringRes &head, qint32 language)
    {
        const CStringRes *const cell = head.FindLanguage(language);
        return cell && cell->HasText();
    }

    [[nodiscard]] bool LacksText(CStringRes &head) const
    {
        return HasText(head, choice.source) &&
               !std::all_of(folders.begin() + 1, folders.end(),
                            [&](const CResFolder *folder) { return HasText(head, folder->index); });
    }

    void CountLacking()
    {
        CBaseRes *row = choice.onlyMissing && !folders.empty() ? folders.front()->resources.First() : nullptr;
        for (; row; row = row->NextInFolder())
            lacking += HasText(static_cast<CStringRes &>(*row), choice.source) ? 0 : 1;
    }

    void PutColumns()
    {
        cells = {ID_WORD, TYPE_WORD, DESCRIPTION_WORD};
        for (size_t n = 1; n < folders.size(); ++n)
            cells.push_back(folders[n]->title);
    }

    void PutString()
    {
        auto &head = static_cast<CStringRes &>(*next);
        id = document.env.NarrowToWide(head.Id()->name);
        cells = {id, head.Id()->push ? PUSH_WORD : NORMAL_WORD};
        for (const CResFolder *folder : folders) {
            const CStringRes *cell = head.FindLanguage(folder->index);
            cells.push_back(cell ? cell->Text() : QStringView());
            if (!Keeps(cells.back()))
                TellChanged(folder->index == DESCRIPTION ? DESCRIPTION_WORD.toString() : folder->title);
        }
        next = FirstFrom(next->NextInFolder());
    }

    /// Returns whether the format has all characters of a text.
    [[nodiscard]] bool Keeps(QStringView text) const
    {
        return (keepsHalfPairs || text.isValidUtf16()) && (keepsNulls || !text.contains(u'\0'));
    }

    /// Warns about the text of the present row in a language.
    void TellChanged(const QString &language) const
    {
        document.env.Report({"export.text-changed", Severity::Warning, {}, 0, id, {}},
                            "the text of %s in %s is written with U+FFFD, since it has characters that the format "
                            "can't have.",
                            Shown(id).constData(), Shown(language).constData());
    }

    const CResModel &document;
    const SpreadsheetChoice &choice;
    const bool keepsHalfPairs;               // of surrogates
    const bool keepsNulls;                   // U+0000
    std::vector<const CResFolder *> folders; // the Description, and the languages to export
    qint64 count = 0;
    int lacking = 0;
    CBaseRes *next = nullptr; // rows are requested in order
    QString languages;
    QString total;
    QString id;
    std::vector<QStringView> cells;
};

} // namespace

SpreadsheetResult ExportSpreadsheet(CResModel &document, const QString &path, const SpreadsheetChoice &choice)
{
    Environment &env = document.env;
    env.ResetCounts();
    env.LimitWarnings();
    SpreadsheetResult result;
    const CResFolder none;
    const CResFolder *strings = document.root.FindFolder(KIND_STRINGS, 2);
    TableSource source(document, strings ? *strings : none, choice, FileExtension(path));
    if (const CResFolder *const from = strings ? strings->FindFolder(KIND_LANGUAGE, choice.source, 1) : nullptr)
        ReportLackingSource(env, source.Lacking(), from->title);
    const WorkbookResult written = WriteWorkbook(path, source);
    if (written.HasFailed()) {
        env.Report({"sheet.write-failed", Severity::Error, path, 0, {}, written.reason}, "failed to export to Excel.");
        result = {SHEET_FAILED, written.reason};
    }
    env.EndReport(FileTitle(document.PathName()), "export");
    return result;
}
