#pragma once

#include "UserInterface.h"
#include "ViewBoxes.h"

class ChannelTurn;
class QFileDialog;
class QWidget;

/// The boxes and dialogs of the program. While one is open, commands of the channel wait; while a command runs none
/// opens, since there may be nobody to answer it.
class UserBoxes : public IUserInterface, public IViewBoxes
{
public:
    /// Both must outlive the boxes.
    UserBoxes(QWidget &mainWindow, ChannelTurn &channelTurn) : window(mainWindow), turn(channelTurn) {}

    /// Told to hold back commands of the channel while a box is open.
    std::function<void(bool pause)> pauseCommands;
    /// What a message adds to its text: the output that the user can't see, or nothing.
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

    /// Shows what the user has to know although nothing failed, and waits until it is read. Not while a command runs.
    void Inform(const QString &text);
    /// The path of the project that the user chooses; empty when none. It looks in `folder` first.
    [[nodiscard]] QString ChooseProject(const QString &folder);
    void ShowAbout();

    [[nodiscard]] bool IsAnyOpen() const { return openBoxes > 0; }
    /// A message is to be shown.
    [[nodiscard]] bool IsAnyWaiting() const { return !waiting.isEmpty(); }
    /// How many messages the user was shown, or is to be.
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
    QList<Message> waiting; // for the end of a command, of another box, or of what the caller does
    int openBoxes = 0;
    int messages = 0;
};
