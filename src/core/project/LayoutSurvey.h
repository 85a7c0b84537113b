// SPDX-License-Identifier: MIT
#pragma once

#include "LayoutCheck.h"
#include "LayoutListing.h"

class CResDoc;
class IDPool;

/// Returns the kind of object that an ID refers to in a layout of a resolution: the object of that resolution, or
/// otherwise one of any resolution.
[[nodiscard]] ReferenceKind ReferenceKindOf(IDPool &ids, const NarrowText &id, qint16 resolution);

/// Returns the layouts of a project that were loaded, by resolution, in the order of their files.
[[nodiscard]] std::vector<ListedLayout> ListLayouts(const CResDoc &doc);

/// The findings in one of a project's layout files.
struct CheckedLayoutFile
{
    QString listed;         ///< the file's path in the resource list, in the host's form; empty for the catalogue
    qint32 resolution = -1; ///< index of the screen whose layouts it has; -1 for the catalogue
    std::vector<Finding> findings;
};

/// Compares all layout files of a project, also those that weren't loaded, with its catalogue and its IDs
/// (CheckLayoutFile). Returns only files with findings. If the settings name a catalogue that is missing or wrong, it
/// is the first.
[[nodiscard]] std::vector<CheckedLayoutFile> CheckLayoutsOf(const CResDoc &doc);
