#pragma once

#include "ClassCatalogue.h"

#include <QStringList>

class Environment;

/// Reads a file of class definitions (docs/formats/catalogue.md) into an empty catalogue.
///
/// False when it can't be read or has an error: then the catalogue stays as it was, and each error stands in `errors`
/// in the form "catalogue.xml, line 12: what is wrong".
[[nodiscard]] bool LoadCatalogue(const Environment &env, const QString &path, ClassCatalogue &catalogue,
                                 QStringList &errors);

/// The same with the file's bytes at hand; `name` stands in the errors.
[[nodiscard]] bool ParseCatalogue(const Environment &env, QByteArrayView bytes, const QString &name,
                                  ClassCatalogue &catalogue, QStringList &errors);
