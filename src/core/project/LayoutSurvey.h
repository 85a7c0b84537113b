#pragma once

#include "LayoutCheck.h"
#include "LayoutListing.h"

class CResDoc;
class IDPool;

/// What a layout of a resolution may refer to by an ID: the resolution's own, or else one of any resolution.
[[nodiscard]] ReferenceKind ReferenceKindOf(IDPool &ids, const NarrowText &id, qint16 resolution);

/// The layouts of a project that were loaded, by resolution, in the order of their files.
[[nodiscard]] std::vector<ListedLayout> ListLayouts(const CResDoc &doc);

/// A fault of a project's layouts.
struct ProjectLayoutFinding
{
    QString file; ///< as the list of resources has it, in the host's form; empty for the catalogue
    int line = 0; ///< 0 for the file as a whole
    QString text;
};

/// Compares all layout files of a project, also those that weren't loaded, with its catalogue and its IDs
/// (CheckLayoutFile). When the settings name a catalogue that isn't there or is wrong, that is told first.
[[nodiscard]] std::vector<ProjectLayoutFinding> CheckLayoutsOf(const CResDoc &doc);

/// Says whether the settings name a catalogue, with which classes, properties and values are checked.
[[nodiscard]] bool NamesCatalogue(const CResDoc &doc);
