// SPDX-License-Identifier: MIT
#include "ProfileFile.h"

#include "HostFiles.h"

#include <cerrno>
#include <utility>

ProfileFile::ProfileFile(QString filePath) : path(std::move(filePath))
{
    Read();
}

void ProfileFile::Read()
{
    content = Profile();
    const FileHandle file = OpenRead(path);
    error = file.IsOpen() ? 0 : errno;
    stamp = FileStamp::Of(file); // first, so that the next Refresh finds a change during the reading
    if (error == 0)
        error = Profile::Read(file, content);
}

void ProfileFile::Refresh()
{
    if (!(stamp == FileStamp::Of(path)))
        Read();
}

bool ProfileFile::Set(const QList<ProfileEntry> &entries)
{
    Profile changed;
    if (const int fault = Profile::Read(path, changed); fault != 0 && fault != ENOENT)
        return false; // writing it back would empty it
    for (const ProfileEntry &entry : entries)
        changed.Set(entry.section, entry.key, entry.value);
    if (WriteFileAtomically(path, changed.Bytes()) != 0)
        return false;
    content = std::move(changed);
    stamp = FileStamp::Of(path);
    error = 0;
    return true;
}
