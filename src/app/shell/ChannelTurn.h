// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>
#include <vector>

/// Gives the channel control of the program while one of its commands runs: menus are closed, and user input is
/// discarded.
class ChannelTurn : public QObject
{
public:
    void Begin();
    void End();

    /// Returns whether a command is running.
    [[nodiscard]] bool IsOn() const { return isOn; }
    /// Calls a function once no command is running.
    void AfterCommand(std::function<void()> action);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    static void LeaveMenus();

    bool isOn = false;
    Qt::MouseButtons dropped; // buttons that were pressed during the command
    std::vector<std::function<void()>> waiting;
};
