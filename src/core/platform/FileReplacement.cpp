#include "FileReplacement.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace
{

/// What the symbolic links at `path` lead to, even when nothing is there yet.
QByteArray FollowLinks(QByteArray path)
{
    for (int hops = 0; hops < 40; ++hops) {
        char target[PATH_MAX];
        const ssize_t size = readlink(path.constData(), target, sizeof target);
        if (size <= 0)
            break;
        const QByteArray link(target, size);
        path = link.startsWith('/') ? link : path.left(path.lastIndexOf('/') + 1) + link;
    }
    return path;
}

/// Makes a file beside `target` with the rights that a new file has, and sets `name` to its path.
FileHandle MakeBeside(const QByteArray &target, QByteArray &name)
{
    constexpr int MOST_LEFT_OVERS = 1000; // of programs that were killed
    const qsizetype slash = target.lastIndexOf('/');
    const QByteArray start = target.left(slash + 1) + '.' + target.mid(slash + 1).left(200) + '.' +
                             QByteArray::number(qint64(getpid())) + '-';
    for (int n = 0; n < MOST_LEFT_OVERS; ++n) {
        const QByteArray tried = start + QByteArray::number(n);
        FileHandle file(open(tried.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
        if (file.IsOpen())
            name = tried;
        if (file.IsOpen() || errno != EEXIST)
            return file;
    }
    return FileHandle();
}

} // namespace

FileReplacement::FileReplacement(FileReplacement &&other) noexcept
    : temporary(std::exchange(other.temporary, {})), target(std::move(other.target)), handle(std::move(other.handle))
{
}

FileReplacement::~FileReplacement()
{
    if (!temporary.isEmpty())
        unlink(temporary.constData());
}

int FileReplacement::Begin(QStringView path)
{
    target = FollowLinks(HostPath(path));
    struct stat old;
    const bool exists = stat(target.constData(), &old) == 0;
    if (exists && !S_ISREG(old.st_mode))
        return S_ISDIR(old.st_mode) ? EISDIR : EINVAL;
    if (exists && access(target.constData(), W_OK) != 0)
        return errno;
    handle = MakeBeside(target, temporary);
    if (!handle.IsOpen())
        return errno;
    if (!exists)
        return 0;
    (void)!fchown(handle.Get(), old.st_uid, old.st_gid); // before the mode, since it clears bits of that
    return fchmod(handle.Get(), old.st_mode & 07777) == 0 ? 0 : errno;
}

int FileReplacement::Finish()
{
    const int error = fsync(handle.Get()) == 0 ? 0 : errno;
    handle = FileHandle();
    return error;
}

int FileReplacement::Write(QStringView path, QByteArrayView bytes)
{
    if (const int error = Begin(path))
        return error;
    return handle.WriteAll(bytes.data(), size_t(bytes.size())) ? Finish() : errno;
}

bool FileReplacement::Replaces() const
{
    QByteArray before;
    QByteArray after;
    const int error = ReadFile(QString::fromUtf8(target), before);
    return error == 0 ? ReadFile(QString::fromUtf8(temporary), after) != 0 || before != after : error != ENOENT;
}

int FileReplacement::PutInPlace()
{
    if (rename(temporary.constData(), target.constData()) != 0)
        return errno;
    temporary.clear();
    return 0;
}

QByteArray FileReplacement::Folder() const
{
    const qsizetype slash = target.lastIndexOf('/');
    return slash < 0 ? QByteArray(".") : target.left(slash + 1);
}

void SyncFolder(const QByteArray &folder)
{
    const FileHandle handle(open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (handle.IsOpen())
        fsync(handle.Get());
}

int WriteFileAtomically(QStringView path, QByteArrayView bytes)
{
    FileReplacement file;
    int error = file.Write(path, bytes);
    if (error == 0)
        error = file.PutInPlace();
    if (error == 0)
        SyncFolder(file.Folder());
    return error;
}
