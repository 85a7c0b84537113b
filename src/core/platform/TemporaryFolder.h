// SPDX-License-Identifier: MIT
#pragma once

#include "HostFiles.h"
#include "SignalCleanup.h"

/// A temporary folder for the results of an outside tool, beside the place where they will be in the end. Its name is
/// unique and begins with ".", and only its owner has access to it. It is removed with its content when this object is
/// destroyed, and when SIGINT, SIGTERM or SIGHUP ends the program.
class TemporaryFolder
{
public:
    /// Makes ".NAME.PID-N" in `parent`, a path of the host. Removes folders of such names that killed processes left
    /// (Leftovers).
    TemporaryFolder(const QByteArray &parent, const QByteArray &name);
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder &operator=(const TemporaryFolder &) = delete;

    /// 0, or the system's error number if the folder couldn't be made.
    [[nodiscard]] int Error() const { return error; }
    /// The host's path.
    [[nodiscard]] const QByteArray &Path() const { return path; }

private:
    [[nodiscard]] int Make(const QByteArray &target);

    QByteArray path; // empty when there is none
    FileHandle lock; // shows other processes that the folder is in use
    int error = 0;
    SignalCleanup cleanup;
};
