// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <string>
#include <vector>

/// How a run of git ended.
struct GitEnd
{
    int startError = 0; ///< the system's error number if it couldn't be started
    int status = -1;    ///< its exit status; -1 if it has none
    QByteArray output;  ///< what it wrote to standard output
};

/// Runs git, found by PATH, in the current folder and waits for its end. Its standard input is empty, and its standard
/// error is this program's.
[[nodiscard]] GitEnd RunGit(const std::vector<std::string> &arguments);
