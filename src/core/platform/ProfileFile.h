#pragma once

#include "FileStamps.h"
#include "Profile.h"

/// A profile and the file that it was read from.
class ProfileFile
{
public:
    /// Reads the file; an absent or unreadable one gives an empty profile.
    explicit ProfileFile(QString path);

    [[nodiscard]] const Profile &Content() const { return content; }

    /// Reads the file again if it is another than the one that was read, or has changed since.
    void Refresh();

    /// Changes keys in the file as it is now, in one write. False when it can't be read, or can't be written; it is as
    /// it was then.
    bool Set(const QList<ProfileEntry> &entries);

private:
    void Read();

    QString path;
    Profile content;
    FileStamp stamp; // of the file that was read
};
