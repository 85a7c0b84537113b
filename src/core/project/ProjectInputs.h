// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class CResDoc;

/// Returns the absolute paths of the files that were read to open a project, for a build tool's list of dependencies:
/// its configuration and lists, the settings, and the tables that the settings name. Only files that exist.
[[nodiscard]] QStringList ProjectInputs(CResDoc &doc);
