#pragma once

#include "ClassCatalogue.h"
#include "Finding.h"

#include <functional>

class Environment;
class TiXmlDocument;

/// What a layout may refer to.
enum class ReferenceKind
{
    NONE, ///< no resource has that ID
    STRING,
    IMAGE,
    OTHER,
};
using FindReference = std::function<ReferenceKind(const NarrowText &id)>;

/// Compares a layout file with a catalogue and with the IDs of its project: classes, properties and members that the
/// catalogue lacks, values that their types don't take, references that lead nowhere, names that stand twice. An empty
/// catalogue says nothing about classes: then the references and names are left.
[[nodiscard]] std::vector<Finding> CheckLayoutFile(const Environment &env, const QString &path,
                                                   const ClassCatalogue &catalogue, const FindReference &find);

/// The same for a document that was read from `path`.
[[nodiscard]] std::vector<Finding> CheckLayouts(const Environment &env, const QString &path,
                                                const TiXmlDocument &document, const ClassCatalogue &catalogue,
                                                const FindReference &find);
