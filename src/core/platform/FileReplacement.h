#pragma once

#include "HostFiles.h"
#include "SignalCleanup.h"

class Leftovers;

/// A file that is written beside the one it replaces, and takes its place in one step. What isn't put in place leaves
/// nothing behind, also when SIGINT or SIGTERM ends the program (SignalCleanup). Mode, owner and the symbolic links
/// that lead to the old file stay.
///
///     FileReplacement file;
///     if (int error = file.Begin(path)) ...
///     file.Handle().WriteAll(bytes, size);
///     if (int error = file.Finish()) ...
///     file.PutInPlace();
class FileReplacement
{
public:
    FileReplacement() = default;
    ~FileReplacement();
    FileReplacement(FileReplacement &&other) noexcept;
    FileReplacement &operator=(FileReplacement &&) = delete;

    // Each gives 0, or the system's error number.

    /// Makes the new file, if the old one may be replaced at all. Removes first what killed processes left beside it.
    [[nodiscard]] int Begin(QStringView path, IfDevice ifDevice = IfDevice::Refuse);
    /// The same for a host's path that is no link any more, with what is known of such leftovers.
    [[nodiscard]] int BeginAt(const QByteArray &place, Leftovers &leftovers);
    /// Brings what was written to the disk.
    [[nodiscard]] int Finish();
    /// All of this at once, for a file of these bytes.
    [[nodiscard]] int Write(QStringView path, QByteArrayView bytes, IfDevice ifDevice = IfDevice::Refuse);
    [[nodiscard]] int WriteAt(const QByteArray &place, QByteArrayView bytes, Leftovers &leftovers);
    /// Renames the new file over the old one. `SyncFolder` makes that last.
    [[nodiscard]] int PutInPlace();
    /// The same, but EEXIST when there is a file, whatever it is.
    [[nodiscard]] int PutInFreePlace();

    // For a file that is put in place together with others.

    /// Gives the old file a second name, under which it outlives `PutInPlace`. False when the system refuses that.
    bool KeepOld();
    /// Says whether `TakeBack` can bring back what was there: the old file was kept, or there was none.
    [[nodiscard]] bool CanTakeBack() const { return !isThere || !old.isEmpty(); }
    /// Undoes `PutInPlace`.
    [[nodiscard]] int TakeBack();
    /// Leaves the new file beside the old one: the journal of a save has it, and a later save puts it in place.
    void LeaveTemporary();

    /// Says whether there is an old file with other bytes. After Finish.
    [[nodiscard]] bool Replaces() const;

    /// What to write to.
    [[nodiscard]] const FileHandle &Handle() const { return handle; }
    /// The folder of the file.
    [[nodiscard]] QByteArray Folder() const;
    /// The path of the file, without links at its end.
    [[nodiscard]] const QByteArray &Target() const { return target; }
    /// The number in the temporary file's name (TemporaryName).
    [[nodiscard]] int Number() const { return number; }

private:
    [[nodiscard]] int MakeBeside();

    QByteArray temporary; // empty when there is none
    QByteArray old;       // the second name of the old file; empty when it has none
    QByteArray target;
    FileHandle handle;
    SignalCleanup cleanup; // of the temporary file
    int number = 0;
    bool isThere = false;  // the target, at the beginning
    bool isDevice = false; // what is written goes into it at once
};

/// Brings the names of a folder to the disk.
void SyncFolder(const QByteArray &folder);
