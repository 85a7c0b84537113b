#pragma once

#include "Text.h"

#include <memory>
#include <sys/types.h>
#include <vector>

/// Turns paths into what the file system wants, for the length of one operation.
///
/// "\" becomes "/". Where no file has the exact name each component is matched without regard to case, so projects born
/// on a file system without case keep opening. A folder is listed once per object, so don't keep one longer than an
/// operation.
class HostPaths
{
public:
    HostPaths();
    ~HostPaths();

    /// The host's path of `path`, in bytes for the system's calls. A name that doesn't exist keeps its spelling.
    [[nodiscard]] QByteArray Resolve(QStringView path);

    /// Says whether a file or folder is there, by the listings.
    [[nodiscard]] bool Exists(QStringView path);
    [[nodiscard]] bool Exists(QByteArray utf8);

private:
    struct Listings;
    std::unique_ptr<Listings> listings;
};

/// The same for a single look; looks for the exact name first, without listing anything.
[[nodiscard]] QByteArray HostPath(QStringView path);
[[nodiscard]] bool PathExists(QStringView path);

/// Reads a file whole. 0, or the system's error number (EFBIG above `limit` bytes).
[[nodiscard]] int ReadFile(QStringView path, QByteArray &bytes, qint64 limit = qint64(1) << 31);

/// What becomes of a character device or a pipe (FIFO) that has the name of a file that is to be written.
enum class IfDevice
{
    Refuse,       ///< the file can't be written
    WriteThrough, ///< it is written to. A pipe without a reader is waited for. For files that the user names
};

/// Replaces a file in one step: written beside it, synced, renamed over it; mode and symbolic link stay. 0, or the
/// system's error number, and then the old file is as it was.
[[nodiscard]] int WriteFileAtomically(QStringView path, QByteArrayView bytes, IfDevice ifDevice = IfDevice::Refuse);

/// A file of the system, closed by itself.
class FileHandle
{
public:
    explicit FileHandle(int descriptor = -1) : fd(descriptor) {}
    ~FileHandle();
    FileHandle(FileHandle &&other) noexcept : fd(other.fd) { other.fd = -1; }
    FileHandle &operator=(FileHandle &&other) noexcept;
    [[nodiscard]] bool IsOpen() const { return fd >= 0; }
    [[nodiscard]] int Get() const { return fd; }

    /// Opens for reading, matching names without regard to case where need be. Not open: errno tells why. Folders are
    /// refused.
    static FileHandle OpenRead(QStringView path);
    /// The file's size, or -1.
    [[nodiscard]] qint64 Size() const;
    /// Reads up to `size` bytes, going on after interrupts; the number of bytes, or -1.
    [[nodiscard]] ssize_t Read(void *buffer, size_t size) const;
    /// Writes all of it; false with errno set.
    [[nodiscard]] bool WriteAll(const void *bytes, size_t size) const;

private:
    int fd;
};

/// Makes one folder; false when it wasn't made.
bool CreateFolderOnDisk(QStringView path);
/// Sets the current directory of the process. Where that fails (errno says why) it stays what it was, maybe another
/// project's: whoever goes on with relative paths reads and writes there.
[[nodiscard]] bool SetCurrentFolder(QStringView path);
[[nodiscard]] QByteArray CurrentFolderBytes();
/// The same as text: it leads nowhere when the name isn't UTF-8.
[[nodiscard]] QString CurrentFolder();
/// True when both names lead to the same file of the disk.
[[nodiscard]] bool IsSameFile(const QByteArray &a, const QByteArray &b);
/// True when both paths name one file, which need not be there: also where a link leads to the folder of one.
[[nodiscard]] bool NamesSameFile(const QString &a, const QString &b);
bool DeleteFileOnDisk(QStringView path);
/// Clears a file's read-only state (adds the owner's right to write).
void MakeWritable(QStringView path);
/// Moves a file to the desktop's trash; ignored for a path of more than 260 characters, when it isn't there, or
/// when the user has no place for a trash.
void MoveToRecycleBin(const QString &path);
