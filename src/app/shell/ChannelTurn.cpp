// SPDX-License-Identifier: MIT
#include "ChannelTurn.h"

#include <QApplication>
#include <QMenuBar>
#include <QMouseEvent>
#include <QTimer>
#include <QWidget>

#include <utility>

void ChannelTurn::Begin()
{
    isOn = true;
    dropped = {};
    while (QWidget *popup = QApplication::activePopupWidget()) {
        if (!popup->close())
            break;
    }
    LeaveMenus();
    qApp->installEventFilter(this);
}

/// Sends Escape to menu bars: a menu bar whose menu was opened by a key keeps the keyboard focus after the menu has
/// been closed, and Escape makes it return the focus.
void ChannelTurn::LeaveMenus()
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        auto *const menus = qobject_cast<QMenuBar *>(window->focusWidget());
        if (!menus)
            continue;
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(menus, &escape);
    }
}

void ChannelTurn::End()
{
    qApp->removeEventFilter(this);
    isOn = false;
    // Later, because the caller of the command is still waiting. The next command may be running by then.
    for (std::function<void()> &action : std::exchange(waiting, {}))
        QTimer::singleShot(0, this, [this, action = std::move(action)] { AfterCommand(action); });
}

void ChannelTurn::AfterCommand(std::function<void()> action)
{
    if (!isOn)
        return action();
    waiting.push_back(std::move(action));
}

bool ChannelTurn::eventFilter(QObject *, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        dropped |= static_cast<QMouseEvent *>(event)->button();
        return true;
    case QEvent::MouseButtonRelease: // a widget that was pressed before the command must get it
        return dropped & static_cast<QMouseEvent *>(event)->button();
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
        return true;
    default:
        return false;
    }
}
