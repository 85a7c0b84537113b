#pragma once

#include <QByteArray>
#include <QByteArrayList>

#include <map>

/// The name of the file that a process writes beside `target` before it takes that one's place: ".NAME.PID-N" in the
/// same folder. NAME has 200 bytes at most.
[[nodiscard]] QByteArray TemporaryName(const QByteArray &target, qint64 process, int number);

/// How many temporary files a process may have beside one file; `number` above is below this.
inline constexpr int MOST_TEMPORARY_FILES = 1000;

/// A decimal number in the one form that this program writes, or -1.
[[nodiscard]] qint64 PlainNumber(const QByteArray &text);

/// Says whether there is no process of that number.
[[nodiscard]] bool IsGone(qint64 process);

/// Finds and removes what killed processes left beside files under such names. It lists each folder once, so keep one
/// for the files of one operation, and not longer.
class Leftovers
{
public:
    /// Removes what was left beside the file `target` by processes that are gone. Other names, what isn't a plain file
    /// and what belongs to a process that is alive stay.
    void RemoveBeside(const QByteArray &target);
    /// The same for folders of such names (TemporaryFolder), with what is in them.
    void RemoveFoldersBeside(const QByteArray &target);

private:
    /// The paths of that form beside `target` that belong to no process.
    [[nodiscard]] QByteArrayList Abandoned(const QByteArray &target);

    std::map<QByteArray, QByteArrayList> byFolder; // names of that form
};

/// The same for one file. `folder` is the host's path.
void RemoveLeftovers(const QByteArray &folder, const QByteArray &name);
