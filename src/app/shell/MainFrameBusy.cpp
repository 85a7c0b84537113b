// The main frame while a command of the channel runs.
#include "CMainFrame.h"
#include "CommandHandler.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QStatusBar>
#include <QTimer>

#include <utility>

CMainFrame::Busy::Busy(CMainFrame &mainFrame, quint32 command) : frame(mainFrame)
{
    frame.busyCommand = command;
    const QString what = command == COMMAND_LOAD   ? QStringLiteral("opening a project")
                         : command == COMMAND_SAVE ? QStringLiteral("saving a project")
                         : command == COMMAND_PACK ? QStringLiteral("packing a project")
                                                   : QStringLiteral("an unknown one");
    frame.statusBar()->showMessage(QStringLiteral("The IDE's command is running: %1...").arg(what));
    qApp->installEventFilter(this);
}

CMainFrame::Busy::~Busy()
{
    frame.statusBar()->clearMessage();
    frame.busyCommand = 0;
    for (std::function<void()> &action : std::exchange(frame.afterCommand, {}))
        QTimer::singleShot(0, &frame, std::move(action));
}

bool CMainFrame::Busy::eventFilter(QObject *, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
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

void CMainFrame::EndInput()
{
    while (QWidget *popup = QApplication::activePopupWidget()) {
        if (!popup->close())
            break;
    }
    TakeLabel();
}

/// Takes the label that is being edited in a tree or a list, as leaving it does.
void CMainFrame::TakeLabel()
{
    QWidget *const edit = FocusedEdit::Control();
    for (QWidget *widget = edit ? edit->parentWidget() : nullptr; widget; widget = widget->parentWidget()) {
        if (auto *const view = qobject_cast<QAbstractItemView *>(widget))
            return view->setFocus();
    }
}

void CMainFrame::RunCommand(int command)
{
    if (busyCommand != 0)
        return;
    told.clear();
    if (!focusedEdit.StateOf(command))
        TakeLabel();
    route.Run(command);
}
