#pragma once

#include "SavedProject.h"

#include <set>

/// Where the files of a project may be that its journal names: below its folder and in the folders that the settings
/// name, and there after all symbolic links too (StaysInProject). Places are the host's absolute paths without links.
class ProjectPlaces
{
public:
    explicit ProjectPlaces(const SavedProject &project);

    [[nodiscard]] bool Have(const QByteArray &place) const;

    /// What a journal has for a place: relative to the project's folder where it lies in that.
    [[nodiscard]] QByteArray Stored(const QByteArray &place) const;

    /// The place of what a journal has; empty when no file of the project can be there.
    [[nodiscard]] QByteArray Restored(const QByteArray &stored) const;

private:
    QByteArray folder; // ends with "/"
    std::set<QByteArray> outside;
};
