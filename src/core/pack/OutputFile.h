// SPDX-License-Identifier: MIT
#pragma once

#include "HostFiles.h"
#include "SignalCleanup.h"

#include <chrono>
#include <limits>
#include <memory>

class Environment;

/// The host path of a file to be made. Folders are matched without regard to case; the file's own name isn't changed.
[[nodiscard]] QByteArray OutputPath(const QString &path);

/// Which permissions a made file has.
struct OutputRights
{
    mode_t fresh = 0666; ///< of a new file, reduced by the user's mask
    /// If true, an old file that the user owns gets `fresh` too, and may be read-only. Otherwise it keeps its
    /// permissions, and a read-only file is refused.
    bool replacesReadOnly = false;
};

/// The rights of a copy of the input: the input's permissions, but never read-only.
[[nodiscard]] OutputRights RightsOfInput(const FileHandle &input);

/// Returns the system's error number with which OutputFile::Begin would certainly fail; 0 if none is known. Changes
/// nothing.
[[nodiscard]] int ErrorOfOutput(const QByteArray &host, const OutputRights &rights);

/// A file that a pack makes. It is written in the same folder as ".NAME.PID-N" and renamed in one step once it is
/// complete. The old file stays until then, and is kept if anything fails. Symbolic links are followed.
///
/// These are written directly: a device, a pipe, and an old file that can't be replaced without loss (it has several
/// names, another owner, or its folder can't be written). Nothing is synced: a build product lost in a power failure
/// can be built again.
///
/// Bytes are written in large blocks, so a failure may be noticed only by a later call. Failures are explained with the
/// path and the system's reason. A long write gives the window time to process its events.
class OutputFile
{
public:
    explicit OutputFile(const Environment &environment) : env(environment) {}
    ~OutputFile() { Drop(); }
    OutputFile(const OutputFile &) = delete;
    OutputFile &operator=(const OutputFile &) = delete;

    /// Opens the file, empty. Returns 0, or the system's error number.
    [[nodiscard]] int Begin(const QByteArray &host, const OutputRights &rights);

    [[nodiscard]] bool Write(QByteArrayView bytes);
    /// Writes at most `most` bytes of `input` from offset `from` to its end. Returns their number, or -1 if they
    /// couldn't be read or written. `shown` is the path of the input for messages.
    [[nodiscard]] qint64 Copy(const FileHandle &input, const QByteArray &shown, qint64 from = 0,
                              qint64 most = std::numeric_limits<qint64>::max());
    /// Writes the bytes that are still in memory. Must be called at the end.
    [[nodiscard]] bool Flush();
    /// True if a write has failed.
    [[nodiscard]] bool HasFailed() const { return isFailureTold; }
    /// True if the bytes so far have replaced an old file.
    [[nodiscard]] bool IsOverOldFile() const { return temporary.isEmpty() && isRegular; }
    /// The file for reading back what was flushed; null if it can't be read.
    [[nodiscard]] const FileHandle *Made() const { return temporary.isEmpty() ? nullptr : &handle; }
    /// True if the first bytes can be written again: not for a device or a pipe.
    [[nodiscard]] bool CanGoBack() const { return isRegular; }
    /// Nothing may be written after that.
    [[nodiscard]] bool WriteAtStart(QByteArrayView bytes);

    /// Gives the file its name. Returns 0, or the system's error number; the old file is then still there.
    [[nodiscard]] int PutInPlace();
    /// Discards the temporary file; the old file stays. Returns true if the old file is unchanged.
    bool Drop();

private:
    [[nodiscard]] int Open(const OutputRights &rights);
    [[nodiscard]] int OpenBeside(mode_t mode);
    [[nodiscard]] int OpenDirectly(mode_t mode);
    [[nodiscard]] bool GiveTo(uid_t user, gid_t group, mode_t mode) const;
    int OverwriteMounted();
    [[nodiscard]] char *BlockEnd(size_t &room);
    [[nodiscard]] bool Extend(size_t size);
    [[nodiscard]] bool WriteOut(const char *bytes, size_t size);
    bool ExplainFailedWrite();
    void Breathe();

    const Environment &env;
    QByteArray path;      // as requested
    QByteArray target;    // where its links lead
    QByteArray temporary; // empty if the file is written directly or already in place
    SignalCleanup cleanup;
    FileHandle handle;
    std::unique_ptr<char[]> block; // the bytes since the last multiple of its size
    quint64 position = 0;          // in the file, of the next byte
    quint64 flushed = 0;           // the part of them that was written
    bool isRegular = false;
    bool isFailureTold = false;
    std::chrono::steady_clock::time_point lastBreath = std::chrono::steady_clock::now();
};
