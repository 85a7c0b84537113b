// SPDX-License-Identifier: MIT
#include "TextAssignment.h"

#include "Environment.h"

namespace
{

/// A string table that nobody sees.
class NoGrid : public IStringGrid
{
public:
    void ReportCellError(int /*code*/, int /*row*/, int /*col*/) override {}
    void ShowMessage(int /*code*/) override {}
};

} // namespace

AssignedTexts AssignTexts(CResModel &model, const QString &id, const std::vector<NewText> &texts)
{
    NoGrid grid;
    StringTable table(model, grid);
    table.Rebuild();
    AssignedTexts result;
    result.id = id;
    int row = table.RowOf(model.env.WideToNarrow(id), -1);
    if (row < 0) {
        result.id = ToUpperSimple(id);
        row = table.RowOf(model.env.WideToNarrow(result.id), -1);
    }
    if (row < 0) {
        row = table.RowCount();
        result.code = result.id.isEmpty() ? int(EDIT_INVALID_ID) : table.CreateRow(result.id, row);
        result.isNew = true;
    }
    for (const NewText &text : texts) {
        if (result.code != EDIT_DONE)
            break;
        const int column = table.ColumnOf(text.language);
        result.before.append(table.CellText(row, column));
        if (result.before.back() != text.text)
            result.code = table.ApplyCellEdit(row, column, text.text);
    }
    return result;
}
