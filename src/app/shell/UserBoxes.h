// SPDX-License-Identifier: MIT
#pragma once

#include "UserInterface.h"
#include "ViewBoxes.h"

class ChannelTurn;
class QFileDialog;
class QWidget;

/// The message boxes and dialogs of the program. While one is open, commands of the channel wait. While a command runs,
/// none opens, because there may be no user to answer it.
class UserBoxes : public IUserInterface, public IViewBoxes
{
public:
    /// Both arguments must outlive this object.
    UserBoxes(QWidget &mainWindow, ChannelTurn &channelTurn) : window(mainWindow), turn(channelTurn) {}

    /// Called to pause the commands of the channel while a box is open.
    std::function<void(bool pause)> pauseCommands;
    /// Returns a text to append to a message: the output that the user can't see, or nothing.
    std::function<QString()> unseenOutput;

    // IUserInterface
    void MessageBox(const QString &text) override;
    QStringList OpenFileDialog(const QString &filter, int selectedFilter, bool multiSelect,
                               const QString &initialName) override;
    // IViewBoxes
    [[nodiscard]] bool AskYesNo(const QString &question) override;
    [[nodiscard]] Answer AskYesNoCancel(const QString &question) override;
    [[nodiscard]] bool AskOkCancel(const QString &question) override;
    void ShowMessage(const QString &text, std::function<void()> then = nullptr) override;
    [[nodiscard]] QString SaveFileDialog(const QString &filter, const QString &initialName) override;
    [[nodiscard]] bool RunDialog(QDialog &dialog) override;

    /// Shows information that isn't an error, and waits until the user closes the box. Must not be called while a
    /// command runs.
    void Inform(const QString &text);
    /// Lets the user choose a project, beginning in `folder`. Returns its path; empty if the user cancels.
    [[nodiscard]] QString ChooseProject(const QString &folder);
    void ShowAbout();

    [[nodiscard]] bool IsAnyOpen() const { return openBoxes > 0; }
    /// Returns whether a message is waiting to be shown.
    [[nodiscard]] bool IsAnyWaiting() const { return !waiting.isEmpty(); }
    /// The number of messages that were shown or are waiting.
    [[nodiscard]] int Messages() const { return messages; }

private:
    class ModalBox;
    struct Message
    {
        QString text;
        std::function<void()> then;
    };

    void Show(const QString &text);
    void ShowWaiting();
    [[nodiscard]] QWidget *Parent() const;
    [[nodiscard]] QStringList Choose(QFileDialog &dialog, const QString &initialName);

    QWidget &window;
    ChannelTurn &turn;
    QList<Message> waiting; // messages that wait for the end of a command, of another box, or of the caller's operation
    int openBoxes = 0;
    int messages = 0;
};
