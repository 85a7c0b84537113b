// SPDX-License-Identifier: MIT
#include "FileFault.h"

#include "FilePlace.h"
#include "HostFiles.h"
#include "Paths.h"

#include <cerrno>
#include <cstring>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{

const QString LINKS_IN_A_CIRCLE = u"the symbolic links at its path lead in a circle: remove one of them"_s;

/// Explains which permission is missing to write a file, and what to do.
QString WaysToRights(const QByteArray &host)
{
    if (access(host.constData(), F_OK) == 0 && access(host.constData(), W_OK) != 0)
        return u"the file is write-protected: make it writable"_s;
    return u"the folder \"%1\" is write-protected: make it writable"_s.arg(
        DirectoryOf(QString::fromUtf8(FollowLinks(host))));
}

/// Explains what to do when the system reports a missing file or folder although the program makes the file itself.
QString WaysToPlace(const QByteArray &host)
{
    const QByteArray folder = FolderOf(FollowLinks(host));
    if (access(folder.constData(), F_OK) == 0)
        return u"another program removed the temporary file that was to replace it: try again"_s;
    return u"there is no folder \"%1\": create it"_s.arg(DirectoryOf(QString::fromUtf8(FollowLinks(host))));
}

QString WaysToWrite(const QByteArray &host, int error)
{
    switch (error) {
    case EACCES:
    case EPERM:
        return WaysToRights(host);
    case EROFS:
        return u"the disk is read-only: write to another one, or mount it for writing"_s;
    case ENOSPC:
        return u"the disk is full: free some space on it"_s;
    case EDQUOT:
        return u"your disk quota is used up: free some space"_s;
    case EFBIG:
        return u"the file is larger than this program may write: raise the limit (ulimit -f)"_s;
    case EOVERFLOW:
        return u"it would be larger than 1 GiB: divide the project"_s;
    case EISDIR:
        return u"a folder has the file's name: move or rename the folder"_s;
    case EINVAL:
        return u"a device or a pipe has the file's name: move or rename it"_s;
    case ENOENT:
    case ENOTDIR:
        return WaysToPlace(host);
    case ELOOP:
        return LINKS_IN_A_CIRCLE;
    case ENAMETOOLONG:
        return u"move the project to a shorter path"_s;
    default:
        return u"try again"_s;
    }
}

QString WaysToRead(int error)
{
    switch (error) {
    case EACCES:
    case EPERM:
        return u"change its permissions so that you can read it"_s;
    case ENOENT:
    case ENOTDIR:
        return u"restore the file, or correct the path that names it"_s;
    case EISDIR:
        return u"a folder has the file's name: move or rename the folder"_s;
    case EINVAL:
        return u"a device or a pipe has the file's name: move or rename it"_s;
    case ELOOP:
        return LINKS_IN_A_CIRCLE;
    case EFBIG:
        return u"a project's file can't be that large: check its contents"_s;
    default:
        return u"try again"_s;
    }
}

QString SystemReason(int error)
{
    return QString::fromLocal8Bit(std::strerror(error));
}

} // namespace

QString WhyNotWritten(const QString &path, int error)
{
    const QByteArray host = HostPath(ResolvePath(path, CurrentFolder()));
    return u"cannot write \"%1\": %2; %3"_s.arg(QString::fromUtf8(host), SystemReason(error), WaysToWrite(host, error));
}

QString WhyNotRead(const QString &path, int error)
{
    const QByteArray host = HostPath(ResolvePath(path, CurrentFolder()));
    return u"cannot read \"%1\": "_s.arg(QString::fromUtf8(host)) + ReadFault(error);
}

QString ReadFault(int error)
{
    return SystemReason(error) + u"; "_s + WaysToRead(error);
}

QString WhyOutside(const QString &path, const QByteArray &place)
{
    return QStringLiteral("\"%1\" is not written because a symbolic link leads out of the project, to \"%2\"; remove "
                          "the link, or allow such links with follow_links=1 in section Path of your Morvanite.ini")
        .arg(path, QString::fromUtf8(place));
}
