// SPDX-License-Identifier: MIT
#include "FileMark.h"

#include "HostFiles.h"

#include <QHashFunctions>

#include <algorithm>
#include <array>
#include <climits>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

qint64 TimeOf(const struct stat &info)
{
    // A time far in the future or past wraps around, but still differs from others.
    return qint64(quint64(info.st_mtim.tv_sec) * 1'000'000'000U + quint64(info.st_mtim.tv_nsec));
}

std::optional<qint64> MarkOfFile(const QByteArray &path)
{
    struct stat info = {};
    if (stat(path.constData(), &info) != 0 || !S_ISREG(info.st_mode))
        return {};
    // The file is opened first, since a network file system may return an old time for a file that isn't open.
    const FileHandle file(open(path.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!file.IsOpen() || fstat(file.Get(), &info) != 0)
        return {};
    return TimeOf(info);
}

std::optional<qint64> MarkOfFolder(const QByteArray &path)
{
    DIR *const folder = opendir(path.constData());
    if (!folder)
        return {};
    quint64 sum = 0; // a sum doesn't depend on the order in which the files are listed
    while (const dirent *const entry = readdir(folder)) {
        struct stat info = {};
        if (fstatat(dirfd(folder), entry->d_name, &info, 0) == 0 && S_ISREG(info.st_mode))
            sum += qHashMulti(0, QByteArrayView(entry->d_name), TimeOf(info), info.st_ino);
    }
    closedir(folder);
    return qint64(sum);
}

} // namespace

std::optional<qint64> MarkOf(const QByteArray &path)
{
    return path.endsWith('/') ? MarkOfFolder(path) : MarkOfFile(path);
}

QByteArray LinkTarget(const QByteArray &path)
{
    std::array<char, PATH_MAX> buffer;
    const ssize_t size = readlink(path.constData(), buffer.data(), buffer.size());
    if (size <= 0)
        return {};
    const QByteArray target(buffer.data(), size);
    return target.startsWith('/') ? target : path.first(path.lastIndexOf('/') + 1) + target;
}

std::vector<QByteArray> FoldersOf(QByteArray path)
{
    std::vector<QByteArray> folders;
    for (int links = 0; links <= MOST_LINKS; ++links) {
        const QByteArray folder = path.first(path.lastIndexOf('/') + 1);
        if (std::find(folders.begin(), folders.end(), folder) == folders.end())
            folders.push_back(folder);
        path = LinkTarget(path);
        if (path.isEmpty())
            break;
    }
    return folders;
}
