// SPDX-License-Identifier: MIT
#include "Leftovers.h"

#include "FilePlace.h"

#include <QDir>

#include <cerrno>
#include <csignal>
#include <dirent.h>
#include <limits>
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

QByteArrayList Leftovers::Abandoned(const QByteArray &target)
{
    const QByteArray folder = FolderOf(target);
    auto known = byFolder.find(folder);
    if (known == byFolder.end())
        known = byFolder.emplace(folder, TemporaryFilesIn(folder)).first;
    const QByteArray start = StartOfNames(target);
    const QByteArray place = target.left(target.lastIndexOf('/') + 1);
    QByteArrayList paths;
    for (const QByteArray &name : known->second) {
        const TemporaryFile file(name);
        if (file.start == start && IsGone(file.process))
            paths.append(place + name);
    }
    return paths;
}

void Leftovers::RemoveBeside(const QByteArray &target)
{
    for (const QByteArray &path : Abandoned(target)) {
        if (IsOfMode(path, S_IFREG))
            unlink(path.constData());
    }
}

void Leftovers::RemoveFoldersBeside(const QByteArray &target)
{
    for (const QByteArray &path : Abandoned(target)) {
        if (IsOfMode(path, S_IFDIR))
            QDir(QString::fromUtf8(path)).removeRecursively();
    }
}

void RemoveLeftovers(const QByteArray &folder, const QByteArray &name)
{
    Leftovers().RemoveBeside(folder.isEmpty() || folder.endsWith('/') ? folder + name : folder + '/' + name);
}
