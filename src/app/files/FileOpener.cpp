#include "FileOpener.h"

#include <QDesktopServices>
#include <QFile>
#include <QUrl>

#include <unistd.h>

namespace
{

/// The opener of the desktop says nothing of what isn't there.
QString OpenPath(const FileOpener &opener, const QByteArray &hostPath, const QString &what)
{
    if (access(hostPath.constData(), F_OK) != 0)
        return QStringLiteral("The specified %1 was not found.").arg(what);
    return opener.open(hostPath) ? QString() : QStringLiteral("Failed to open the %1.").arg(what);
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
