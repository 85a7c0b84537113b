// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <sys/stat.h>
#include <vector>

/// Keeps a pack from replacing a file of its own project. Compares files with those that the pack will replace by their
/// identity on the disk, so links and other spellings are found too.
class OutputGuard
{
public:
    /// Takes the host paths of the outputs. Outputs that don't exist yet, or aren't regular files, can't be any other
    /// file.
    explicit OutputGuard(const std::vector<QByteArray> &outputs);

    /// False when no file can be one of the outputs.
    [[nodiscard]] bool IsNeeded() const { return !replaced.empty(); }

    /// Compares a file of the project whose identity on the disk is known. The first file that is an output is
    /// remembered.
    void Compare(const QByteArray &host, dev_t device, ino_t inode);
    /// Does the same for a file that may not exist.
    void Compare(const QByteArray &host);

    [[nodiscard]] bool HasClash() const { return !file.isEmpty(); }
    [[nodiscard]] const QByteArray &Output() const { return output; }
    [[nodiscard]] const QByteArray &File() const { return file; }
    /// Says which output isn't written because of the clash.
    [[nodiscard]] QString ClashText() const;

private:
    struct Replaced
    {
        QByteArray host;
        dev_t device;
        ino_t inode;
    };
    std::vector<Replaced> replaced;
    QByteArray output; // of the clash
    QByteArray file;   // of the project that is the same as the output
};
