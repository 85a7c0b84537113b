// SPDX-License-Identifier: MIT
#include "ScratchFolder.h"

#include "Environment.h"

#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

bool ScratchFolder::Prepare(const Environment &env) const
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
    const bool isThere = mkdir(path.constData(), 0777) == 0 || errno == EEXIST;
    struct stat info;
    if (!isThere || stat(path.constData(), &info) != 0)
        return refuse(QString::fromLocal8Bit(strerror(errno)));
    if (!S_ISDIR(info.st_mode))
        return refuse(QString::fromLocal8Bit(strerror(ENOTDIR)));
    if (access(path.constData(), W_OK | X_OK) != 0)
        return refuse(QString::fromLocal8Bit(strerror(errno)));
    return true;
}

QByteArray ScratchFolder::ForPicture(const QByteArray &source)
{
    return IsNamed() ? path + "/.picture-" + QByteArray::number(++pictures) + ".tmp" : source + ".tmp";
}
