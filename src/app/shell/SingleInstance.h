// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The command with which a second start of the program brings the window to the front. Its record is empty. It doesn't
/// wait.
inline constexpr quint32 COMMAND_SHOW = 0xAFBDDB00;

/// The answer of a window to it. A program that doesn't know the command answers 1.
inline constexpr quint32 WINDOW_SHOWN = 2;

/// The time that a start waits for a window that is running already.
inline constexpr int PATIENCE_MS = 4000;

/// The result of asking a running window to show itself.
enum class FirstInstance
{
    None,     ///< no window is running: continue
    Shown,    ///< the window has come to the front: end
    NoAnswer, ///< another process has the window's place and doesn't answer: end with `error`
};

/// Looks for a window that is running already and brings it to the front. Takes at most `milliseconds`.
[[nodiscard]] FirstInstance ShowFirstInstance(int milliseconds, QString &error);
