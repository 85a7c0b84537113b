// SPDX-License-Identifier: MIT
#pragma once

#include "HostFiles.h"
#include "OutputGuard.h"
#include "PieceMemory.h"
#include "ReadAhead.h"

#include <functional>
#include <memory>
#include <vector>

class Environment;
struct PackContext;

/// A file that a pack reads, looked at once.
struct PackFile
{
    FileHandle file;         ///< not open if it doesn't exist, may not be read, isn't a file, or was read before
    QByteArray host;         ///< its path on this host
    bool exists = false;     ///< something has that name
    qint64 size = -1;        ///< bytes; -1: couldn't be read
    int error = 0;           ///< the system's error number if it can't be read; 0: not a regular file
    bool isSizeOnly = false; ///< its content isn't needed
    bool isMade = false;     ///< made by this pack, which may delete it soon
    KeptFile known;          ///< its content, if it was read, is valid as long as the PackFiles

    [[nodiscard]] bool IsReadable() const { return file.IsOpen() || !known.content.isNull(); }
    /// Reads the whole file into `place`. Returns false if it ended early (errno is then 0) or couldn't be read.
    [[nodiscard]] bool ReadTo(char *place) const;
};

/// Finds and opens the files of one pack. A folder is listed at most once, and only if a name isn't found as it is
/// written. Small files stay in memory as long as there is room, and are read again only if they have changed.
class PackFiles
{
public:
    /// `readFiles`, if not null, gets the absolute host path of every file that is opened.
    /// They are compared with the outputs of `outputGuard`. With `needsSizes` only the sizes of resources are needed.
    /// At most `mostMemory` bytes of files stay in memory.
    PackFiles(std::vector<QByteArray> *readFiles, OutputGuard &outputGuard, quint64 mostMemory, bool needsSizes = false)
        : inputs(readFiles), guard(outputGuard), room(mostMemory), sizesOnly(needsSizes)
    {
    }

    /// The host path that Open tries first.
    [[nodiscard]] static QByteArray HostOf(QStringView path);
    /// Tells which files will be opened, in this order, so that small ones can be read ahead.
    void WillOpen(std::vector<QByteArray> hosts);
    /// A relative path is relative to the current folder.
    [[nodiscard]] PackFile Open(QStringView path);
    /// Does the same with a host path.
    [[nodiscard]] PackFile OpenHost(const QByteArray &host);
    /// Does the same with a file that this pack has made itself: it has exactly that name and isn't an input.
    [[nodiscard]] static PackFile OpenMade(const QByteArray &host);
    /// Returns the absolute host path of an existing file or folder, which counts as read; empty if there is none.
    [[nodiscard]] QByteArray Find(QStringView path);

    /// Returns true if Content should be called: the file is small, and now has room.
    [[nodiscard]] bool TakeRoom(const PackFile &file);
    /// Returns the file's bytes, which stay valid as long as this object. Returns null if the file ended early (errno
    /// is then 0) or couldn't be read.
    [[nodiscard]] QByteArrayView Content(const PackFile &file);

private:
    int Look(PackFile &found);
    void Know(PackFile &found, const KeptFile &file);
    void Note(const QByteArray &host);

    HostPaths paths;
    std::vector<QByteArray> *inputs;
    OutputGuard &guard;
    Room room;
    bool sizesOnly;
    PieceMemory memory;
    std::deque<PieceMemory> aheadMemory;
    KeptFiles kept;
    std::unique_ptr<ReadAhead> ahead; // null if nothing is read ahead
};

/// Why a file couldn't be read into the payload.
enum class ReadFailure
{
    Size, ///< the size is unknown
    TooSmall,
    Open,
    Content, ///< the file ends early, has changed or can't be read
};

/// A file's content that is copied when the payload is written.
struct FilePart
{
    QByteArray host;
    qint64 size; ///< bytes
    /// Writes the phase's lines about a file that couldn't be read, and returns its code.
    std::function<int(ReadFailure)> fail;
};

class OutputFile;

/// Looks whether the file can still be copied. Returns 0, or the result of `part.fail` if it is gone or has another
/// size now; the reason is explained.
[[nodiscard]] int CheckPart(const Environment &env, const FilePart &part);
/// Copies the file. Returns 0, PACK_WRITE, or the result of `part.fail` if the file can't be read or has another size
/// now; the reason is explained.
[[nodiscard]] int CopyPart(const Environment &env, const FilePart &part, OutputFile &output);

/// What a phase supplies for adding a file to the payload.
struct ReadRequest
{
    /// Writes the phase's line about a failure, and returns its code. It may be called after the phase, so it must own
    /// what it uses.
    std::function<int(ReadFailure)> fail;
    qint64 tooSmall = -1; ///< bytes; a file of this size or less is refused
};

/// Adds the content of a file, with its padding, to the last entry or item. A small file, or one that is made by the
/// pack, is read at once; others are copied when the payload is written. Returns 0, PACK_MEMORY, or the result of
/// `fail`; the system's reason is explained.
[[nodiscard]] int ReadIntoPayload(PackContext &context, const PackFile &file, const ReadRequest &request);

/// Explains why a file couldn't be opened, or why the read just before failed. Returns `code`.
int FailFile(const Environment &env, const PackFile &file, int code);

/// `host` as an absolute path.
[[nodiscard]] QByteArray AbsoluteHost(const QByteArray &host);
