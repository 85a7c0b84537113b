// SPDX-License-Identifier: MIT
#pragma once

#include <QTableView>

#include <functional>
#include <vector>

/// The list of rows and columns that all panes and dialogs of the program use. Whole rows are selected, a click on a
/// header sorts (the owner connects the header's `sectionClicked` for that), a column can have the width 0, and the
/// owner places controls over cells to edit them.
class CListGrid : public QTableView
{
public:
    explicit CListGrid(QWidget *parent = nullptr);

    /// The numbers of the selected rows, ascending.
    [[nodiscard]] std::vector<int> SelectedRows() const;
    /// Selects only this row, and gives its cell in that column the focus.
    void SelectAlone(int row, int col);
    /// Selects these rows (ascending) and no others. Doesn't scroll.
    void Select(const std::vector<int> &rows);

    /// The widths of the columns, beginning with column 0.
    [[nodiscard]] std::vector<int> Widths() const;
    /// The rectangle of all cells of a row in the viewport, including cells that are out of sight.
    [[nodiscard]] QRect RowRect(int row) const;
    /// Shows an arrow in the header: +n ascending in column n - 1, -n descending in it, 0 none.
    void ShowSort(int sortState);

    /// Sets the width and height of the icons in the cells, in pixels; 16 by default. Rows are as high as icon and text
    /// need.
    void SetIconSide(int side);

    /// Called when the user asks for a menu, with the mouse below the header or with a key.
    std::function<void(const QContextMenuEvent &event)> menuWanted;

    void keyboardSearch(const QString &search) override;

protected:
    void changeEvent(QEvent *event) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void FitRows();
};
