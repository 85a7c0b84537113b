// SPDX-License-Identifier: MIT
#include "ProjectPlaces.h"

#include "FilePlace.h"
#include "HostFiles.h"

#include <algorithm>

namespace
{

QByteArray WithSlash(const QByteArray &folder)
{
    return folder.isEmpty() || folder.endsWith('/') ? folder : folder + '/';
}

bool IsSameName(const QByteArray &a, const QByteArray &b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

/// Returns whether a name is `pattern` with the same text in place of each "%s".
bool Fits(const QByteArray &name, const QByteArray &pattern)
{
    const qsizetype count = pattern.count("%s");
    const qsizetype length = count == 0 ? 0 : (name.size() - (pattern.size() - 2 * count)) / count;
    if (length < 0)
        return false;
    return IsSameName(name, QByteArray(pattern).replace("%s", name.mid(pattern.indexOf("%s"), length)));
}

} // namespace

ProjectPlaces::ProjectPlaces(const SavedProject &project)
    : folder(WithSlash(RealPath(HostPath(project.folder)))), followsLinks(project.followsLinks)
{
    const auto add = [&](const QByteArray &path, auto take) {
        QByteArray place;
        if (StaysInProject(path, folder, place) || followsLinks)
            take(place);
    };
    for (const QString &file : project.files)
        add(HostPath(file), [&](const QByteArray &place) { files.insert(place); });
    for (const QString &pattern : project.patterns)
        add(HostPath(pattern), [&](const QByteArray &place) { patterns.push_back(place); });
    const QByteArray written = HostPath(project.config);
    config = {RealPath(FolderOf(written)) + written.mid(written.lastIndexOf('/')), {}};
    (void)StaysInProject(written, folder, config.back());
}

bool ProjectPlaces::Have(const QByteArray &place) const
{
    return files.contains(place) || FitsPattern(place) || MayBeLayouts(place);
}

bool ProjectPlaces::FitsPattern(const QByteArray &place) const
{
    const QByteArray own = FolderOf(place);
    return std::any_of(patterns.begin(), patterns.end(), [&](const QByteArray &pattern) {
        return FolderOf(pattern) == own && Fits(place.mid(own.size()), pattern.mid(own.size()));
    });
}

bool ProjectPlaces::MayBeLayouts(const QByteArray &place) const
{
    if (folder.isEmpty() || !IsBelow(place, folder) || !IsSameName(place.right(4), ".xml"))
        return false;
    if (std::any_of(config.begin(), config.end(), [&](const QByteArray &file) { return IsSameName(place, file); }))
        return false;
    const QByteArrayList names = place.mid(folder.size()).split('/');
    return std::none_of(names.begin(), names.end(), [](const QByteArray &name) { return name.startsWith('.'); });
}

QByteArray ProjectPlaces::Stored(const QByteArray &place) const
{
    return !folder.isEmpty() && IsBelow(place, folder) ? place.mid(folder.size()) : place;
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
