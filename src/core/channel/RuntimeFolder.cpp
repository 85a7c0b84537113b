// SPDX-License-Identifier: MIT
#include "RuntimeFolder.h"

#include <cerrno>
#include <cstring>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{

constexpr qsizetype SOCKET_PATH_LIMIT = qsizetype(sizeof(sockaddr_un::sun_path)) - 1;

constexpr mode_t WRITABLE_BY_OTHERS = S_IWGRP | S_IWOTH;

/// Returns false for the session folder of the user who called su or sudo, and for a folder that no longer exists.
bool IsOwnFolder(const QByteArray &path)
{
    struct stat info;
    return stat(path.constData(), &info) == 0 && S_ISDIR(info.st_mode) && info.st_uid == geteuid();
}

QByteArray ChosenFolder()
{
    const QByteArray chosen = qgetenv("MORVANITE_RUNTIME_DIR");
    if (!chosen.isEmpty())
        return chosen;
    const QByteArray session = qgetenv("XDG_RUNTIME_DIR");
    if (session.startsWith('/') && IsOwnFolder(session))
        return session + "/morvanite";
    return "/tmp/morvanite-" + QByteArray::number(geteuid());
}

} // namespace

QByteArray EnsureRuntimeFolder(QString &error)
{
    QByteArray folder = ChosenFolder();
    while (folder.size() > 1 && folder.endsWith('/'))
        folder.chop(1); // a link with a separator after it would be followed
    const QString shown = QString::fromLocal8Bit(folder);
    if (!folder.startsWith('/')) { // the current directory changes with every project
        error = u"the path of the runtime folder %1 is not absolute; set MORVANITE_RUNTIME_DIR to an absolute "
                "path"_s.arg(shown);
        return {};
    }
    if (mkdir(folder.constData(), 0700) != 0 && errno != EEXIST) {
        error = u"the runtime folder %1 can't be created: %2; set MORVANITE_RUNTIME_DIR to a folder of your own"_s.arg(
            shown, QString::fromLocal8Bit(std::strerror(errno)));
        return {};
    }
    struct stat info;
    if (lstat(folder.constData(), &info) != 0 || !S_ISDIR(info.st_mode)) {
        error = u"the runtime folder %1 is not a folder; remove it, or set MORVANITE_RUNTIME_DIR to a folder of "
                "your own"_s.arg(shown);
        return {};
    }
    if (info.st_uid != geteuid()) {
        error =
            u"the runtime folder %1 belongs to user %2, not to you (%3); set MORVANITE_RUNTIME_DIR to a folder of your own"_s
                .arg(shown)
                .arg(info.st_uid)
                .arg(geteuid());
        return {};
    }
    if (info.st_mode & WRITABLE_BY_OTHERS) {
        error = u"the runtime folder %1 has mode %2, so other users can put files into it; set "
                "MORVANITE_RUNTIME_DIR to a folder that only you can write to, or, if this folder has no other "
                "use, run \"chmod 700 %1\""_s.arg(shown, u"%1"_s.arg(uint(info.st_mode & 07777), 4, 8, QChar(u'0')));
        return {};
    }
    return folder;
}

QByteArray SocketPath(const char *name, QString &error)
{
    const QByteArray folder = EnsureRuntimeFolder(error);
    if (folder.isEmpty())
        return {};
    const QByteArray path = folder + '/' + name;
    if (path.size() > SOCKET_PATH_LIMIT) {
        error = u"the socket path %1 has %2 bytes, but there is room for %3 only; set MORVANITE_RUNTIME_DIR to a "
                "folder with a shorter path"_s.arg(QString::fromLocal8Bit(path))
                    .arg(path.size())
                    .arg(SOCKET_PATH_LIMIT);
        return {};
    }
    return path;
}
