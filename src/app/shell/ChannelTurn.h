#pragma once

#include <QObject>

#include <functional>
#include <vector>

/// The channel's turn with the program: while one of its commands runs, menus are closed, and what the user does is
/// dropped.
class ChannelTurn : public QObject
{
public:
    void Begin();
    void End();

    /// A command runs.
    [[nodiscard]] bool IsOn() const { return isOn; }
    /// Has something done as soon as no command runs.
    void AfterCommand(std::function<void()> action);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    static void LeaveMenus();

    bool isOn = false;
    Qt::MouseButtons dropped; // pressed during the command
    std::vector<std::function<void()>> waiting;
};
