// SPDX-License-Identifier: MIT
#include "UserBoxes.h"

#include "AboutBox.h"
#include "Boxes.h"
#include "ChannelTurn.h"
#include "FileFilters.h"
#include "HostFiles.h"
#include "WaitCursor.h"

#include <QApplication>
#include <QFileDialog>
#include <QTimer>

/// Makes commands of the channel wait for as long as it exists.
class UserBoxes::ModalBox
{
public:
    explicit ModalBox(UserBoxes &userBoxes) : boxes(userBoxes)
    {
        if (boxes.openBoxes++ == 0 && boxes.pauseCommands)
            boxes.pauseCommands(true);
        if (QGuiApplication::overrideCursor())
            pointer.emplace(Qt::ArrowCursor); // the box waits for the user, even during a long operation
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

/// The parent of a box: the open dialog if there is one, otherwise the window.
QWidget *UserBoxes::Parent() const
{
    QWidget *const open = QApplication::activeModalWidget();
    return open ? open : &window;
}

void UserBoxes::MessageBox(const QString &text)
{
    if (turn.IsOn())
        return ShowMessage(text);
    ++messages;
    Show(text);
}

void UserBoxes::ShowMessage(const QString &text, std::function<void()> then)
{
    ++messages;
    waiting.append({text, std::move(then)});
    QTimer::singleShot(0, &window, [this] { ShowWaiting(); });
}

void UserBoxes::ShowWaiting()
{
    if (turn.IsOn())
        return turn.AfterCommand([this] { ShowWaiting(); });
    while (openBoxes == 0 && !waiting.isEmpty()) {
        const Message message = waiting.takeFirst();
        Show(message.text);
        if (message.then)
            message.then();
    }
}

void UserBoxes::Show(const QString &text)
{
    const ModalBox box(*this);
    const QString reason = unseenOutput ? unseenOutput() : QString();
    (void)ShowBox(Parent(), QMessageBox::Warning, reason.isEmpty() ? text : text + QStringLiteral("\n\n") + reason);
}

void UserBoxes::Inform(const QString &text)
{
    const ModalBox box(*this);
    (void)ShowBox(Parent(), QMessageBox::Information, text);
}

bool UserBoxes::AskYesNo(const QString &question)
{
    if (turn.IsOn())
        return false;
    const ModalBox box(*this);
    return ShowBox(Parent(), QMessageBox::Question, question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No) ==
           QMessageBox::Yes;
}

bool UserBoxes::AskOkCancel(const QString &question)
{
    if (turn.IsOn())
        return false;
    const ModalBox box(*this);
    return ShowBox(Parent(), QMessageBox::Information, question, QMessageBox::Ok | QMessageBox::Cancel,
                   QMessageBox::Ok) == QMessageBox::Ok;
}

Answer UserBoxes::AskYesNoCancel(const QString &question)
{
    if (turn.IsOn())
        return Answer::Cancel;
    const ModalBox box(*this);
    switch (ShowBox(Parent(), QMessageBox::Question, question, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
                    QMessageBox::Yes)) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    default:
        return Answer::Cancel;
    }
}

bool UserBoxes::RunDialog(QDialog &dialog)
{
    if (turn.IsOn())
        return false;
    const ModalBox box(*this);
    return dialog.exec() == QDialog::Accepted;
}

namespace
{

/// Sets the file types of a dialog, and the chosen one. A name that is typed without an extension gets that of the
/// chosen type; in a dialog for opening, only if the type has a single extension.
void SetFilters(QFileDialog &dialog, const QList<FileFilter> &filters, int chosen)
{
    QStringList names;
    for (const FileFilter &filter : filters)
        names.append(filter.NameFilter());
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(names);
    dialog.selectNameFilter(names.value(chosen));
    const auto setSuffix = [&dialog](const FileFilter &filter) {
        const bool isSaving = dialog.acceptMode() == QFileDialog::AcceptSave;
        dialog.setDefaultSuffix(isSaving || filter.patterns.size() == 1 ? filter.Suffix() : QString());
    };
    setSuffix(filters.value(chosen));
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [filters, setSuffix](const QString &name) {
        for (const FileFilter &each : filters) { // a dialog of the desktop also passes the patterns
            if (name == each.name || name == each.NameFilter())
                setSuffix(each);
        }
    });
}

} // namespace

/// Runs a file dialog that begins at a file, which doesn't have to exist.
QStringList UserBoxes::Choose(QFileDialog &dialog, const QString &initialName)
{
    if (!initialName.isEmpty())
        dialog.selectFile(QString::fromUtf8(HostPath(initialName)));
    return RunDialog(dialog) ? dialog.selectedFiles() : QStringList();
}

QStringList UserBoxes::OpenFileDialog(const QString &filter, int selectedFilter, bool multiSelect,
                                      const QString &initialName)
{
    QFileDialog dialog(Parent(), QStringLiteral("Open"));
    SetFilters(dialog, ParseFileFilter(filter), selectedFilter - 1);
    dialog.setFileMode(multiSelect ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    return Choose(dialog, initialName);
}

QString UserBoxes::SaveFileDialog(const QString &filter, const QString &initialName)
{
    QFileDialog dialog(Parent(), QStringLiteral("Save As"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    SetFilters(dialog, ParseFileFilter(filter), 0);
    return Choose(dialog, initialName).value(0);
}

QString UserBoxes::ChooseProject(const QString &folder)
{
    const ModalBox box(*this);
    return QFileDialog::getOpenFileName(Parent(), QStringLiteral("Open"), folder,
                                        QStringLiteral("Project Files (*.vcproj)"));
}

void UserBoxes::ShowAbout()
{
    const ModalBox box(*this);
    ShowAboutBox(&window);
}
