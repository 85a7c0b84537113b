// SPDX-License-Identifier: MIT
#pragma once

#include "ClassCatalogue.h"
#include "Finding.h"

#include <functional>

class Environment;
class TiXmlDocument;

/// The kinds of resources that a layout may refer to.
enum class ReferenceKind
{
    NONE, ///< no resource has that ID
    STRING,
    IMAGE,
    OTHER,
};
using FindReference = std::function<ReferenceKind(const NarrowText &id)>;

/// Compares a layout file with a catalogue and with the IDs of its project. Finds classes, properties and members that
/// the catalogue lacks, values that their types don't accept, references to missing resources, and duplicate names.
/// With an empty catalogue only references and names are checked.
[[nodiscard]] std::vector<Finding> CheckLayoutFile(const Environment &env, const QString &path,
                                                   const ClassCatalogue &catalogue, const FindReference &find);

/// Does the same with a document that was read from `path`.
[[nodiscard]] std::vector<Finding> CheckLayouts(const Environment &env, const QString &path,
                                                const TiXmlDocument &document, const ClassCatalogue &catalogue,
                                                const FindReference &find);
