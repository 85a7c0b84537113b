// SPDX-License-Identifier: MIT
#pragma once

#include "HostFiles.h"
#include "OutputGuard.h"

#include <functional>
#include <vector>

class Environment;

/// A file that a pack reads, looked at once.
struct PackFile
{
    FileHandle file;         ///< not open if it doesn't exist, may not be read, or isn't a file
    QByteArray host;         ///< its path on this host
    bool exists = false;     ///< something has that name
    qint64 size = -1;        ///< bytes; -1: couldn't be read
    int error = 0;           ///< the system's error number if it isn't open; 0: not a regular file
    bool isSizeOnly = false; ///< its content isn't read into the payload

    /// Reads the whole file into `place`. Returns false if it ended early (errno is then 0) or couldn't be read.
    [[nodiscard]] bool ReadTo(char *place) const;
};

/// Finds and opens the files of one pack. A folder is listed at most once, and only if a name isn't found as it is
/// written.
class PackFiles
{
public:
    /// `readFiles`, if not null, gets the absolute host path of every file that is opened.
    /// They are compared with the outputs of `outputGuard`. With `needsSizes` only the sizes of resources are needed.
    PackFiles(std::vector<QByteArray> *readFiles, OutputGuard &outputGuard, bool needsSizes = false)
        : inputs(readFiles), guard(outputGuard), sizesOnly(needsSizes)
    {
    }

    /// A relative path is relative to the current folder.
    [[nodiscard]] PackFile Open(QStringView path);
    /// Does the same with a host path.
    [[nodiscard]] PackFile OpenHost(const QByteArray &host);
    /// Does the same with a file that this pack has made itself: it has exactly that name and isn't an input.
    [[nodiscard]] static PackFile OpenMade(const QByteArray &host);
    /// Returns the absolute host path of an existing file or folder, which counts as read; empty if there is none.
    [[nodiscard]] QByteArray Find(QStringView path);

private:
    void Note(const QByteArray &host);

    HostPaths paths;
    std::vector<QByteArray> *inputs;
    OutputGuard &guard;
    bool sizesOnly;
};

/// Why a file couldn't be read into the payload.
enum class ReadFailure
{
    Size, ///< the size is unknown
    TooSmall,
    Open,
    Content, ///< the file ends early or can't be read
};

/// What a phase supplies for reading a file into the payload.
struct ReadRequest
{
    /// Returns the place for `size` bytes; null if memory runs out.
    std::function<char *(quint64 size)> place;
    /// Writes the phase's line about a failure, and returns its code.
    std::function<int(ReadFailure)> fail;
    qint64 tooSmall = -1; ///< bytes; a file of this size or less is refused
};

/// Reads a whole file into the payload, or reserves its place if only its size is needed. Returns 0, PACK_MEMORY, or
/// the result of `fail`; the system's reason is explained.
[[nodiscard]] int ReadIntoPayload(const Environment &env, const PackFile &file, const ReadRequest &request);

/// Explains why a file couldn't be opened, or why the read just before failed. Returns `code`.
int FailFile(const Environment &env, const PackFile &file, int code);

/// `host` as an absolute path.
[[nodiscard]] QByteArray AbsoluteHost(const QByteArray &host);
