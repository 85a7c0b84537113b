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

QByteArray ChosenFolder()
{
    const QByteArray chosen = qgetenv("MORVANITE_RUNTIME_DIR");
    if (!chosen.isEmpty())
        return chosen;
    const QByteArray session = qgetenv("XDG_RUNTIME_DIR");
    if (session.startsWith('/'))
        return session + "/morvanite";
    return "/tmp/morvanite-" + QByteArray::number(geteuid());
}

} // namespace

QByteArray EnsureRuntimeFolder(QString &error)
{
    QByteArray folder = ChosenFolder();
    while (folder.size() > 1 && folder.endsWith('/'))
        folder.chop(1); // a link with a separator behind it would be followed
    const QString shown = QString::fromLocal8Bit(folder);
    if (!folder.startsWith('/')) { // the current directory changes with every project
        error = u"the runtime folder %1 has no absolute path; change MORVANITE_RUNTIME_DIR"_s.arg(shown);
        return {};
    }
    if (mkdir(folder.constData(), 0700) != 0 && errno != EEXIST) {
        error = u"the runtime folder %1 can't be made: %2; set MORVANITE_RUNTIME_DIR to a folder of your own"_s.arg(
            shown, QString::fromLocal8Bit(std::strerror(errno)));
        return {};
    }
    struct stat info;
    if (lstat(folder.constData(), &info) != 0 || !S_ISDIR(info.st_mode)) {
        error = u"the runtime folder %1 is no folder; remove it, or set MORVANITE_RUNTIME_DIR to a folder of your own"_s
                    .arg(shown);
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
    return folder;
}

QByteArray SocketPath(const char *name, QString &error)
{
    const QByteArray folder = EnsureRuntimeFolder(error);
    if (folder.isEmpty())
        return {};
    const QByteArray path = folder + '/' + name;
    if (path.size() > SOCKET_PATH_LIMIT) {
        error =
            u"the socket path %1 has %2 bytes, and there is room for %3; set MORVANITE_RUNTIME_DIR to a shorter folder"_s
                .arg(QString::fromLocal8Bit(path))
                .arg(path.size())
                .arg(SOCKET_PATH_LIMIT);
        return {};
    }
    return path;
}
