// SPDX-License-Identifier: MIT
#pragma once

#include "ClassCatalogue.h"
#include "Finding.h"

#include <QStringList>

class Environment;

/// The absolute path of the catalogue that the settings name; empty if they name none.
[[nodiscard]] QString CataloguePath(const Environment &env);

/// Reads a file of class definitions (docs/formats/catalogue.md) into an empty catalogue.
///
/// Returns false if it can't be read or has an error. The catalogue is then unchanged, and the errors are added to
/// `errors`.
[[nodiscard]] bool LoadCatalogue(const Environment &env, const QString &path, ClassCatalogue &catalogue,
                                 std::vector<Finding> &errors);

/// Does the same with bytes in memory; `name` is the file name in the errors.
[[nodiscard]] bool ParseCatalogue(const Environment &env, QByteArrayView bytes, const QString &name,
                                  ClassCatalogue &catalogue, std::vector<Finding> &errors);

/// Formats the errors as "catalogue.xml, line 12: what is wrong".
[[nodiscard]] QStringList CatalogueErrors(const std::vector<Finding> &errors);
