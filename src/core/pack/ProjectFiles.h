// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

struct packinfo;
class CResModel;
class OutputGuard;

/// Compares every file of the project that the phases of this pack don't read with the outputs: its own files, its
/// lists, the files that a save generates, and the images of other resolutions.
void CompareProjectFiles(OutputGuard &guard, const packinfo &info, const CResModel &document);

/// Compares every file of the project with the outputs: those above, the files of all resources, the application's
/// icon, and what the lists of previews and of version 1.0 name. `projectFiles` are the absolute paths of the files
/// that the project was read from.
void CompareAllProjectFiles(OutputGuard &guard, const QStringList &projectFiles, const CResModel &document);
