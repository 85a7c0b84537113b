#pragma once

#include "HostFiles.h"

/// A file that is written beside the one it replaces, and takes its place in one step. What isn't put in place leaves
/// nothing behind. Mode, owner and the symbolic links that lead to the old file stay.
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

    /// Makes the new file, if the old one may be replaced at all.
    [[nodiscard]] int Begin(QStringView path);
    /// Brings what was written to the disk.
    [[nodiscard]] int Finish();
    /// All of this at once, for a file of these bytes.
    [[nodiscard]] int Write(QStringView path, QByteArrayView bytes);
    /// Renames the new file over the old one. `SyncFolder` makes that last.
    [[nodiscard]] int PutInPlace();

    /// Says whether there is an old file with other bytes. After Finish.
    [[nodiscard]] bool Replaces() const;

    /// What to write to.
    [[nodiscard]] const FileHandle &Handle() const { return handle; }
    /// The folder of the file.
    [[nodiscard]] QByteArray Folder() const;

private:
    QByteArray temporary; // empty when there is none
    QByteArray target;
    FileHandle handle;
};

/// Brings the names of a folder to the disk.
void SyncFolder(const QByteArray &folder);
