// SPDX-License-Identifier: MIT
#pragma once

#include "FileStamps.h"
#include "Profile.h"

/// A profile and the file that it was read from.
class ProfileFile
{
public:
    /// Reads the file. The profile is empty if the file doesn't exist or can't be read.
    explicit ProfileFile(QString path);

    [[nodiscard]] const Profile &Content() const { return content; }
    /// Returns 0, or the system's error number if the file couldn't be read (ENOENT: there is none).
    [[nodiscard]] int Error() const { return error; }

    /// Reads the file again if it has been changed or replaced since it was read.
    void Refresh();

    /// Changes keys in the current content of the file, in one write. Returns false when the file can't be read or
    /// written; it is unchanged then.
    bool Set(const QList<ProfileEntry> &entries);

private:
    void Read();

    QString path;
    Profile content;
    FileStamp stamp; // of the file that was read
    int error = 0;
};
