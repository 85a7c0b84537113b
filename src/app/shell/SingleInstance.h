#pragma once

#include <QString>

/// The command by which a second start has the window come to the front; its record is empty. It waits for nothing.
inline constexpr quint32 COMMAND_SHOW = 0xAFBDDB00;

/// What a window answers to it; who knows no such command answers 1.
inline constexpr quint32 WINDOW_SHOWN = 2;

/// How long a start waits for the window that runs already.
inline constexpr int PATIENCE_MS = 4000;

/// What became of asking a running window to show itself.
enum class FirstInstance
{
    None,     ///< nobody runs: go on
    Shown,    ///< it came to the front: end
    NoAnswer, ///< somebody holds the window's place and doesn't answer: end with `error`
};

/// Looks for a window that runs already and brings it to the front. Takes no more than `milliseconds`.
[[nodiscard]] FirstInstance ShowFirstInstance(int milliseconds, QString &error);
