#pragma once

#include "HostFiles.h"
#include "OutputGuard.h"

#include <functional>
#include <vector>

class Environment;

/// A file that a pack reads, looked at once.
struct PackFile
{
    FileHandle file;     ///< not open: it isn't there, may not be read, or is no file
    QByteArray host;     ///< its path on this host
    bool exists = false; ///< something bears the name
    qint64 size = -1;    ///< bytes; -1: couldn't be read
    int error = 0;       ///< the system's error number when it isn't open; 0: it is no regular file

    /// Reads the whole file to `place`. False when it ended early, with errno 0, or couldn't be read.
    [[nodiscard]] bool ReadTo(char *place) const;
};

/// Finds and opens the files of one pack; a folder is listed at most once, and only when a name isn't found as it is
/// written.
class PackFiles
{
public:
    /// `readFiles`, if not null, gets the absolute host path of every file that is opened.
    /// They are compared with the outputs of `outputGuard`.
    PackFiles(std::vector<QByteArray> *readFiles, OutputGuard &outputGuard) : inputs(readFiles), guard(outputGuard) {}

    /// A relative path counts from the current folder.
    [[nodiscard]] PackFile Open(QStringView path);
    /// The same for a path in the host's form.
    [[nodiscard]] PackFile OpenHost(const QByteArray &host);
    /// The same for a file that this pack has made itself: exactly that name, and no input.
    [[nodiscard]] static PackFile OpenMade(const QByteArray &host);
    /// The absolute host path of something that is there, counted as read; empty when there is nothing.
    [[nodiscard]] QByteArray Find(QStringView path);

private:
    void Note(const QByteArray &host);

    HostPaths paths;
    std::vector<QByteArray> *inputs;
    OutputGuard &guard;
};

/// Why a file couldn't be read into the payload.
enum class ReadFailure
{
    Size, ///< can't be told
    TooSmall,
    Open,
    Content, ///< ends early, or can't be read
};

/// What reading a file into the payload needs of a phase.
struct ReadRequest
{
    /// The place for so many bytes; null when there is no memory.
    std::function<char *(quint64 size)> place;
    /// Writes the phase's line about a failure, and returns its code.
    std::function<int(ReadFailure)> fail;
    qint64 tooSmall = -1; ///< bytes; a file of so many, or fewer, is refused
};

/// Reads a whole file into the payload. 0, PACK_MEMORY, or what `fail` returns; the system's reason is explained.
[[nodiscard]] int ReadIntoPayload(const Environment &env, const PackFile &file, const ReadRequest &request);

/// Explains why a file couldn't be opened, or not be read to its end right before; `code`.
int FailFile(const Environment &env, const PackFile &file, int code);

/// `host` as an absolute path.
[[nodiscard]] QByteArray AbsoluteHost(const QByteArray &host);
