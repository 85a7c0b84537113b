// SPDX-License-Identifier: MIT
#include "FindingGrid.h"

#include <QKeyEvent>
#include <QPainter>

FindingGrid::FindingGrid(QWidget *parent) : CListGrid(parent)
{
    setAccessibleName(QStringLiteral("Findings"));
    connect(this, &QAbstractItemView::doubleClicked, this, [this] {
        if (entered)
            entered();
    });
}

void FindingGrid::ShowEmptyText(const QString &text)
{
    if (text == emptyText)
        return;
    emptyText = text;
    setAccessibleDescription(text);
    viewport()->update();
}

void FindingGrid::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isEnter || (event->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return CListGrid::keyPressEvent(event);
    if (currentIndex().isValid() && entered)
        entered();
}

void FindingGrid::paintEvent(QPaintEvent *event)
{
    CListGrid::paintEvent(event);
    if (!model() || model()->rowCount() > 0)
        return;
    QPainter painter(viewport());
    QColor color = palette().color(QPalette::Active, QPalette::Text);
    color.setAlphaF(0.65F);
    painter.setPen(color);
    painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, emptyText);
}
