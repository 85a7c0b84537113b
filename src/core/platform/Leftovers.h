// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayList>

#include <map>

/// Returns the name of the temporary file that a process writes beside `target` before it replaces `target`:
/// ".NAME.PID-N" in the same folder. NAME has at most 200 bytes.
[[nodiscard]] QByteArray TemporaryName(const QByteArray &target, qint64 process, int number);

/// The largest number of temporary files that a process may have beside one file. `number` above is less than this.
inline constexpr int MOST_TEMPORARY_FILES = 1000;

/// Parses a decimal number in the form that this program writes. Returns -1 for any other text.
[[nodiscard]] qint64 PlainNumber(const QByteArray &text);

/// Returns whether no process has that number.
[[nodiscard]] bool IsGone(qint64 process);

/// Finds and removes the temporary files that killed processes left. Each object lists a folder only once, so use one
/// object for all files of an operation, and no longer.
class Leftovers
{
public:
    /// Removes the temporary files beside the file `target` whose processes no longer exist. Doesn't remove files with
    /// other names, anything that isn't a plain file, or files of a running process.
    void RemoveBeside(const QByteArray &target);
    /// The same for folders of such names (TemporaryFolder) and the files in them.
    void RemoveFoldersBeside(const QByteArray &target);

private:
    /// Returns the paths of that form beside `target` that belong to no running process.
    [[nodiscard]] QByteArrayList Abandoned(const QByteArray &target);

    std::map<QByteArray, QByteArrayList> byFolder; // names of that form
};

/// The same for one file. `folder` is the host's path.
void RemoveLeftovers(const QByteArray &folder, const QByteArray &name);
