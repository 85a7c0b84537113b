// SPDX-License-Identifier: MIT
#pragma once

#include "SavedProject.h"

#include <set>
#include <vector>

/// The files that the journal of a project may name, because a save writes them: those of SavedProject, and layout
/// files. A layout file is below the project's folder, its name ends in ".xml", it isn't the configuration, and no
/// folder on the way to it begins with ".". All of this must still be true after symbolic links have been followed
/// (StaysInProject). Places are the host's absolute paths without links.
class ProjectPlaces
{
public:
    explicit ProjectPlaces(const SavedProject &project);

    [[nodiscard]] bool Have(const QByteArray &place) const;

    /// Returns the path that a journal stores for a place: relative to the project's folder if it is below that.
    [[nodiscard]] QByteArray Stored(const QByteArray &place) const;

    /// Returns the place for a path in a journal; empty when no file of the project can be there.
    [[nodiscard]] QByteArray Restored(const QByteArray &stored) const;

private:
    [[nodiscard]] bool FitsPattern(const QByteArray &place) const;
    [[nodiscard]] bool MayBeLayouts(const QByteArray &place) const;

    QByteArray folder; // ends with "/"; empty when there is none
    bool followsLinks;
    std::set<QByteArray> files;
    std::vector<QByteArray> patterns;
    std::vector<QByteArray> config; // the configuration's path, and where links at that path lead to
};
