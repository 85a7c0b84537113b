// SPDX-License-Identifier: MIT
#include "FileStamps.h"

#include "HostFiles.h"

FileStamp FileStamp::Of(QStringView path)
{
    struct stat info;
    return stat(HostPath(path).constData(), &info) == 0 ? FileStamp(info) : FileStamp();
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
