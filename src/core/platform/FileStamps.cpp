// SPDX-License-Identifier: MIT
#include "FileStamps.h"

#include "HostFiles.h"

FileStamp FileStamp::Of(QStringView path)
{
    struct stat info;
    QByteArray exact = path.toUtf8();
    exact.replace('\\', '/');
    if (stat(exact.constData(), &info) == 0)
        return FileStamp(info);
    const QByteArray other = HostPaths().Resolve(path);
    return other != exact && stat(other.constData(), &info) == 0 ? FileStamp(info) : FileStamp();
}

FileStamp FileStamp::Of(const FileHandle &file)
{
    struct stat info;
    return fstat(file.Get(), &info) == 0 ? FileStamp(info) : FileStamp();
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
