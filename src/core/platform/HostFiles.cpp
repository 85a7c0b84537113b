// SPDX-License-Identifier: MIT
#include "HostFiles.h"

#include "CurrentFolder.h"
#include "Paths.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

FileHandle OpenRead(QStringView path)
{
    // Non-blocking, so that a pipe in the place of a file doesn't hang the program.
    constexpr int FLAGS = O_RDONLY | O_CLOEXEC | O_NONBLOCK;
    QByteArray host = path.toUtf8();
    host.replace('\\', '/');
    FileHandle file(open(host.constData(), FLAGS));
    if (!file.IsOpen() && errno == ENOENT && !host.isEmpty()) {
        const QByteArray other = HostPaths().Resolve(path);
        errno = ENOENT;
        if (other != host)
            file = FileHandle(open(other.constData(), FLAGS));
    }
    struct stat info = {};
    if (file.IsOpen() && (fstat(file.Get(), &info) != 0 || !S_ISREG(info.st_mode))) {
        const int error = S_ISDIR(info.st_mode) ? EISDIR : EINVAL;
        file = FileHandle();
        errno = error;
    }
    return file;
}

int ReadFile(QStringView path, QByteArray &bytes, qint64 limit)
{
    const FileHandle file = OpenRead(path);
    return file.IsOpen() ? ReadFile(file, bytes, limit) : errno;
}

int ReadFile(const FileHandle &file, QByteArray &bytes, qint64 limit)
{
    const qint64 size = file.Size();
    if (size < 0)
        return errno;
    if (size > limit)
        return EFBIG;
    QByteArray content(size, Qt::Uninitialized);
    const ssize_t got = file.Read(content.data(), size_t(size));
    if (got < 0)
        return errno;
    content.truncate(got);
    bytes = std::move(content);
    return 0;
}

bool CreateFolderOnDisk(QStringView path)
{
    return mkdir(HostPath(path).constData(), 0777) == 0;
}

bool SetCurrentFolder(QStringView path)
{
    return chdir(HostPath(path).constData()) == 0;
}

QString CurrentFolder()
{
    return QString::fromStdString(CurrentFolderBytes());
}

bool IsSameFile(const QByteArray &a, const QByteArray &b)
{
    struct stat first;
    struct stat second;
    return stat(a.constData(), &first) == 0 && stat(b.constData(), &second) == 0 && first.st_dev == second.st_dev &&
           first.st_ino == second.st_ino;
}

bool NamesSameFile(const QString &a, const QString &b)
{
    return IsSamePath(a, b) ||
           (EqualsNoCase(FileTitle(a), FileTitle(b)) && EqualsNoCase(FileExtension(a), FileExtension(b)) &&
            IsSameFile(HostPath(DirectoryOf(a)), HostPath(DirectoryOf(b))));
}

bool DeleteFileOnDisk(QStringView path)
{
    return unlink(HostPath(path).constData()) == 0;
}

void MakeWritable(QStringView path)
{
    const QByteArray host = HostPath(path);
    struct stat info;
    if (stat(host.constData(), &info) == 0 && !(info.st_mode & S_IWUSR))
        chmod(host.constData(), (info.st_mode & 07777) | S_IWUSR);
}

namespace
{

/// Makes the folders of the user's trash (XDG Trash 1.0). False when there is no place for them. Without them the
/// library would use the current folder instead.
bool EnsureTrash()
{
    const QByteArray data = qgetenv("XDG_DATA_HOME");
    const QByteArray home = qgetenv("HOME");
    const QString folder = data.startsWith('/') ? QString::fromUtf8(data)
                           : home.startsWith('/') && PathExists(QString::fromUtf8(home))
                               ? QString::fromUtf8(home) + QStringLiteral("/.local/share")
                               : QString();
    return !folder.isEmpty() && QDir().mkpath(folder + QStringLiteral("/Trash/files")) &&
           QDir().mkpath(folder + QStringLiteral("/Trash/info"));
}

} // namespace

void MoveToRecycleBin(const QString &path)
{
    if (path.size() <= 260 && PathExists(path) && EnsureTrash())
        QFile::moveToTrash(QString::fromUtf8(HostPath(path)));
}
