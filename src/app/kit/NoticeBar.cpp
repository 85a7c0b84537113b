// SPDX-License-Identifier: MIT
#include "NoticeBar.h"

#include "NoticeText.h"
#include "UiIcons.h"

#include <QAccessible>
#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QToolButton>

namespace
{

constexpr int ICON_SIDE = 16;
constexpr int BUTTON_SIDE = 22;
constexpr int MARGIN = 4;

} // namespace

NoticeBar::NoticeBar(QWidget *parent)
    : QWidget(parent), text(new NoticeText(this, BUTTON_SIDE)), place(new QLabel(this)), close(new QToolButton(this))
{
    auto *const icon = new QLabel(this);
    icon->setPixmap(MakeIcon(UiIcon::About).pixmap(QSize(ICON_SIDE, ICON_SIDE), devicePixelRatioF()));
    text->setAccessibleName(QStringLiteral("Notice"));
    close->setIcon(MakeIcon(UiIcon::Close));
    close->setIconSize(QSize(ICON_SIDE, ICON_SIDE));
    close->setFixedSize(BUTTON_SIDE, BUTTON_SIDE);
    close->setAutoRaise(true);
    close->setFocusPolicy(Qt::StrongFocus);
    close->setAccessibleName(QStringLiteral("Dismiss"));
    close->setToolTip(QStringLiteral("Dismiss this notice (Escape)"));
    connect(close, &QToolButton::clicked, this, [this] { Dismiss(); });

    auto *const row = new QHBoxLayout(this);
    row->setContentsMargins(2 * MARGIN, MARGIN, MARGIN, MARGIN + 1);
    row->setSpacing(2 * MARGIN);
    for (QLabel *label : {icon, place})
        label->setFixedHeight(BUTTON_SIDE);
    row->addWidget(icon, 0, Qt::AlignTop);
    row->addWidget(text, 1);
    row->addWidget(place, 0, Qt::AlignTop);
    row->addWidget(close, 0, Qt::AlignTop);
    setFocusProxy(text);
    setAccessibleName(QStringLiteral("Notices"));
    hide();
}

void NoticeBar::Add(const QString &added)
{
    notices.Add(added);
    ShowNotice();
}

void NoticeBar::Dismiss()
{
    notices.Dismiss();
    ShowNotice();
}

void NoticeBar::ShowNotice()
{
    place->setText(notices.Place());
    place->setVisible(!notices.Place().isEmpty());
    const QString shown = notices.Shown();
    if (shown.isEmpty()) {
        if (isAncestorOf(QApplication::focusWidget()) && leavesFocus)
            leavesFocus(); // before Qt gives the focus to the next widget in the tab order
        return hide();
    }
    if (text->toPlainText() != shown || isHidden()) {
        text->setPlainText(shown);
        text->updateGeometry();
        layout()->activate(); // so that the content below the bar moves in one step
        show();
        QAccessibleEvent alert(this, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }
}

void NoticeBar::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier)
        return Dismiss();
    QWidget::keyPressEvent(event);
}

/// Paints a tint of the desktop's selection colour, with a line between the bar and the content below it.
void NoticeBar::paintEvent(QPaintEvent *)
{
    constexpr float TINT = 0.14F;
    constexpr float EDGE = 0.5F;
    QPainter painter(this);
    QColor color = palette().color(QPalette::Highlight);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    color.setAlphaF(TINT);
    painter.fillRect(rect(), color);
    color.setAlphaF(EDGE);
    painter.fillRect(QRect(0, height() - 1, width(), 1), color);
}
