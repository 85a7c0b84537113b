// SPDX-License-Identifier: MIT
#include "StatusPane.h"

#include "CResDoc.h"

#include <QPainter>
#include <QStyle>

namespace
{

constexpr int GAP = 24; // pixels between path and counts
constexpr int EDGE = 4;

/// A path in which folders with right-to-left names keep their order.
QString InOrder(QString path)
{
    return path.replace(u'/', QStringLiteral("/\u200E"));
}

} // namespace

StatusPane::StatusPane(QWidget *parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

void StatusPane::Show(const CResDoc *document)
{
    const QString nowPath = document ? document->PathName() : QString();
    const auto nowCounts = document ? std::optional(CountResources(document->root)) : std::nullopt;
    if (nowPath == path && nowCounts == counts)
        return;
    path = nowPath;
    counts = nowCounts;
    setAccessibleName(counts ? QStringLiteral("%1, %2").arg(path, SummaryOf(*counts)) : QString());
    ShowToolTip();
    update();
}

QSize StatusPane::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 40, fontMetrics().height() + 2};
}

int StatusPane::WidthBeside(const QString &text) const
{
    return qMax(0, width() - 2 * EDGE - GAP - fontMetrics().horizontalAdvance(text));
}

bool StatusPane::HasRoom() const
{
    return !counts || fontMetrics().horizontalAdvance(InOrder(path)) <= WidthBeside(SummaryOf(*counts));
}

QString StatusPane::Summary() const
{
    if (!counts)
        return {};
    return HasRoom() ? SummaryOf(*counts) : ShortSummaryOf(*counts);
}

void StatusPane::ShowToolTip()
{
    setToolTip(HasRoom() ? QString() : path + u'\n' + SummaryOf(*counts));
}

void StatusPane::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    ShowToolTip();
}

void StatusPane::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    const QRect all = rect().adjusted(EDGE, 0, -EDGE, 0);
    const bool isRightToLeft = layoutDirection() == Qt::RightToLeft;
    const int leading = isRightToLeft ? Qt::AlignRight : Qt::AlignLeft;
    const int trailing = isRightToLeft ? Qt::AlignLeft : Qt::AlignRight;
    const QString summary = Summary();
    const QString shown = fontMetrics().elidedText(InOrder(path), Qt::ElideMiddle, WidthBeside(summary));
    painter.setLayoutDirection(Qt::LeftToRight); // for a path, whatever its names are
    painter.drawText(all, leading | Qt::AlignVCenter | Qt::TextSingleLine, shown);
    painter.drawText(all, trailing | Qt::AlignVCenter | Qt::TextSingleLine, summary);
}
