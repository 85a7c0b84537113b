#include "UserBoxes.h"

#include "AboutBox.h"
#include "Boxes.h"
#include "ChannelTurn.h"
#include "WaitCursor.h"

#include <QFileDialog>
#include <QTimer>

/// While a box is open, commands of the channel wait.
class UserBoxes::ModalBox
{
public:
    explicit ModalBox(UserBoxes &userBoxes) : boxes(userBoxes)
    {
        if (boxes.openBoxes++ == 0 && boxes.pauseCommands)
            boxes.pauseCommands(true);
        if (QGuiApplication::overrideCursor())
            pointer.emplace(Qt::ArrowCursor); // the box waits for the user, whatever waits for the box
    }
    ~ModalBox()
    {
        if (--boxes.openBoxes > 0)
            return;
        if (boxes.pauseCommands)
            boxes.pauseCommands(false);
        if (!boxes.waiting.isEmpty())
            QTimer::singleShot(0, &boxes.window, [&waiter = boxes] { waiter.ShowWaiting(); });
    }
    ModalBox(const ModalBox &) = delete;
    ModalBox &operator=(const ModalBox &) = delete;

private:
    UserBoxes &boxes;
    std::optional<WaitCursor> pointer;
};

void UserBoxes::MessageBox(const QString &text)
{
    if (turn.IsOn())
        return MessageSoon(text);
    ++messages;
    Show(text);
}

void UserBoxes::MessageSoon(const QString &text)
{
    ++messages;
    waiting.append(text);
    QTimer::singleShot(0, &window, [this] { ShowWaiting(); });
}

void UserBoxes::ShowWaiting()
{
    if (turn.IsOn())
        return turn.AfterCommand([this] { ShowWaiting(); });
    while (openBoxes == 0 && !waiting.isEmpty())
        Show(waiting.takeFirst());
}

void UserBoxes::Show(const QString &text)
{
    const ModalBox box(*this);
    const QString reason = unseenOutput ? unseenOutput() : QString();
    (void)ShowBox(&window, QMessageBox::Warning, reason.isEmpty() ? text : text + QStringLiteral("\n\n") + reason);
}

void UserBoxes::Inform(const QString &text)
{
    const ModalBox box(*this);
    (void)ShowBox(&window, QMessageBox::Information, text);
}

bool UserBoxes::AskYesNo(const QString &question)
{
    if (turn.IsOn())
        return false;
    const ModalBox box(*this);
    return ShowBox(&window, QMessageBox::Question, question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No) ==
           QMessageBox::Yes;
}

Answer UserBoxes::AskYesNoCancel(const QString &question)
{
    if (turn.IsOn())
        return Answer::Cancel;
    const ModalBox box(*this);
    switch (ShowBox(&window, QMessageBox::Question, question, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
                    QMessageBox::Yes)) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    default:
        return Answer::Cancel;
    }
}

QStringList UserBoxes::OpenFileDialog(const QString &filter, int selectedFilter, bool multiSelect,
                                      const QString &initialName)
{
    if (turn.IsOn())
        return {};
    QStringList filters;
    const QStringList parts = filter.split(u'|', Qt::SkipEmptyParts);
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString patterns = parts[i + 1];
        filters.append(parts[i].section(QStringLiteral(" ("), 0, 0) + QStringLiteral(" (") +
                       patterns.replace(u';', u' ') + u')');
    }
    const ModalBox box(*this);
    QFileDialog dialog(&window, QStringLiteral("Open"));
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters.value(selectedFilter - 1));
    dialog.setFileMode(multiSelect ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    if (!initialName.isEmpty())
        dialog.selectFile(initialName);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles() : QStringList();
}

QString UserBoxes::ChooseProject(const QString &folder)
{
    const ModalBox box(*this);
    return QFileDialog::getOpenFileName(&window, QStringLiteral("Open"), folder,
                                        QStringLiteral("Project Files (*.vcproj)"));
}

void UserBoxes::ShowAbout()
{
    const ModalBox box(*this);
    ShowAboutBox(&window);
}
