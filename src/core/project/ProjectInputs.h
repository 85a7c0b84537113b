#pragma once

#include <QStringList>

class CResDoc;

/// The absolute paths of the files that the opening of a project has read, for a build tool's list of dependencies: its
/// configuration and lists, the settings, and the tables that the settings name. Only those that are there.
[[nodiscard]] QStringList ProjectInputs(CResDoc &doc);
