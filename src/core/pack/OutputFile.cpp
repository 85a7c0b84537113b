// SPDX-License-Identifier: MIT
#include "OutputFile.h"

#include "Environment.h"
#include "FilePlace.h"
#include "Leftovers.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

// Blocks of this size, at multiples of it in the file, let the system use large pages for them.
constexpr size_t BLOCK = size_t(512) << 10; // bytes
constexpr mode_t ALL_BITS = 07777;

QString Reason(int error)
{
    return QString::fromLocal8Bit(strerror(error));
}

/// True if the folder refused a new file; an old file in it may still be writable.
bool IsFolderClosed(int error)
{
    return error == EACCES || error == EPERM || error == EROFS || error == ENAMETOOLONG;
}

/// Returns the system's error number or 0.
int ErrorOfAccess(const QByteArray &path, int mode)
{
    return faccessat(AT_FDCWD, path.constData(), mode, AT_EACCESS) == 0 ? 0 : errno;
}

/// What has the name of an output before the pack, and what that means for the output.
struct OldFile
{
    OldFile(const QByteArray &path, const OutputRights &rights)
    {
        exists = stat(path.constData(), &info) == 0;
        error = exists || errno == ENOENT ? 0 : errno;
        struct stat name;
        const bool isLink = lstat(path.constData(), &name) == 0 && S_ISLNK(name.st_mode);
        isOwn = exists && !isLink && info.st_nlink == 1 && info.st_uid == geteuid();
        isFresh = !exists || (isOwn && rights.replacesReadOnly);
        if (exists && S_ISREG(info.st_mode) && !isFresh)
            error = ErrorOfAccess(path, W_OK);
        isDirect = exists && (!S_ISREG(info.st_mode) || info.st_nlink > 1);
    }

    struct stat info = {};
    int error = 0; // the system's error number if it can't be replaced
    bool exists = false;
    bool isOwn = false;    // the user owns it, and it has no other name
    bool isFresh = false;  // the output gets the permissions of a new file
    bool isDirect = false; // it is written without a temporary file beside it
};

} // namespace

QByteArray OutputPath(const QString &path)
{
    QString host = path;
    host.replace(u'\\', u'/');
    const qsizetype slash = host.lastIndexOf(u'/');
    return slash <= 0 ? host.toUtf8()
                      : HostPath(QStringView(host).first(slash)) + QStringView(host).sliced(slash).toUtf8();
}

OutputRights RightsOfInput(const FileHandle &input)
{
    constexpr mode_t PERMISSIONS = 0777;
    struct stat info;
    OutputRights rights{.replacesReadOnly = true};
    if (fstat(input.Get(), &info) == 0)
        rights.fresh = info.st_mode & PERMISSIONS;
    rights.fresh |= S_IWUSR;
    return rights;
}

int ErrorOfOutput(const QByteArray &host, const OutputRights &rights)
{
    const OldFile old(host, rights);
    if (old.error != 0)
        return old.error;
    const int errorOfFolder = old.isDirect ? 0 : ErrorOfAccess(FolderOf(FollowLinks(host)), W_OK | X_OK);
    if (!old.isDirect && errorOfFolder == 0)
        return 0;
    if (!old.exists)
        return errorOfFolder;
    return S_ISDIR(old.info.st_mode) ? EISDIR : ErrorOfAccess(host, W_OK);
}

int OutputFile::Begin(const QByteArray &host, const OutputRights &rights)
{
    path = host;
    const int error = Open(rights);
    if (error != 0)
        env.Explain(QStringLiteral("cannot create %1: %2").arg(QString::fromUtf8(path), Reason(error)));
    return error;
}

int OutputFile::Open(const OutputRights &rights)
{
    const OldFile old(path, rights);
    if (old.error != 0)
        return old.error;
    if (old.isDirect)
        return OpenDirectly(rights.fresh);
    if (const int error = OpenBeside(old.isFresh ? rights.fresh : S_IRUSR | S_IWUSR))
        return IsFolderClosed(error) ? OpenDirectly(rights.fresh) : error;
    if (old.isFresh ||
        GiveTo(old.isOwn ? uid_t(-1) : old.info.st_uid, old.isOwn ? gid_t(-1) : old.info.st_gid, old.info.st_mode))
        return 0;
    Drop();
    return OpenDirectly(rights.fresh);
}

int OutputFile::OpenBeside(mode_t mode)
{
    target = FollowLinks(path);
    Leftovers().RemoveBeside(target);
    const SignalHold hold;
    for (int n = 0; n < MOST_TEMPORARY_FILES; ++n) {
        const QByteArray tried = TemporaryName(target, getpid(), n);
        handle = FileHandle(open(tried.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode));
        if (handle.IsOpen()) {
            temporary = tried;
            cleanup = SignalCleanup::OfFile(tried);
            isRegular = true;
            return 0;
        }
        if (errno != EEXIST)
            break;
    }
    return errno;
}

