// SPDX-License-Identifier: MIT
#include "FileReplacement.h"

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
#include <utility>

namespace
{

constexpr size_t PIECE = 64 * 1024; // files are compared in pieces: a string file can have tens of megabytes

/// Returns whether the next bytes of a file are these. `buffer` has PIECE bytes.
bool ReadsNext(const FileHandle &file, QByteArrayView bytes, char *buffer)
{
    for (qsizetype at = 0; at < bytes.size();) {
        const size_t wanted = std::min(PIECE, size_t(bytes.size() - at));
        const ssize_t size = file.Read(buffer, wanted);
        if (size <= 0 || std::memcmp(buffer, bytes.data() + at, size_t(size)) != 0)
            return false;
        at += size;
    }
    return true;
}

/// Returns whether the file at a path of the host has this content. Also returns false if it can't be read.
bool HasContent(const QByteArray &path, const FilePieces &content)
{
    constexpr int DIFFERS = -1; // is no error of the system
    const FileHandle file(open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    const qint64 size = file.IsOpen() ? file.Size() : -1;
    const auto buffer = std::make_unique<char[]>(PIECE);
    qint64 compared = 0;
    const int result = content([&](QByteArrayView piece) {
        compared += piece.size();
        return compared <= size && ReadsNext(file, piece, buffer.get()) ? 0 : DIFFERS;
    });
    return result == 0 && compared == size;
}

/// Compares two files from their current positions to their ends. Also returns false when one of them can't be read.
bool HaveSameBytes(const FileHandle &a, const FileHandle &b)
{
    if (a.Size() != b.Size())
        return false;
    const auto buffer = std::make_unique<char[]>(2 * PIECE);
    char *const other = buffer.get() + PIECE;
    for (;;) {
        const ssize_t size = a.Read(buffer.get(), PIECE);
        if (size < 0 || b.Read(other, PIECE) != size || std::memcmp(buffer.get(), other, size_t(size)) != 0)
            return false;
        if (size == 0)
            return true;
    }
}

} // namespace

FileReplacement::FileReplacement(FileReplacement &&other) noexcept
    : temporary(std::exchange(other.temporary, {})), old(std::exchange(other.old, {})), target(std::move(other.target)),
      handle(std::move(other.handle)), cleanup(std::move(other.cleanup)), number(other.number), isThere(other.isThere),
      isDevice(other.isDevice), isSame(other.isSame)
{
}

FileReplacement::~FileReplacement()
{
    for (const QByteArray &path : {temporary, old}) {
        if (!path.isEmpty())
            unlink(path.constData());
    }
}

int FileReplacement::Begin(QStringView path, IfDevice ifDevice)
{
    const QByteArray host = HostPath(path);
    struct stat info;
    if (ifDevice == IfDevice::WriteThrough && stat(host.constData(), &info) == 0 &&
        (S_ISCHR(info.st_mode) || S_ISFIFO(info.st_mode))) {
        isDevice = true;
        target = host;
        handle = FileHandle(open(host.constData(), O_WRONLY | O_NOCTTY | O_CLOEXEC));
        return handle.IsOpen() ? 0 : errno;
    }
    Leftovers leftovers;
    return BeginAt(FollowLinks(host), leftovers);
}

/// Sets the target, which must be a plain file if it exists. Removes temporary files that killed processes left beside
/// it.
int FileReplacement::CheckTarget(const QByteArray &place, Leftovers &leftovers)
{
    target = place;
    struct stat info;
    isThere = stat(target.constData(), &info) == 0;
    if (isThere && !S_ISREG(info.st_mode))
        return S_ISDIR(info.st_mode) ? EISDIR : EINVAL;
    leftovers.RemoveBeside(target);
    return 0;
}

int FileReplacement::BeginAt(const QByteArray &place, Leftovers &leftovers)
{
    const int error = CheckTarget(place, leftovers);
    return error == 0 ? MakeBeside() : error;
}

/// Makes the temporary file, with the owner and the permissions of the old file, if that may be replaced.
int FileReplacement::MakeBeside()
{
    if (isThere && access(target.constData(), W_OK) != 0)
        return errno;
    if (const int error = MakeTemporary())
        return error;
    struct stat info;
    if (!isThere || stat(target.constData(), &info) != 0)
        return 0;
    (void)!fchown(handle.Get(), info.st_uid, info.st_gid); // before the mode: fchown clears bits of it
    return fchmod(handle.Get(), info.st_mode & 07777) == 0 ? 0 : errno;
}

/// Makes the temporary file, with the permissions of a new file.
int FileReplacement::MakeTemporary()
{
    for (number = 0; number < MOST_TEMPORARY_FILES; ++number) {
        const QByteArray tried = TemporaryName(target, getpid(), number);
        const SignalHold hold; // a signal between the two steps would leave the file
        handle = FileHandle(open(tried.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
        if (handle.IsOpen()) {
            cleanup = SignalCleanup::OfFile(tried);
            temporary = tried;
            return 0;
        }
        if (errno != EEXIST)
            return errno;
    }
    return EEXIST;
}

int FileReplacement::Finish()
{
    const int error = isDevice || fsync(handle.Get()) == 0 ? 0 : errno;
    handle = FileHandle();
    return error;
}

/// Writes the content to the temporary file, and flushes it to the disk.
int FileReplacement::WriteAll(const FilePieces &content)
{
    const int error = content(
        [this](QByteArrayView piece) { return handle.WriteAll(piece.data(), size_t(piece.size())) ? 0 : errno; });
    return error == 0 ? Finish() : error;
}

int FileReplacement::Write(QStringView path, const FilePieces &content, IfDevice ifDevice)
{
    const int error = Begin(path, ifDevice);
    return error == 0 ? WriteAll(content) : error;
}

int FileReplacement::WriteAt(const QByteArray &place, const FilePieces &content, Leftovers &leftovers)
{
    if (const int error = CheckTarget(place, leftovers))
        return error;
    isSame = isThere && HasContent(target, content);
    if (isSame)
        return 0;
    const int error = MakeBeside();
    return error == 0 ? WriteAll(content) : error;
}

bool FileReplacement::Replaces() const
{
    if (isSame)
        return false;
    const FileHandle before = OpenRead(QString::fromUtf8(target));
    if (!before.IsOpen())
        return errno != ENOENT;
    const FileHandle after = OpenRead(QString::fromUtf8(temporary));
    return !after.IsOpen() || !HaveSameBytes(before, after);
}

int FileReplacement::PutInPlace()
{
    if (isDevice)
        return 0;
    if (rename(temporary.constData(), target.constData()) != 0)
        return errno;
    LeaveTemporary();
    return 0;
}

int FileReplacement::PutInFreePlace()
{
    if (renameat2(AT_FDCWD, temporary.constData(), AT_FDCWD, target.constData(), RENAME_NOREPLACE) != 0) {
        struct stat info;
        if (errno != EINVAL && errno != ENOSYS)
            return errno;
        if (lstat(target.constData(), &info) == 0) // the file system lacks that call; this is the nearest to it
            return EEXIST;
        return PutInPlace();
    }
    LeaveTemporary();
    return 0;
}

void FileReplacement::LeaveTemporary()
{
    cleanup.Release();
    temporary.clear();
}

bool FileReplacement::KeepOld()
{
    if (!isThere)
        return true;
    for (int n = 0; n < MOST_TEMPORARY_FILES; ++n) {
        const QByteArray tried = TemporaryName(target, getpid(), n);
        if (link(target.constData(), tried.constData()) == 0)
            old = tried;
        if (!old.isEmpty() || errno != EEXIST)
            break;
    }
    return !old.isEmpty();
}

int FileReplacement::TakeBack()
{
    if (!isThere)
        return unlink(target.constData()) == 0 || errno == ENOENT ? 0 : errno;
    if (rename(old.constData(), target.constData()) != 0)
        return errno;
    old.clear();
    return 0;
}

QByteArray FileReplacement::Folder() const
{
    return FolderOf(target);
}

void SyncFolder(const QByteArray &folder)
{
    const FileHandle handle(open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (handle.IsOpen())
        fsync(handle.Get());
}

int WriteFileAtomically(QStringView path, QByteArrayView bytes, IfDevice ifDevice)
{
    return WriteFileAtomically(path, OnePiece(bytes), ifDevice);
}

int WriteFileAtomically(QStringView path, const FilePieces &content, IfDevice ifDevice)
{
    FileReplacement file;
    int error = file.Write(path, content, ifDevice);
    if (error == 0)
        error = file.PutInPlace();
    if (error == 0)
        SyncFolder(file.Folder());
    return error;
}
