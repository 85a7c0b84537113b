#pragma once

#include "SignalCleanup.h"

/// A folder for the results of an outside tool, beside where they are to be in the end. It has a name of its own that
/// begins with ".", only its owner may enter it, and it goes with this object and what is in it, also when SIGINT or
/// SIGTERM ends the program.
class TemporaryFolder
{
public:
    /// Makes ".NAME.PID-N" in `parent`, a path of the host, and removes what killed processes left under such names.
    TemporaryFolder(const QByteArray &parent, const QByteArray &name);
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder &operator=(const TemporaryFolder &) = delete;

    /// 0, or the system's error number when there is no folder.
    [[nodiscard]] int Error() const { return error; }
    /// The host's path.
    [[nodiscard]] const QByteArray &Path() const { return path; }

private:
    [[nodiscard]] int Make(const QByteArray &target);

    QByteArray path; // empty when there is none
    int error = 0;
    SignalCleanup cleanup;
};
