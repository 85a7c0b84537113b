// SPDX-License-Identifier: MIT
#include "NewFiles.h"

#include "FileFault.h"
#include "Leftovers.h"
#include "Paths.h"

#include <cerrno>
#include <set>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{

bool HasName(const QString &path)
{
    struct stat info;
    return lstat(path.toUtf8().constData(), &info) == 0;
}

QString NoFolder(const QString &path)
{
    return u"\"%1\" exists, but it isn't a folder; move or rename it"_s.arg(path);
}

bool IsFolder(const QString &path)
{
    struct stat info;
    return stat(path.toUtf8().constData(), &info) == 0 && S_ISDIR(info.st_mode);
}

} // namespace

void NewFiles::Add(const QString &path, QByteArray bytes)
{
    files.push_back({CanonicalPath(path), std::move(bytes)});
}

QStringList NewFiles::Missing() const
{
    QStringList paths;
    for (const File &file : files) {
        if (!HasName(file.path))
            paths.append(file.path);
    }
    return paths;
}

QStringList NewFiles::Existing() const
{
    QStringList paths;
    for (const File &file : files) {
        if (HasName(file.path))
            paths.append(file.path);
    }
    return paths;
}

QString NewFiles::Obstacle() const
{
    for (const QString &path : Missing()) {
        QString folder = DirectoryOf(path);
        while (!HasName(folder))
            folder = DirectoryOf(folder);
        if (!IsFolder(folder))
            return NoFolder(folder);
    }
    return {};
}

QString NewFiles::Make()
{
    QString problem = Write();
    if (problem.isEmpty())
        problem = PutInPlace();
    if (!problem.isEmpty())
        TakeBack();
    return problem;
}

/// Writes the files under temporary names.
QString NewFiles::Write()
{
    Leftovers leftovers;
    for (const File &file : files) {
        if (HasName(file.path))
            continue;
        if (QString problem = MakeFolders(DirectoryOf(file.path)); !problem.isEmpty())
            return problem;
        written.emplace_back();
        if (const int error = written.back().WriteAt(file.path.toUtf8(), OnePiece(file.bytes), leftovers))
            return WhyNotWritten(file.path, error);
    }
    return {};
}

QString NewFiles::PutInPlace()
{
    const SignalHold hold;
    std::set<QByteArray> changed;
    while (!written.empty()) {
        FileReplacement &file = written.front();
        if (const int error = file.PutInFreePlace())
            return WhyNotWritten(QString::fromUtf8(file.Target()), error);
        changed.insert(file.Folder());
        made.splice(made.end(), written, written.begin());
    }
    for (const QByteArray &folder : changed)
        SyncFolder(folder);
    return {};
}

/// Makes a folder, and before it those that it is in.
QString NewFiles::MakeFolders(const QString &path)
{
    if (IsFolder(path))
        return {};
    if (HasName(path))
        return NoFolder(path);
    if (QString problem = MakeFolders(DirectoryOf(path)); !problem.isEmpty())
        return problem;
    const SignalHold hold;
    if (mkdir(path.toUtf8().constData(), 0777) == 0)
        folders.push_back(path.toUtf8());
    else if (const int error = errno; !IsFolder(path))
        return WhyNotWritten(path, error);
    return {};
}

void NewFiles::TakeBack()
{
    written.clear();
    for (FileReplacement &file : made)
        (void)file.TakeBack();
    made.clear();
    for (auto folder = folders.rbegin(); folder != folders.rend(); ++folder)
        rmdir(folder->constData());
    folders.clear();
}
