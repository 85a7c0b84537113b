// SPDX-License-Identifier: MIT
#pragma once

#include "HostFiles.h"

#include <QByteArray>
#include <QByteArrayList>

#include <map>
#include <vector>

/// Returns the name of the temporary file that a process writes beside `target` before it replaces `target`:
/// ".NAME.PID-N" in the same folder. NAME has at most 200 bytes.
[[nodiscard]] QByteArray TemporaryName(const QByteArray &target, qint64 process, int number);

/// The largest number of temporary files that a process may have beside one file. `number` above is less than this.
inline constexpr int MOST_TEMPORARY_FILES = 1000;

/// Parses a decimal number in the form that this program writes. Returns -1 for any other text.
[[nodiscard]] qint64 PlainNumber(const QByteArray &text);

/// Returns whether no process has that number.
[[nodiscard]] bool IsGone(qint64 process);

enum class IfLocked
{
    Wait,
    Fail, ///< return EWOULDBLOCK
};

/// Locks a temporary folder as long as `handle` is open. A process has its folders locked as long as it uses them: in
/// another container, where `/tmp` may be the same folder, the number of the process says nothing. Returns 0, or the
/// system's error number: ENOENT if another process has removed the folder, another one if it can't be locked.
[[nodiscard]] int LockTemporaryFolder(const QByteArray &path, FileHandle &handle, IfLocked ifLocked);

/// Finds and removes the temporary files that killed processes left. Each object lists a folder only once, so use one
/// object for all files of an operation, and no longer.
class Leftovers
{
public:
    /// Returns whether anything beside the file `target` has the name of such a file or folder.
    [[nodiscard]] bool AreBeside(const QByteArray &target) { return !Beside(target).empty(); }
    /// Removes the temporary files beside the file `target` whose processes no longer exist. Doesn't remove files with
    /// other names, anything that isn't a plain file, locked files, or files of a running process.
    void RemoveBeside(const QByteArray &target);
    /// Removes folders of such names (TemporaryFolder) with their content if no process has them locked. On a file
    /// system without locks, removes those whose processes no longer exist.
    void RemoveFoldersBeside(const QByteArray &target);

private:
    struct Found
    {
        QByteArray path;
        qint64 process;
    };
    /// Returns the files and folders with names of that form beside `target`.
    [[nodiscard]] std::vector<Found> Beside(const QByteArray &target);

    std::map<QByteArray, QByteArrayList> byFolder; // names of that form
};

/// The same for one file. `folder` is the host's path.
void RemoveLeftovers(const QByteArray &folder, const QByteArray &name);
