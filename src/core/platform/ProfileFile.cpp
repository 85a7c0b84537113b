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
    stamp = FileStamp::Of(path); // first, so that the next Refresh finds a change during the reading
    content = Profile::Load(path);
}

void ProfileFile::Refresh()
{
    if (!(stamp == FileStamp::Of(path)))
        Read();
}

bool ProfileFile::Set(const QList<ProfileEntry> &entries)
{
    Profile changed;
    if (const int error = Profile::Read(path, changed); error != 0 && error != ENOENT)
        return false; // writing it back would empty it
    for (const ProfileEntry &entry : entries)
        changed.Set(entry.section, entry.key, entry.value);
    if (WriteFileAtomically(path, changed.Bytes()) != 0)
        return false;
    content = std::move(changed);
    stamp = FileStamp::Of(path);
    return true;
}
