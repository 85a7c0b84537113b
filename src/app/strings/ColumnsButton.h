// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <QToolButton>

#include <functional>
#include <vector>

class ColumnsMenu;

/// A button with a menu of the columns' names, in which the user hides and shows columns. The menu stays open, so that
/// several columns can be chosen. The last visible column can't be hidden.
class ColumnsButton : public QToolButton
{
public:
    explicit ColumnsButton(QWidget *parent);

    void SetTitles(const QStringList &columnTitles);
    /// Sets which columns are hidden, by number. Columns beyond the end of the list are shown.
    void SetHidden(const std::vector<bool> &hiddenColumns);

    /// Called when the user hides or shows a column. The owner confirms the change with `SetHidden`.
    std::function<void(int column, bool hide)> hideColumn;

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    [[nodiscard]] bool IsHidden(int column) const;
    void Fill();

    QStringList titles;
    std::vector<bool> hidden;
    ColumnsMenu *menu;
};
