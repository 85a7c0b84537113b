// SPDX-License-Identifier: MIT
#include "FileOpener.h"

#include <QDesktopServices>
#include <QFile>
#include <QUrl>

#include <cerrno>
#include <unistd.h>

namespace
{

/// Checks the path first, because the desktop's opener doesn't report that a file is missing or can't be reached.
QString OpenPath(const FileOpener &opener, const QByteArray &hostPath, const QString &what)
{
    const bool isReached = access(hostPath.constData(), F_OK) == 0;
    if (!isReached && (errno == ENOENT || errno == ENOTDIR))
        return QStringLiteral("The specified %1 was not found.").arg(what);
    return isReached && opener.open(hostPath) ? QString() : QStringLiteral("Failed to open the %1.").arg(what);
}

} // namespace

FileOpener::FileOpener()
    : open([](const QByteArray &hostPath) {
          return QDesktopServices::openUrl(QUrl::fromLocalFile(QFile::decodeName(hostPath)));
      })
{
}

QString FileOpener::OpenFile(const QByteArray &hostPath) const
{
    return OpenPath(*this, hostPath, QStringLiteral("file"));
}

QString FileOpener::OpenFolder(const QByteArray &hostPath) const
{
    return OpenPath(*this, hostPath, QStringLiteral("folder"));
}
