#pragma once

#include "LayoutCheck.h"
#include "LayoutListing.h"

class CResDoc;
class IDPool;

/// What a layout of a resolution may refer to by an ID: the resolution's own, or else one of any resolution.
[[nodiscard]] ReferenceKind ReferenceKindOf(IDPool &ids, const NarrowText &id, qint16 resolution);

/// The layouts of a project that were loaded, by resolution, in the order of their files.
[[nodiscard]] std::vector<ListedLayout> ListLayouts(const CResDoc &doc);

/// What is wrong in one file of a project's layouts.
struct CheckedLayoutFile
{
    QString listed; ///< the file as the list of resources has it, in the host's form; empty for the catalogue
    std::vector<Finding> findings;
};

/// Compares all layout files of a project, also those that weren't loaded, with its catalogue and its IDs
/// (CheckLayoutFile). When the settings name a catalogue that isn't there or is wrong, that comes first. Only files
/// with findings.
[[nodiscard]] std::vector<CheckedLayoutFile> CheckLayoutsOf(const CResDoc &doc);
