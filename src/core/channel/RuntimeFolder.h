#pragma once

#include <QByteArray>
#include <QString>

/// The socket that stands for the main window: IDEs, a second instance and the command line find the program by it.
inline constexpr char WINDOW_SOCKET[] = "#QRK-MORVANITE-WNDCLASS#";
/// The socket of the report pipe. Whoever sends a command serves it.
inline constexpr char PIPE_SOCKET[] = "QRK_Morvanite_Pipe";

/// The folder of the user's sockets: $MORVANITE_RUNTIME_DIR, else $XDG_RUNTIME_DIR/morvanite, else /tmp/morvanite-UID.
/// $XDG_RUNTIME_DIR doesn't count when it isn't there or belongs to another user, as after su.
/// Made with mode 0700 when it isn't there. Empty, and `error` says why, when it can't be made, isn't a folder of its
/// own (no symbolic link), belongs to another user, or can be written to by others.
[[nodiscard]] QByteArray EnsureRuntimeFolder(QString &error);

/// The path of a socket in that folder. Empty, and `error` says why, when there is no such folder or the path is longer
/// than the 107 bytes that a socket address has room for.
[[nodiscard]] QByteArray SocketPath(const char *name, QString &error);
