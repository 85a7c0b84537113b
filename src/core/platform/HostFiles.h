// SPDX-License-Identifier: MIT
#pragma once

#include "FileHandle.h"
#include "Text.h"

#include <functional>
#include <memory>
#include <sys/types.h>
#include <vector>

/// Converts paths to paths of the host's file system, for the duration of one operation.
///
/// "\" becomes "/". If no file has the exact name, each component is matched without regard to case, so that projects
/// made on a file system that ignores case can be opened. Each object lists a folder only once, so don't keep an object
/// longer than one operation.
class HostPaths
{
public:
    HostPaths();
    ~HostPaths();

    /// Returns the host's path for `path`, as bytes for system calls. A name that doesn't exist keeps its spelling.
    [[nodiscard]] QByteArray Resolve(QStringView path);

    /// Returns whether a file or folder exists, according to the listings.
    [[nodiscard]] bool Exists(QStringView path);
    [[nodiscard]] bool Exists(QByteArray utf8);

private:
    struct Listings;
    std::unique_ptr<Listings> listings;
};

/// The same for a single path. Tries the exact name first, without listing any folder.
[[nodiscard]] QByteArray HostPath(QStringView path);
[[nodiscard]] bool PathExists(QStringView path);

/// Reads a whole file. Returns 0, or the system's error number (EFBIG for a file above `limit` bytes).
[[nodiscard]] int ReadFile(QStringView path, QByteArray &bytes, qint64 limit = qint64(1) << 31);
/// The same for an open file.
[[nodiscard]] int ReadFile(const FileHandle &file, QByteArray &bytes, qint64 limit = qint64(1) << 31);

/// What to do when a character device or a pipe (FIFO) has the name of a file that is to be written.
enum class IfDevice
{
    Refuse,       ///< fail: the file can't be written
    WriteThrough, ///< write to it, after waiting for a reader of the pipe. For files that the user names
};

/// Takes the next piece of a file. Returns 0, or the system's error number.
using PutPiece = std::function<int(QByteArrayView piece)>;
/// Makes the content of a file that is too large to be in memory at once: passes it to `put` in pieces. Returns 0 at
/// the end, or the first error. It can be called more than once, and passes the same content each time.
using FilePieces = std::function<int(const PutPiece &put)>;
/// Returns the content as one piece. The bytes must outlive the result.
[[nodiscard]] inline FilePieces OnePiece(QByteArrayView bytes)
{
    return [bytes](const PutPiece &put) { return put(bytes); };
}

/// Replaces a file atomically: writes a new file beside it, flushes it to the disk, and renames it over the old one.
/// Mode and symbolic link don't change. Returns 0, or the system's error number; the old file is unchanged then.
[[nodiscard]] int WriteFileAtomically(QStringView path, QByteArrayView bytes, IfDevice ifDevice = IfDevice::Refuse);
[[nodiscard]] int WriteFileAtomically(QStringView path, const FilePieces &content,
                                      IfDevice ifDevice = IfDevice::Refuse);

/// Opens a file for reading. Matches names without regard to case if no file has the exact name. If the result isn't
/// open, errno has the reason. Folders are refused.
[[nodiscard]] FileHandle OpenRead(QStringView path);

/// Makes one folder. False when it wasn't made.
bool CreateFolderOnDisk(QStringView path);
/// Sets the current folder of the process. On failure (errno has the reason) it doesn't change; it may be another
/// project's folder, so a caller that goes on with relative paths would read and write there.
[[nodiscard]] bool SetCurrentFolder(QStringView path);
/// The current folder as text. The text is no valid path when the name isn't UTF-8.
[[nodiscard]] QString CurrentFolder();
/// True when both names lead to the same file on the disk.
[[nodiscard]] bool IsSameFile(const QByteArray &a, const QByteArray &b);
/// True when both paths name the same file, even if a link leads to the folder of one of them. The file need not exist.
[[nodiscard]] bool NamesSameFile(const QString &a, const QString &b);
bool DeleteFileOnDisk(QStringView path);
/// Makes a file writable (adds the owner's permission to write).
void MakeWritable(QStringView path);
/// Moves a file to the desktop's trash. Does nothing if the path has more than 260 characters, if the file doesn't
/// exist, or if the user has no place for a trash.
void MoveToRecycleBin(const QString &path);
