#pragma once

#include <QStringList>
#include <QToolButton>

#include <functional>
#include <vector>

class ColumnsMenu;

/// A button with a menu of the columns' names, in which the user hides columns and shows them again. The menu stays
/// open for several. The last column that is shown can't be hidden.
class ColumnsButton : public QToolButton
{
public:
    explicit ColumnsButton(QWidget *parent);

    void SetTitles(const QStringList &columnTitles);
    /// Which columns are hidden now, by number; those behind the end are shown.
    void SetHidden(const std::vector<bool> &hiddenColumns);

    /// The user asks for it. The caller tells by `SetHidden` when it is done.
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
