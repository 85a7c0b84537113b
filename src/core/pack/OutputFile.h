#pragma once

#include "HostFiles.h"
#include "SignalCleanup.h"

#include <chrono>

class Environment;

/// The host path of a file to be made: folders are matched without regard to case, the file's own name stays as it is.
[[nodiscard]] QByteArray OutputPath(const QString &path);

/// Which permissions a made file has.
struct OutputRights
{
    mode_t fresh = 0666; ///< of a new file, less the user's mask
    /// An old file of the user's own gets `fresh` too, and may be read-only. Otherwise it keeps its permissions, and a
    /// read-only one is refused.
    bool replacesReadOnly = false;
};

/// Those of a copy of the input: its permissions, and never read-only.
[[nodiscard]] OutputRights RightsOfInput(const FileHandle &input);

/// A file that a pack makes. It is written beside its place, as ".NAME.PID-N", and takes its place in one step when it
/// is whole: the old file is there until then, and stays when anything fails. Symbolic links are followed.
///
/// These are written directly, byte after byte: a device, a pipe, and an old file that can't be replaced without a loss
/// (it has several names, another owner, or its folder can't be written). Nothing is synced: a build product that a
/// failing power supply takes is made again.
///
/// What fails is explained, with the path and the system's reason. While it writes much, the window breathes.
class OutputFile
{
public:
    explicit OutputFile(const Environment &environment) : env(environment) {}
    ~OutputFile() { Drop(); }
    OutputFile(const OutputFile &) = delete;
    OutputFile &operator=(const OutputFile &) = delete;

    /// Opens it empty. 0, or the system's error number.
    [[nodiscard]] int Begin(const QByteArray &host, const OutputRights &rights);

    [[nodiscard]] bool Write(QByteArrayView bytes);
    /// Writes the bytes of `input` from `from` to its end. How many they were; -1 when that failed.
    [[nodiscard]] qint64 Copy(const FileHandle &input, qint64 from = 0);
    /// True when the first bytes can be written again: not in a device or a pipe.
    [[nodiscard]] bool CanGoBack() const { return isRegular; }
    [[nodiscard]] bool WriteAtStart(QByteArrayView bytes);

    /// Gives the file its name. 0, or the system's error number, and then the old file is there.
    [[nodiscard]] int PutInPlace();
    /// Gives up what was written beside its place: the old file stays. True when the old file is as it was.
    bool Drop();

private:
    [[nodiscard]] int Open(const OutputRights &rights);
    [[nodiscard]] int OpenBeside(mode_t mode);
    [[nodiscard]] int OpenDirectly(mode_t mode);
    [[nodiscard]] bool GiveTo(uid_t user, gid_t group, mode_t mode) const;
    int OverwriteMounted();
    bool ExplainFailedWrite();
    void Breathe();

    const Environment &env;
    QByteArray path;      // as it was asked for
    QByteArray target;    // where its links lead
    QByteArray temporary; // empty when it is written directly, or is in its place
    SignalCleanup cleanup;
    FileHandle handle;
    bool isRegular = false;
    bool isFailureTold = false;
    std::chrono::steady_clock::time_point lastBreath = std::chrono::steady_clock::now();
};
