#pragma once

#include <QByteArray>

#include <sys/stat.h>
#include <vector>

/// Keeps a pack from replacing a file of its own project: compares files with those that the pack is about to replace,
/// by what they are on the disk, so links and other spellings are found too.
class OutputGuard
{
public:
    /// Host paths of the outputs; those that aren't there yet, or are no regular files, can't be any other file.
    explicit OutputGuard(const std::vector<QByteArray> &outputs);

    /// False when no file can be one of the outputs.
    [[nodiscard]] bool IsNeeded() const { return !replaced.empty(); }

    /// Compares a file of the project, of which `info` is known. The first that is an output is remembered.
    void Compare(const QByteArray &host, const struct stat &info);
    /// The same for one that may not be there.
    void Compare(const QByteArray &host);

    [[nodiscard]] bool HasClash() const { return !file.isEmpty(); }
    [[nodiscard]] const QByteArray &Output() const { return output; }
    [[nodiscard]] const QByteArray &File() const { return file; }

private:
    struct Replaced
    {
        QByteArray host;
        dev_t device;
        ino_t inode;
    };
    std::vector<Replaced> replaced;
    QByteArray output; // of the clash
    QByteArray file;   // of the project, that the output is
};
