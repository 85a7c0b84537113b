// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <QStringList>

#include <map>
#include <sys/stat.h>

/// Identifies a file's content without reading it: which file it is, its size and the time of its last change.
class FileStamp
{
public:
    /// The stamp of a file that doesn't exist.
    FileStamp() = default;
    /// The stamp of a file from what the system says about it.
    explicit FileStamp(const struct stat &info)
        : device(info.st_dev), inode(info.st_ino), size(info.st_size), seconds(info.st_mtim.tv_sec),
          nanoseconds(info.st_mtim.tv_nsec), isThere(info.st_nlink != 0)
    {
    }
    /// Returns the stamp of the file at `path`. Follows links.
    [[nodiscard]] static FileStamp Of(QStringView path);
    /// Returns the stamp of an open file; that of a file that doesn't exist if `file` isn't open.
    [[nodiscard]] static FileStamp Of(const class FileHandle &file);

    [[nodiscard]] bool IsThere() const { return isThere; }
    bool operator==(const FileStamp &other) const = default;

private:
    dev_t device = 0;
    ino_t inode = 0;
    off_t size = 0;
    time_t seconds = 0; // of the last change
    long nanoseconds = 0;
    bool isThere = false;
};

/// The stamps of files as they were when they were read or written last.
class FileStamps
{
public:
    void Clear() { stamps.clear(); }
    /// Notes the stamp that a file has now; a file that doesn't exist has one too. Call it before the file is read, so
    /// that a change during the reading is found.
    void Note(const QString &path) { stamps[path] = FileStamp::Of(path); }

    /// Returns the stamps that the same files have now.
    [[nodiscard]] FileStamps Renewed() const;

    [[nodiscard]] bool Have(const QString &path) const { return stamps.contains(path); }

    /// The files whose stamps have changed, in the order of their paths. `vanished` has those of them that no longer
    /// exist.
    struct Changes
    {
        QStringList files;
        QStringList vanished;
    };
    [[nodiscard]] Changes Since() const;

private:
    std::map<QString, FileStamp> stamps;
};
