#include "FileOpener.h"

#include "HostFiles.h"
#include "Paths.h"

#include <QDesktopServices>
#include <QFile>
#include <QUrl>

#include <unistd.h>

namespace
{

/// The opener of the desktop says nothing of what isn't there.
QString Open(const FileOpener &opener, const QString &path, const QString &projectFolder, const QString &what)
{
    if (path.isEmpty())
        return {};
    (void)SetCurrentFolder(projectFolder);
    const QByteArray host = HostPath(IsRelativePath(path) ? projectFolder + u'\\' + path : path);
    if (access(host.constData(), F_OK) != 0)
        return QStringLiteral("The specified %1 was not found.").arg(what);
    return opener.open(host) ? QString() : QStringLiteral("Failed to open the %1.").arg(what);
}

} // namespace

FileOpener::FileOpener()
    : open([](const QByteArray &hostPath) {
          return QDesktopServices::openUrl(QUrl::fromLocalFile(QFile::decodeName(hostPath)));
      })
{
}

QString FileOpener::OpenFile(const QString &path, const QString &projectFolder) const
{
    return Open(*this, path, projectFolder, QStringLiteral("file"));
}

QString FileOpener::OpenFolder(const QString &path, const QString &projectFolder) const
{
    return Open(*this, path.isEmpty() ? QString() : DirectoryOf(path), projectFolder, QStringLiteral("folder"));
}
