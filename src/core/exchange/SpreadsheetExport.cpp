// SPDX-License-Identifier: MIT
#include "Environment.h"
#include "Paths.h"
#include "ResModel.h"
#include "Spreadsheet.h"
#include "StringFileFormat.h"
#include "Workbook.h"

#include <array>

using namespace StringFileFormat;

namespace
{

/// The string table as the rows of a sheet: two header rows, the strings, and a row with their number.
class TableSource : public ISheetSource
{
public:
    TableSource(const CResModel &model, const CResFolder &stringsFolder) : document(model), strings(stringsFolder)
    {
        const auto &folders = strings.subfolders;
        count = folders.empty() ? 0 : qint64(folders.front()->resources.Count());
        next = folders.empty() ? nullptr : folders.front()->resources.First();
        languages = QString::number(folders.empty() ? 0 : folders.size() - 1);
        total = QString::number(count);
    }

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

    void PutColumns()
    {
        cells = {ID_WORD, TYPE_WORD, DESCRIPTION_WORD};
        for (size_t n = 1; n < strings.subfolders.size(); ++n)
            cells.push_back(strings.subfolders[n]->title);
    }

    void PutString()
    {
        auto &head = static_cast<CStringRes &>(*next);
        id = document.env.NarrowToWide(head.Id()->name);
        cells = {id, head.Id()->push ? PUSH_WORD : NORMAL_WORD};
        for (const auto &folder : strings.subfolders) {
            const CStringRes *cell = head.FindLanguage(folder->index);
            cells.push_back(cell ? QStringView(cell->text) : QStringView());
        }
        next = next->NextInFolder();
    }

    const CResModel &document;
    const CResFolder &strings;
    qint64 count = 0;
    CBaseRes *next = nullptr; // rows are requested in order
    QString languages;
    QString total;
    QString id;
    std::vector<QStringView> cells;
};

} // namespace

SpreadsheetResult ExportSpreadsheet(CResModel &document, const QString &path)
{
    Environment &env = document.env;
    env.ResetCounts();
    SpreadsheetResult result;
    const CResFolder none;
    const CResFolder *strings = document.root.FindFolder(KIND_STRINGS, 2);
    TableSource source(document, strings ? *strings : none);
    const WorkbookResult written = WriteWorkbook(path, source);
    if (written.HasFailed()) {
        env.Report({"sheet.write-failed", Severity::Error, path, 0, {}, written.reason}, "failed to export to Excel.");
        result = {SHEET_FAILED, written.reason};
    }
    env.EndReport(FileTitle(document.PathName()), "export");
    return result;
}
