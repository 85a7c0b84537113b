// SPDX-License-Identifier: MIT
#include "ColumnsButton.h"

#include <QKeyEvent>
#include <QMenu>
#include <QStyleOptionToolButton>
#include <QStylePainter>

namespace
{

constexpr int ARROW_SIDE = 8;

} // namespace

/// A menu that stays open when the user chooses a checkable entry with a click or Space.
class ColumnsMenu : public QMenu
{
public:
    using QMenu::QMenu;

protected:
    void mouseReleaseEvent(QMouseEvent *event) override
    {
        if (!Turn(actionAt(event->position().toPoint())))
            QMenu::mouseReleaseEvent(event);
    }
    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->key() != Qt::Key_Space || !Turn(activeAction()))
            QMenu::keyPressEvent(event);
    }

private:
    static bool Turn(QAction *action)
    {
        if (!action || !action->isCheckable())
            return false;
        action->trigger(); // does nothing for a disabled entry
        return true;
    }
};

ColumnsButton::ColumnsButton(QWidget *parent) : QToolButton(parent), menu(new ColumnsMenu(this))
{
    setText(QStringLiteral("Columns"));
    setPopupMode(InstantPopup);
    setToolButtonStyle(Qt::ToolButtonTextOnly);
    setFocusPolicy(Qt::StrongFocus);
    setToolTip(QStringLiteral("Show and hide columns"));
    setMenu(menu);
    connect(menu, &QMenu::aboutToShow, this, [this] { Fill(); });
    connect(menu, &QMenu::triggered, this, [this](const QAction *action) {
        if (hideColumn && action->isCheckable())
            hideColumn(action->data().toInt(), !action->isChecked());
    });
}

QSize ColumnsButton::sizeHint() const
{
    return QToolButton::sizeHint() + QSize(ARROW_SIDE, 0);
}

/// Draws a tool button with an arrow beside the text; the style would draw it over the text.
void ColumnsButton::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    option.features = QStyleOptionToolButton::None;
    option.text.clear();
    painter.drawComplexControl(QStyle::CC_ToolButton, option);
    const QRect arrow(width() - ARROW_SIDE - 5, (height() - ARROW_SIDE) / 2 + 1, ARROW_SIDE, ARROW_SIDE);
    painter.drawItemText(QStyle::visualRect(layoutDirection(), rect(), QRect(0, 0, arrow.left(), height())),
                         Qt::AlignCenter, palette(), isEnabled(), text(), QPalette::ButtonText);
    option.rect = QStyle::visualRect(layoutDirection(), rect(), arrow);
    painter.drawPrimitive(QStyle::PE_IndicatorArrowDown, option);
}

bool ColumnsButton::IsHidden(int column) const
{
    return size_t(column) < hidden.size() && hidden[size_t(column)];
}

void ColumnsButton::SetTitles(const QStringList &columnTitles)
{
    titles = columnTitles;
    if (menu->isVisible())
        Fill();
}

void ColumnsButton::SetHidden(const std::vector<bool> &hiddenColumns)
{
    hidden = hiddenColumns;
    if (menu->isVisible())
        Fill();
}

/// Changes the existing entries instead of replacing them, because one of them may just have been chosen.
void ColumnsButton::Fill()
{
    constexpr int MOST_LETTERS = 40;
    const int widest = fontMetrics().averageCharWidth() * MOST_LETTERS;
    while (menu->actions().size() > titles.size())
        delete menu->actions().last();
    int shown = 0;
    for (int column = 0; column < int(titles.size()); ++column) {
        if (column == menu->actions().size())
            menu->addAction(QString())->setCheckable(true);
        QAction *const action = menu->actions()[column];
        action->setText(
            fontMetrics().elidedText(titles[column], Qt::ElideRight, widest).replace(u'&', QStringLiteral("&&")));
        action->setData(column);
        action->setChecked(!IsHidden(column));
        shown += IsHidden(column) ? 0 : 1;
    }
    for (QAction *action : menu->actions())
        action->setEnabled(!action->isChecked() || shown > 1);
}
