#pragma once

#include <QTableView>

#include <functional>
#include <vector>

/// A list of rows and columns as all panes and dialogs of the program have it: whole rows are selected, a click on a
/// header sorts (the owner connects `sectionClicked` of the header to that), a column can have the width 0, and cells
/// are edited by controls that the owner places over them.
class CListGrid : public QTableView
{
public:
    explicit CListGrid(QWidget *parent = nullptr);

    /// The numbers of the selected rows, ascending.
    [[nodiscard]] std::vector<int> SelectedRows() const;
    /// Selects a row alone and gives its cell in that column the focus.
    void SelectAlone(int row, int col);
    /// Selects these rows (ascending) and no others. Scrolls nothing.
    void Select(const std::vector<int> &rows);

    /// The width of each column, that of column 0 first.
    [[nodiscard]] std::vector<int> Widths() const;
    /// The place of all cells of a row in the viewport, those out of sight too.
    [[nodiscard]] QRect RowRect(int row) const;
    /// Shows an arrow in the header: +n ascending in column n - 1, -n descending in it, 0 none.
    void ShowSort(int sortState);

    /// The side of the icons in the cells, in pixels: 16 at first. Rows are as high as icon and text need.
    void SetIconSide(int side);

    /// Asked for a menu: by the mouse at a place of the list below its header, or by a key.
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