int OutputFile::OpenDirectly(mode_t mode)
{
    // Non-blocking, so that a pipe without a reader doesn't hang the program.
    handle = FileHandle(open(path.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NONBLOCK, mode));
    struct stat info;
    if (!handle.IsOpen() || fstat(handle.Get(), &info) != 0)
        return errno;
    isRegular = S_ISREG(info.st_mode);
    // A pipe with a reader takes as much as it can hold, and the rest once there is room again.
    return fcntl(handle.Get(), F_SETFL, fcntl(handle.Get(), F_GETFL) & ~O_NONBLOCK) == 0 ? 0 : errno;
}

bool OutputFile::GiveTo(uid_t user, gid_t group, mode_t mode) const
{
    // Set the owner first, since that clears bits of the mode.
    return fchown(handle.Get(), user, group) == 0 && fchmod(handle.Get(), mode & ALL_BITS) == 0;
}

/// Returns the place of the next byte in the block. `room` becomes the number of bytes that fit there.
char *OutputFile::BlockEnd(size_t &room)
{
    if (!block)
        block = std::make_unique_for_overwrite<char[]>(BLOCK);
    const size_t filled = position % BLOCK;
    room = BLOCK - filled;
    return block.get() + filled;
}

/// Counts bytes that were put at the end of the block.
bool OutputFile::Extend(size_t size)
{
    position += size;
    return position % BLOCK != 0 || Flush();
}

bool OutputFile::Flush()
{
    const size_t size = size_t(position - flushed);
    return size == 0 || WriteOut(block.get() + flushed % BLOCK, size);
}

bool OutputFile::WriteOut(const char *bytes, size_t size)
{
    flushed += size; // bytes that can't be written are lost
    if (!handle.WriteAll(bytes, size))
        return ExplainFailedWrite();
    Breathe();
    return true;
}

bool OutputFile::Write(QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        size_t room = 0;
        char *const place = BlockEnd(room);
        const size_t size = std::min(size_t(bytes.size()), room);
        if (size == BLOCK) { // needn't be copied first
            position += size;
            if (!WriteOut(bytes.data(), size))
                return false;
        } else {
            std::memcpy(place, bytes.data(), size);
            if (!Extend(size))
                return false;
        }
        bytes = bytes.sliced(qsizetype(size));
    }
    return true;
}

qint64 OutputFile::Copy(const FileHandle &input, const QByteArray &shown, qint64 from, qint64 most)
{
    qint64 copied = 0;
    while (copied < most) {
        size_t room = 0;
        char *const place = BlockEnd(room);
        const size_t wanted = size_t(std::min<qint64>(most - copied, qint64(room)));
        const ssize_t got = pread(input.Get(), place, wanted, off_t(from + copied));
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0) {
            env.Explain(QStringLiteral("cannot read %1: %2").arg(QString::fromUtf8(shown), Reason(errno)));
            return -1;
        }
        if (got == 0)
            break;
        if (!Extend(size_t(got)))
            return -1;
        copied += got;
    }
    return copied;
}

bool OutputFile::WriteAtStart(QByteArrayView bytes)
{
    return (lseek(handle.Get(), 0, SEEK_SET) == 0 && handle.WriteAll(bytes.data(), size_t(bytes.size()))) ||
           ExplainFailedWrite();
}

int OutputFile::PutInPlace()
{
    if (temporary.isEmpty())
        return 0;
    // Some file systems only report on close that they had no room for a file.
    const int copy = fcntl(handle.Get(), F_DUPFD_CLOEXEC, 0);
    int error = copy >= 0 && close(copy) != 0 ? errno : 0;
    if (error == 0) {
        const SignalHold hold;
        error = rename(temporary.constData(), target.constData()) == 0 ? 0 : errno;
        if (error == EBUSY)
            error = OverwriteMounted();
        else if (error == 0)
            temporary.clear();
        Drop();
    }
    if (error != 0)
        env.Explain(QStringLiteral("cannot replace %1: %2").arg(QString::fromUtf8(path), Reason(error)));
    return error;
}

/// A file that is itself a mount point, as in containers, can't be replaced, but it can be written.
int OutputFile::OverwriteMounted()
{
    const FileHandle made = std::exchange(handle, FileHandle(open(target.constData(), O_WRONLY | O_TRUNC | O_CLOEXEC)));
    if (!handle.IsOpen())
        return errno;
    position = flushed = 0;
    return Copy(made, temporary) >= 0 && Flush() ? 0 : errno;
}

bool OutputFile::Drop()
{
    const bool isBeside = !temporary.isEmpty();
    if (isBeside)
        unlink(temporary.constData());
    temporary.clear();
    cleanup.Release();
    return isBeside;
}

bool OutputFile::ExplainFailedWrite()
{
    const int error = errno;
    if (!std::exchange(isFailureTold, true))
        env.Explain(QStringLiteral("cannot write %1: %2%3")
                        .arg(QString::fromUtf8(path), Reason(error),
                             IsOverOldFile() ? QStringLiteral("; the file is incomplete now") : QString()));
    errno = error;
    return false;
}

void OutputFile::Breathe()
{
    constexpr std::chrono::milliseconds PATIENCE{50};
    if (!env.whileWaiting)
        return;
    const auto now = std::chrono::steady_clock::now();
    if (now - lastBreath < PATIENCE)
        return;
    env.whileWaiting();
    lastBreath = std::chrono::steady_clock::now();
}
