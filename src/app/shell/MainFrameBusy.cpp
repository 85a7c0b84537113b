// The main frame while a command of the channel runs.
#include "CMainFrame.h"
#include "CommandHandler.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QMouseEvent>
#include <QStatusBar>
#include <QTimer>

#include <utility>

CMainFrame::Busy::Busy(CMainFrame &mainFrame, quint32 command) : frame(mainFrame)
{
    frame.busyCommand = command;
    qApp->installEventFilter(this);
    while (QWidget *popup = QApplication::activePopupWidget()) {
        if (!popup->close())
            break;
    }
    (void)frame.TakeLabel();
    const QString what = command == COMMAND_LOAD   ? QStringLiteral("opening a project")
                         : command == COMMAND_SAVE ? QStringLiteral("saving a project")
                                                   : QStringLiteral("packing a project");
    frame.statusBar()->showMessage(QStringLiteral("The IDE's command is running: %1...").arg(what));
}

CMainFrame::Busy::~Busy()
{
    frame.statusBar()->clearMessage();
    frame.busyCommand = 0;
    frame.UpdateIndicators(); // the keys of the locks work all the same
    for (std::function<void()> &action : std::exchange(frame.afterCommand, {}))
        QTimer::singleShot(0, &frame, std::move(action));
}

bool CMainFrame::Busy::eventFilter(QObject *, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        dropped |= static_cast<QMouseEvent *>(event)->button();
        return true;
    case QEvent::MouseButtonRelease: // who was pressed before has to learn of it
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

void CMainFrame::AfterCommand(std::function<void()> action)
{
    if (busyCommand == 0)
        return action();
    afterCommand.push_back(std::move(action));
}

/// Takes the label that is being edited in a tree or a list, as leaving it does. False when it was refused, which the
/// user has been told.
bool CMainFrame::TakeLabel()
{
    const int before = messages;
    QWidget *const edit = FocusedEdit::Control();
    for (QWidget *widget = edit ? edit->parentWidget() : nullptr; widget; widget = widget->parentWidget()) {
        if (auto *const view = qobject_cast<QAbstractItemView *>(widget))
            view->setFocus();
    }
    return messages == before;
}

void CMainFrame::RunCommand(int command)
{
    if (busyCommand != 0)
        return;
    told.Clear();
    if (focusedEdit.StateOf(command) || TakeLabel())
        route.Run(command);
}
