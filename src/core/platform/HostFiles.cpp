// SPDX-License-Identifier: MIT
#include "HostFiles.h"

#include "Paths.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

FileHandle::~FileHandle()
{
    if (fd >= 0)
        close(fd);
}

FileHandle &FileHandle::operator=(FileHandle &&other) noexcept
{
    std::swap(fd, other.fd);
    return *this;
}

FileHandle FileHandle::OpenRead(QStringView path)
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

qint64 FileHandle::Size() const
{
    struct stat info;
    return fstat(fd, &info) == 0 ? qint64(info.st_size) : -1;
}

ssize_t FileHandle::Read(void *buffer, size_t size) const
{
    size_t done = 0;
    while (done < size) {
        const ssize_t got = read(fd, static_cast<char *>(buffer) + done, size - done);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return -1;
        if (got == 0)
            break;
        done += size_t(got);
    }
    return ssize_t(done);
}

bool FileHandle::WriteAll(const void *bytes, size_t size) const
{
    size_t done = 0;
    while (done < size) {
        const ssize_t put = write(fd, static_cast<const char *>(bytes) + done, size - done);
        if (put < 0 && errno == EINTR)
            continue;
        if (put <= 0) {
            if (put == 0)
                errno = ENOSPC;
            return false;
        }
        done += size_t(put);
    }
    return true;
}

int ReadFile(QStringView path, QByteArray &bytes, qint64 limit)
{
    const FileHandle file = FileHandle::OpenRead(path);
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

QByteArray CurrentFolderBytes()
{
    char path[PATH_MAX];
    return getcwd(path, sizeof path) ? QByteArray(path) : QByteArray();
}

QString CurrentFolder()
{
    return QString::fromUtf8(CurrentFolderBytes());
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
