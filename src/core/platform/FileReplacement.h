// SPDX-License-Identifier: MIT
#pragma once

#include "HostFiles.h"
#include "SignalCleanup.h"

class Leftovers;

/// A new file that is written beside the file it replaces, and then renamed over it. If it isn't put in place, it is
/// removed, also when a signal ends the program (SignalCleanup). Mode, owner and the symbolic links to the old
/// file don't change.
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

    // Each of these returns 0, or the system's error number.

    /// Makes the new file, if the old one may be replaced. First removes temporary files that killed processes left
    /// beside it.
    [[nodiscard]] int Begin(QStringView path, IfDevice ifDevice = IfDevice::Refuse);
    /// The same for a path of the host whose links have been followed, with the leftovers that are known already.
    [[nodiscard]] int BeginAt(const QByteArray &place, Leftovers &leftovers);
    /// Flushes what was written to the disk.
    [[nodiscard]] int Finish();
    /// Calls Begin, writes this content, and calls Finish.
    [[nodiscard]] int Write(QStringView path, const FilePieces &content, IfDevice ifDevice = IfDevice::Refuse);
    /// The same with BeginAt, unless the old file has this content already: then nothing is written (IsSame).
    [[nodiscard]] int WriteAt(const QByteArray &place, const FilePieces &content, Leftovers &leftovers);
    /// Renames the new file over the old one. Call `SyncFolder` to flush the new name to the disk.
    [[nodiscard]] int PutInPlace();
    /// The same, but returns EEXIST when anything has the target's name.
    [[nodiscard]] int PutInFreePlace();

    // For a file that is put in place together with others.

    /// Gives the old file a second name, under which it still exists after `PutInPlace`. False when the system refuses
    /// that.
    bool KeepOld();
    /// Returns whether `TakeBack` can restore the old state: the old file was kept, or there was none.
    [[nodiscard]] bool CanTakeBack() const { return !isThere || !old.isEmpty(); }
    /// Undoes `PutInPlace`.
    [[nodiscard]] int TakeBack();
    /// Leaves the new file beside the old one: it is in the journal of a save, and a later save puts it in place.
    void LeaveTemporary();

    /// Whether WriteAt has found that the old file has the content already. It must not be put in place then.
    [[nodiscard]] bool IsSame() const { return isSame; }
    /// Returns whether there is an old file with other bytes. Call it after Finish.
    [[nodiscard]] bool Replaces() const;

    /// The handle to write to.
    [[nodiscard]] const FileHandle &Handle() const { return handle; }
    /// The folder of the file.
    [[nodiscard]] QByteArray Folder() const;
    /// The path of the file, after the links at its last name have been followed.
    [[nodiscard]] const QByteArray &Target() const { return target; }
    /// The number in the temporary file's name (TemporaryName).
    [[nodiscard]] int Number() const { return number; }

private:
    [[nodiscard]] int CheckTarget(const QByteArray &place, Leftovers &leftovers);
    [[nodiscard]] int MakeBeside();
    [[nodiscard]] int MakeTemporary();
    [[nodiscard]] int WriteAll(const FilePieces &content);

    QByteArray temporary; // empty when there is none
    QByteArray old;       // the second name of the old file; empty when it has none
    QByteArray target;
    FileHandle handle;
    SignalCleanup cleanup; // of the temporary file
    int number = 0;
    bool isThere = false;  // whether the target existed at the beginning
    bool isDevice = false; // whether bytes are written to the target at once
    bool isSame = false;   // whether the target has the content, so that there is no temporary file
};

/// Flushes the names in a folder to the disk.
void SyncFolder(const QByteArray &folder);
