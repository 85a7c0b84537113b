// SPDX-License-Identifier: MIT
#pragma once

#include "CheckSettings.h"

class CResDoc;
class Environment;

/// What to do if the project file lists an output, for the build of the application.
enum class IfBuildFile
{
    Refuse,
    Replace, ///< write it. For exports: a workbook or a translation in the list is no source
};

/// Returns why files must not be written: one of them is a file of the project, such as a source or a picture, or the
/// first and the last are the same file. Empty if they may. All paths are absolute; an empty one is no output.
/// `document` is the document of the project at `project`, null if it can't be opened.
[[nodiscard]] QString ClashOfOutputs(const QStringList &outputs, Environment &env, const QString &project,
                                     CResDoc *document, const CheckSettings &settings,
                                     IfBuildFile ifBuildFile = IfBuildFile::Refuse);
