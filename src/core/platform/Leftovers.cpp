// SPDX-License-Identifier: MIT
#include "Leftovers.h"

#include "FilePlace.h"

#include <QDir>

#include <cerrno>
#include <csignal>
#include <dirent.h>
#include <fcntl.h>
#include <limits>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

constexpr qsizetype LONGEST_NAME = 200;

/// The parts of a temporary file's name.
struct TemporaryFile
{
    QByteArray start; ///< ".NAME."
    qint64 process = -1;
    qint64 number = -1;

    explicit TemporaryFile(const QByteArray &name)
    {
        const qsizetype dot = name.lastIndexOf('.');
        const qsizetype dash = name.indexOf('-', dot + 1);
        if (!name.startsWith('.') || dot < 2 || dash < 0)
            return;
        start = name.left(dot + 1);
        process = PlainNumber(name.mid(dot + 1, dash - dot - 1));
        number = PlainNumber(name.mid(dash + 1));
    }

    [[nodiscard]] bool IsOne() const
    {
        return process > 0 && process <= std::numeric_limits<pid_t>::max() && number >= 0 &&
               number < MOST_TEMPORARY_FILES;
    }
};

bool IsOfMode(const QByteArray &path, mode_t mode)
{
    struct stat info;
    return lstat(path.constData(), &info) == 0 && (info.st_mode & S_IFMT) == mode;
}

/// Returns whether a process has a file locked, which may be a process of another container.
bool IsLocked(const QByteArray &path)
{
    constexpr int HOW = O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    FileHandle file(open(path.constData(), O_RDWR | HOW)); // a network file system locks only files opened for writing
    if (!file.IsOpen())
        file = FileHandle(open(path.constData(), O_RDONLY | HOW));
    return file.IsOpen() && flock(file.Get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

QByteArrayList TemporaryFilesIn(const QByteArray &folder)
{
    QByteArrayList names;
    DIR *const dir = opendir(folder.constData());
    if (!dir)
        return names;
    while (const dirent *entry = readdir(dir)) {
        if (entry->d_name[0] == '.' && TemporaryFile(entry->d_name).IsOne())
            names.append(entry->d_name);
    }
    closedir(dir);
    return names;
}

QByteArray StartOfNames(const QByteArray &target)
{
    return '.' + target.mid(target.lastIndexOf('/') + 1).left(LONGEST_NAME) + '.';
}

} // namespace

bool IsGone(qint64 process)
{
    return kill(pid_t(process), 0) != 0 && errno == ESRCH;
}

qint64 PlainNumber(const QByteArray &text)
{
    bool isNumber = false;
    const qint64 number = text.toLongLong(&isNumber);
    return isNumber && QByteArray::number(number) == text ? number : -1;
}

QByteArray TemporaryName(const QByteArray &target, qint64 process, int number)
{
    return target.left(target.lastIndexOf('/') + 1) + StartOfNames(target) + QByteArray::number(process) + '-' +
           QByteArray::number(number);
}

int LockTemporaryFolder(const QByteArray &path, FileHandle &handle, IfLocked ifLocked)
{
    handle = FileHandle(open(path.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!handle.IsOpen())
        return errno;
    while (flock(handle.Get(), LOCK_EX | (ifLocked == IfLocked::Fail ? LOCK_NB : 0)) != 0) {
        if (errno != EINTR)
            return errno;
    }
    struct stat opened;
    struct stat named;
    const bool isInPlace = fstat(handle.Get(), &opened) == 0 && lstat(path.constData(), &named) == 0 &&
                           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
    return isInPlace ? 0 : ENOENT;
}

std::vector<Leftovers::Found> Leftovers::Beside(const QByteArray &target)
{
    const QByteArray folder = FolderOf(target);
    auto known = byFolder.find(folder);
    if (known == byFolder.end())
        known = byFolder.emplace(folder, TemporaryFilesIn(folder)).first;
    const QByteArray start = StartOfNames(target);
    const QByteArray place = target.left(target.lastIndexOf('/') + 1);
    std::vector<Found> found;
    for (const QByteArray &name : known->second) {
        const TemporaryFile file(name);
        if (file.start == start)
            found.push_back({place + name, file.process});
    }
    return found;
}

void Leftovers::RemoveBeside(const QByteArray &target)
{
    for (const Found &file : Beside(target)) {
        if (IsGone(file.process) && IsOfMode(file.path, S_IFREG) && !IsLocked(file.path))
            unlink(file.path.constData());
    }
}

void Leftovers::RemoveFoldersBeside(const QByteArray &target)
{
    for (const Found &folder : Beside(target)) {
        if (!IsOfMode(folder.path, S_IFDIR))
            continue;
        FileHandle lock; // held while the folder is removed
        const int error = LockTemporaryFolder(folder.path, lock, IfLocked::Fail);
        const bool hasNoLocks = error != 0 && error != EWOULDBLOCK;
        if (error == 0 || (hasNoLocks && IsGone(folder.process)))
            QDir(QString::fromUtf8(folder.path)).removeRecursively();
    }
}

void RemoveLeftovers(const QByteArray &folder, const QByteArray &name)
{
    Leftovers().RemoveBeside(folder.isEmpty() || folder.endsWith('/') ? folder + name : folder + '/' + name);
}
