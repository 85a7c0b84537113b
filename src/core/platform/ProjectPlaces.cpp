#include "ProjectPlaces.h"

#include "FilePlace.h"
#include "HostFiles.h"

#include <algorithm>

namespace
{

QByteArray WithSlash(const QByteArray &folder)
{
    return folder.endsWith('/') ? folder : folder + '/';
}

} // namespace

ProjectPlaces::ProjectPlaces(const SavedProject &project) : folder(WithSlash(RealPath(HostPath(project.folder))))
{
    for (const QString &other : project.outside) {
        QByteArray place;
        if (StaysInProject(HostPath(other) + "/file", folder, place) || project.followsLinks)
            outside.insert(FolderOf(place));
    }
}

bool ProjectPlaces::Have(const QByteArray &place) const
{
    return IsBelow(place, folder) || outside.contains(FolderOf(place));
}

QByteArray ProjectPlaces::Stored(const QByteArray &place) const
{
    return IsBelow(place, folder) ? place.mid(folder.size()) : place;
}

QByteArray ProjectPlaces::Restored(const QByteArray &stored) const
{
    const QByteArray place = stored.startsWith('/') ? stored : folder + stored;
    const QByteArrayList names = place.mid(1).split('/');
    const bool isPlain = std::none_of(names.begin(), names.end(), [](const QByteArray &name) {
        return name.isEmpty() || name == "." || name == ".." || name.contains('\0');
    });
    if (!isPlain || !Have(place))
        return {};
    const QByteArray real = RealPath(FolderOf(place)); // a link may lead elsewhere
    return real.isEmpty() || WithSlash(real) == FolderOf(place) ? place : QByteArray();
}
