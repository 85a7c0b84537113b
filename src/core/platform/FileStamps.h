#pragma once

#include "Text.h"

#include <QStringList>

#include <map>
#include <sys/stat.h>

/// What tells one content of a file from the next without a look into it: which file it is, its size and its time of
/// change.
class FileStamp
{
public:
    /// The stamp of no file.
    FileStamp() = default;
    /// Of what the system says about a file.
    explicit FileStamp(const struct stat &fileInfo) : info(fileInfo) {}
    /// The stamp of the file at `path`, links followed.
    [[nodiscard]] static FileStamp Of(QStringView path);

    [[nodiscard]] bool IsThere() const { return info.st_nlink != 0; }
    bool operator==(const FileStamp &other) const;

private:
    struct stat info = {};
};

/// The stamps of files as they were when they were read or written last.
class FileStamps
{
public:
    void Clear() { stamps.clear(); }
    /// Takes the stamp of a file now; a file that isn't there has one too. Before the file is read: a change during the
    /// reading is found then.
    void Note(const QString &path) { stamps[path] = FileStamp::Of(path); }

    /// The stamps of now of the same files.
    [[nodiscard]] FileStamps Renewed() const;

    [[nodiscard]] bool Have(const QString &path) const { return stamps.contains(path); }

    /// The files that are other ones by now, in the order of their paths; `vanished` are those of them that are gone.
    struct Changes
    {
        QStringList files;
        QStringList vanished;
    };
    [[nodiscard]] Changes Since() const;

private:
    std::map<QString, FileStamp> stamps;
};
