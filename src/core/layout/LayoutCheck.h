#pragma once

#include "ClassCatalogue.h"

#include <QStringList>

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

/// A fault of a layout file that a load doesn't tell of.
struct LayoutFinding
{
    int line = 0; ///< 0 for the file as a whole
    QString text;
};

/// Compares a layout file with a catalogue and with the IDs of its project: classes, properties and members that the
/// catalogue lacks, values that their types don't take, references that lead nowhere, names that stand twice. An empty
/// catalogue says nothing about classes: then the references and names are left.
[[nodiscard]] std::vector<LayoutFinding> CheckLayoutFile(const Environment &env, const QString &path,
                                                         const ClassCatalogue &catalogue, const FindReference &find);

/// The same for a document that was read.
[[nodiscard]] std::vector<LayoutFinding> CheckLayouts(const Environment &env, const TiXmlDocument &document,
                                                      const ClassCatalogue &catalogue, const FindReference &find);
