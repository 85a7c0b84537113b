// SPDX-License-Identifier: MIT
#include "FileStamps.h"

#include "HostFiles.h"

FileStamp FileStamp::Of(QStringView path)
{
    struct stat info;
    return stat(HostPath(path).constData(), &info) == 0 ? FileStamp(info) : FileStamp();
}

bool FileStamp::operator==(const FileStamp &other) const
{
    return info.st_dev == other.info.st_dev && info.st_ino == other.info.st_ino && info.st_size == other.info.st_size &&
           info.st_mtim.tv_sec == other.info.st_mtim.tv_sec && info.st_mtim.tv_nsec == other.info.st_mtim.tv_nsec;
}

FileStamps FileStamps::Renewed() const
{
    FileStamps renewed;
    for (const auto &[path, before] : stamps)
        renewed.Note(path);
    return renewed;
}

FileStamps::Changes FileStamps::Since() const
{
    Changes changes;
    for (const auto &[path, before] : stamps) {
        const FileStamp now = FileStamp::Of(path);
        if (now == before)
            continue;
        changes.files.append(path);
        if (!now.IsThere())
            changes.vanished.append(path);
    }
    return changes;
}
