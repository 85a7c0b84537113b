#pragma once

#include "SavedProject.h"

#include <set>
#include <vector>

/// The files that the journal of a project may name, since a save writes them: those of SavedProject, and layout files.
/// Such a file is below the project's folder, ends in ".xml", is not the configuration, and no folder on the way begins
/// with ".". All are there after all symbolic links too (StaysInProject). Places are the host's absolute paths without
/// links.
class ProjectPlaces
{
public:
    explicit ProjectPlaces(const SavedProject &project);

    [[nodiscard]] bool Have(const QByteArray &place) const;

    /// What a journal has for a place: relative to the project's folder if it is below that.
    [[nodiscard]] QByteArray Stored(const QByteArray &place) const;

    /// The place of what a journal has; empty when no file of the project can be there.
    [[nodiscard]] QByteArray Restored(const QByteArray &stored) const;

private:
    [[nodiscard]] bool FitsPattern(const QByteArray &place) const;
    [[nodiscard]] bool MayBeLayouts(const QByteArray &place) const;

    QByteArray folder; // ends with "/"; empty when there is none
    bool followsLinks;
    std::set<QByteArray> files;
    std::vector<QByteArray> patterns;
    std::vector<QByteArray> config; // its name, and where links at that lead to
};
