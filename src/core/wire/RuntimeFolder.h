// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// The socket of the main window. IDEs, a second instance and the command line find the program by it.
inline constexpr char WINDOW_SOCKET[] = "#QRK-MORVANITE-WNDCLASS#";
/// The socket of the report pipe. The sender of a command serves it.
inline constexpr char PIPE_SOCKET[] = "QRK_Morvanite_Pipe";

/// The folder of the user's sockets: $MORVANITE_RUNTIME_DIR, otherwise $XDG_RUNTIME_DIR/morvanite, otherwise
/// /tmp/morvanite-UID. $XDG_RUNTIME_DIR is ignored if it doesn't exist or belongs to another user, as after su. The
/// folder is made with mode 0700 if it doesn't exist. The result is empty, and `error` says why, if the folder can't be
/// made, is a symbolic link, belongs to another user, or can be written by others.
[[nodiscard]] std::string EnsureRuntimeFolder(std::string &error);

/// The path of a socket in that folder. Empty, and `error` says why, if there is no such folder or the path is longer
/// than the 107 bytes of a socket address.
[[nodiscard]] std::string SocketPath(const std::string &name, std::string &error);
