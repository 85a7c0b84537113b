#pragma once

#include "UserInterface.h"
#include "ViewHost.h"

#include <functional>

class ChannelTurn;
class QWidget;

/// The boxes and dialogs of the program. While one is open, commands of the channel wait; while a command runs none
/// opens, since there may be nobody to answer it: messages come after the command, questions are answered with No or
/// Cancel.
class UserBoxes : public IUserInterface
{
public:
    /// Both must outlive the boxes.
    UserBoxes(QWidget &mainWindow, ChannelTurn &channelTurn) : window(mainWindow), turn(channelTurn) {}

    /// Told to hold back commands of the channel while a box is open.
    std::function<void(bool pause)> pauseCommands;
    /// What a message adds to its text: the output that the user can't see, or nothing.
    std::function<QString()> unseenOutput;

    void MessageBox(const QString &text) override;
    /// The same when the caller is through with what it does.
    void MessageSoon(const QString &text);
    /// Shows what the user has to know although nothing failed, and waits until it is read. Not while a command runs.
    void Inform(const QString &text);
    QStringList OpenFileDialog(const QString &filter, int selectedFilter, bool multiSelect,
                               const QString &initialName) override;
    [[nodiscard]] bool AskYesNo(const QString &question);
    [[nodiscard]] Answer AskYesNoCancel(const QString &question);
    /// The path of the project that the user chooses; empty when none. It looks in `folder` first.
    [[nodiscard]] QString ChooseProject(const QString &folder);
    void ShowAbout();

    [[nodiscard]] bool IsAnyOpen() const { return openBoxes > 0; }
    /// How many messages the user was shown, or is to be.
    [[nodiscard]] int Messages() const { return messages; }

private:
    class ModalBox;

    void Show(const QString &text);
    void ShowWaiting();

    QWidget &window;
    ChannelTurn &turn;
    QStringList waiting; // messages for the end of a command, of another box, or of what the caller does
    int openBoxes = 0;
    int messages = 0;
};
