// SPDX-License-Identifier: MIT
#include "RuleStrip.h"

#include "NoticeText.h"
#include "UiIcons.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QToolButton>

namespace
{

constexpr int ICON_SIDE = 16;
constexpr int BUTTON_SIDE = 22;
constexpr int MARGIN = 4;

} // namespace

RuleStrip::RuleStrip(QWidget *parent) : QWidget(parent), text(new NoticeText(this, BUTTON_SIDE))
{
    text->setAccessibleName(QStringLiteral("Rule"));
    auto *const close = new QToolButton(this);
    close->setIcon(MakeIcon(UiIcon::Close));
    close->setIconSize(QSize(ICON_SIDE, ICON_SIDE));
    close->setFixedSize(BUTTON_SIDE, BUTTON_SIDE);
    close->setAutoRaise(true);
    close->setFocusPolicy(Qt::TabFocus);
    close->setAccessibleName(QStringLiteral("Close the explanation"));
    close->setToolTip(QStringLiteral("Close (Escape)"));
    connect(close, &QToolButton::clicked, this, &QWidget::hide);
    auto *const line = new QHBoxLayout(this);
    line->setContentsMargins(2 * MARGIN, MARGIN, MARGIN, MARGIN);
    line->setSpacing(MARGIN);
    line->addWidget(text, 1);
    line->addWidget(close, 0, Qt::AlignTop);
    setAccessibleName(QStringLiteral("Explanation"));
    hide();
}

void RuleStrip::ShowText(const QString &explanation)
{
    if (text->toPlainText() == explanation)
        return;
    text->setPlainText(explanation);
    text->updateGeometry();
}

QString RuleStrip::Text() const
{
    return text->toPlainText();
}

/// Paints a line between the list and the strip.
void RuleStrip::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(QRect(0, 0, width(), 1), palette().color(QPalette::Mid));
}
