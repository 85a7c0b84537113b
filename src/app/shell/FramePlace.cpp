// SPDX-License-Identifier: MIT
#include "FramePlace.h"

#include "FrameState.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QTimer>
#include <QWidget>
#include <QWindow>

namespace
{

constexpr QMargins USUAL_FRAME(4, 32, 4, 4);
constexpr QSize FIRST_SIZE(1000, 700);

} // namespace

FramePlace::FramePlace(QWidget &placedWindow) : window(placedWindow)
{
    window.installEventFilter(this);
}

void FramePlace::SetSmallest(const QSize &size)
{
    smallest = size;
    isPlacing = true; // the frame isn't known yet
    ApplySmallest(USUAL_FRAME);
}

void FramePlace::ApplySmallest(const QMargins &frame)
{
    if (!smallest.isEmpty())
        window.setMinimumSize(QRect(QPoint(), smallest).marginsRemoved(frame).size());
}

void FramePlace::PutAt(const QRect &position)
{
    wanted = position;
    isPlacing = true;
    window.resize(position.marginsRemoved(USUAL_FRAME).size());
    window.move(position.topLeft()); // move() includes the frame
}

void FramePlace::FitOntoScreen(const QSize &size)
{
    wanted.reset();
    isPlacing = true;
    const QScreen *const screen = window.screen();
    window.resize(screen ? size.boundedTo(screen->availableGeometry().marginsRemoved(USUAL_FRAME).size()) : size);
}

void FramePlace::Restore(const Settings &settings)
{
    const FrameState state = FrameState::Read(settings);
    QList<QRect> screens;
    for (const QScreen *each : QGuiApplication::screens())
        screens.append(each->availableGeometry());
    if (state.position)
        PutAt(BroughtBack(*state.position, screens));
    else
        FitOntoScreen(FIRST_SIZE);
    if (state.maximized)
        window.setWindowState(Qt::WindowMaximized);
}

QList<ProfileEntry> FramePlace::State() const
{
    if (window.isMinimized())
        return {};
    const QString section = QStringLiteral("Frame");
    QList<ProfileEntry> entries = {{section, QStringLiteral("maximized"), QString::number(int(window.isMaximized()))}};
    if (!window.isMaximized())
        entries.append({section, QStringLiteral("position"), PositionText(Position())});
    return entries;
}

QRect FramePlace::Position() const
{
    const QWindow *const handle = window.windowHandle();
    return handle ? window.geometry().marginsAdded(handle->frameMargins()) : window.frameGeometry();
}

bool FramePlace::eventFilter(QObject *watched, QEvent *event)
{
    if (isPlacing) {
        if (event->type() == QEvent::Show && watched == &window)
            window.windowHandle()->installEventFilter(this);
        else if (event->type() == QEvent::Expose || event->type() == QEvent::WindowStateChange)
            QTimer::singleShot(0, this, [this] { Correct(); });
    }
    return QObject::eventFilter(watched, event);
}

void FramePlace::Correct()
{
    const QWindow *const handle = window.windowHandle();
    const bool isNormal = !(window.windowState() & (Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen));
    if (!isPlacing || !isNormal || !handle || !handle->isExposed())
        return;
    isPlacing = false;
    const QRect whole = Position();
    ApplySmallest(handle->frameMargins());
    const QScreen *const screen = window.screen();
    const QRect position = wanted ? *wanted : screen ? FittedInto(whole, screen->availableGeometry()) : whole;
    const QRect inner = position.marginsRemoved(handle->frameMargins());
    if (inner != window.geometry())
        window.setGeometry(inner);
}
