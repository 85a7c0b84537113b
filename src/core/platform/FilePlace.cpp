// SPDX-License-Identifier: MIT
#include "FilePlace.h"

#include <QByteArrayList>

#include <climits>
#include <cstdlib>
#include <memory>
#include <unistd.h>

namespace
{

struct FreeMemory
{
    void operator()(char *bytes) const { std::free(bytes); }
};

/// Returns whether the ".." in a relative path never lead above the folder that it starts from.
bool StaysBelow(const QByteArray &path)
{
    int depth = 0;
    for (const QByteArray &name : path.split('/')) {
        if (name == "..")
            --depth;
        else if (!name.isEmpty() && name != ".")
            ++depth;
        if (depth < 0)
            return false;
    }
    return depth > 0;
}

} // namespace

QByteArray FolderOf(const QByteArray &path)
{
    const qsizetype slash = path.lastIndexOf('/');
    return slash < 0 ? QByteArray(".") : path.left(slash + 1);
}

QByteArray RealPath(const QByteArray &path)
{
    const std::unique_ptr<char, FreeMemory> real(realpath(path.constData(), nullptr));
    return QByteArray(real.get());
}

bool IsBelow(const QByteArray &path, const QByteArray &folder)
{
    return path.startsWith(folder.endsWith('/') ? folder : folder + '/');
}

QByteArray FollowLinks(QByteArray path)
{
    for (int hops = 0; hops < 40; ++hops) {
        char target[PATH_MAX];
        const ssize_t size = readlink(path.constData(), target, sizeof target);
        if (size <= 0)
            break;
        const QByteArray link(target, size);
        path = link.startsWith('/') ? link : path.left(path.lastIndexOf('/') + 1) + link;
    }
    return path;
}

bool StaysInProject(const QByteArray &path, const QByteArray &projectFolder, QByteArray &place)
{
    place = FollowLinks(path);
    QByteArray folder = RealPath(FolderOf(place));
    if (folder.isEmpty())
        return true;
    if (!folder.endsWith('/'))
        folder += '/';
    place = folder + place.mid(place.lastIndexOf('/') + 1);
    return IsBelow(place, RealPath(NamesPlaceInProject(path, projectFolder) ? projectFolder : FolderOf(path)));
}

bool NamesPlaceInProject(const QByteArray &path, const QByteArray &projectFolder)
{
    const QByteArray project = RealPath(projectFolder);
    if (project.isEmpty())
        return false;
    if (!path.startsWith('/') && StaysBelow(path) && RealPath(".") == project)
        return true;
    for (qsizetype slash = path.indexOf('/'); slash >= 0; slash = path.indexOf('/', slash + 1)) {
        if (StaysBelow(path.mid(slash + 1)) && RealPath(path.left(slash + 1)) == project)
            return true;
    }
    return false;
}
