// SPDX-License-Identifier: MIT
#include "NoticeText.h"

#include <QEvent>
#include <QTextLayout>

#include <cmath>

namespace
{

constexpr int MOST_LINES = 8;

} // namespace

NoticeText::NoticeText(QWidget *parent, int leastHeight) : QPlainTextEdit(parent), least(leastHeight)
{
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setLayoutDirection(Qt::LeftToRight); // the texts are English
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    document()->setDocumentMargin(0);
    viewport()->setAutoFillBackground(false);
    viewport()->setCursor(Qt::IBeamCursor);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    FitMargins();
}

int NoticeText::LineHeight() const
{
    return int(std::ceil(QFontMetricsF(font()).height()));
}

int NoticeText::Margin() const
{
    return qMax(0, (least - LineHeight()) / 2);
}

void NoticeText::FitMargins()
{
    setViewportMargins(0, Margin(), 0, Margin());
    updateGeometry();
}

int NoticeText::heightForWidth(int width) const
{
    int lines = 0;
    QTextOption option;
    option.setWrapMode(wordWrapMode());
    for (const QString &paragraph : toPlainText().split(u'\n')) {
        QTextLayout layout(paragraph, font());
        layout.setTextOption(option);
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(qMax(1, width));
            ++lines;
        }
        layout.endLayout();
    }
    return qMin(lines, MOST_LINES) * LineHeight() + 2 * Margin() + 1;
}

QSize NoticeText::sizeHint() const
{
    const int width = fontMetrics().averageCharWidth() * 60;
    return {width, heightForWidth(width)};
}

/// A small minimum: narrow windows wrap more, and only the layout's height for the width matters.
QSize NoticeText::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 10, fontMetrics().height()};
}

void NoticeText::changeEvent(QEvent *event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        FitMargins();
}
