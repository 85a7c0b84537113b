// SPDX-License-Identifier: MIT
#include "FilterChoice.h"

#include <QAbstractItemView>
#include <QScreen>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QWheelEvent>

namespace
{

constexpr int KEY_ROLE = Qt::UserRole + 1;
constexpr int USUAL_LETTERS = 12;
constexpr int LEAST_LETTERS = 3;
constexpr int MOST_LETTERS = 30;

} // namespace

FilterChoice::FilterChoice(const QString &name, const QString &closedPrefix, QWidget *parent)
    : QComboBox(parent), prefix(closedPrefix)
{
    setAccessibleName(name);
    setFocusPolicy(Qt::StrongFocus); // doesn't get the focus by the wheel
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setMaxVisibleItems(20);
    setMaximumWidth(SizeFor(MOST_LETTERS).width());
    connect(this, &QComboBox::currentTextChanged, this, [this] { setToolTip(WholeText()); });
}

void FilterChoice::SetEntries(const std::vector<Entry> &entries)
{
    const QSignalBlocker blocker(this);
    const QString chosen = currentData(KEY_ROLE).toString();
    while (count() > int(entries.size()))
        removeItem(count() - 1);
    int current = 0;
    for (int i = 0; i < int(entries.size()); ++i) {
        const Entry &entry = entries[size_t(i)];
        if (i == count())
            addItem(QString());
        if (itemText(i) != entry.text) // the change reaches the view, whose list may be open
            setItemText(i, entry.text);
        setItemData(i, entry.value);
        setItemData(i, entry.key, KEY_ROLE);
        if (entry.key == chosen)
            current = i;
    }
    setCurrentIndex(current);
    setToolTip(WholeText());
    update();
}

QString FilterChoice::WholeText() const
{
    return currentIndex() > 0 ? prefix + currentText() : currentText();
}

/// Makes the list as wide as its longest name, except for very long names.
void FilterChoice::showPopup()
{
    const int wanted = view()->sizeHintForColumn(0) + view()->verticalScrollBar()->sizeHint().width();
    view()->setMinimumWidth(qBound(width(), wanted, qMax(width(), screen()->availableSize().width() / 3)));
    view()->setTextElideMode(Qt::ElideRight);
    QComboBox::showPopup();
}

QSize FilterChoice::SizeFor(int letters) const
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QSize content(fontMetrics().averageCharWidth() * letters, fontMetrics().height());
    return style()->sizeFromContents(QStyle::CT_ComboBox, &option, content, this);
}

QSize FilterChoice::sizeHint() const
{
    return SizeFor(USUAL_LETTERS);
}

QSize FilterChoice::minimumSizeHint() const
{
    return SizeFor(LEAST_LETTERS);
}

void FilterChoice::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const int room = style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this).width();
    const bool hasRoom = fontMetrics().horizontalAdvance(WholeText()) <= room - 2;
    option.currentText = hasRoom ? WholeText() : fontMetrics().elidedText(currentText(), Qt::ElideRight, room - 2);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

void FilterChoice::wheelEvent(QWheelEvent *event)
{
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}
