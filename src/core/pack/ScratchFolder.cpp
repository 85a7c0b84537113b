// SPDX-License-Identifier: MIT
#include "ScratchFolder.h"

#include "Environment.h"
#include "FilePlace.h"

#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

bool ScratchFolder::Prepare(const Environment &env) const
{
    return Look(env, true);
}

bool ScratchFolder::IsUsable(const Environment &env) const
{
    return Look(env, false);
}

bool ScratchFolder::Look(const Environment &env, bool mayMake) const
{
    if (!IsNamed())
        return true;
    const auto refuse = [&](const QString &reason) {
        env.Explain(QStringLiteral("the folder for temporary files can't be used: %1: %2")
                        .arg(QString::fromUtf8(path), reason));
        return false;
    };
    if (path.contains('"'))
        return refuse(QStringLiteral("a name with a double quote can't be passed to the converters"));
    QByteArray place = path;
    struct stat info;
    if (!mayMake && stat(path.constData(), &info) != 0 && errno == ENOENT)
        place = FolderOf(path); // where it would be made
    const bool isThere = !mayMake || mkdir(path.constData(), 0777) == 0 || errno == EEXIST;
    if (!isThere || stat(place.constData(), &info) != 0)
        return refuse(QString::fromLocal8Bit(strerror(errno)));
    if (!S_ISDIR(info.st_mode))
        return refuse(QString::fromLocal8Bit(strerror(ENOTDIR)));
    if (access(place.constData(), W_OK | X_OK) != 0)
        return refuse(QString::fromLocal8Bit(strerror(errno)));
    return true;
}

QByteArray ScratchFolder::ForPicture(const QByteArray &source)
{
    return IsNamed() ? path + "/.picture-" + QByteArray::number(++pictures) + ".tmp" : source + ".tmp";
}
