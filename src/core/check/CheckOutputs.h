// SPDX-License-Identifier: MIT
#pragma once

#include "CheckSettings.h"

class CResDoc;
class Environment;

/// Returns why a check must not write its outputs: one of them is a file of the project, such as a source or a picture,
/// or both are the same file. Empty if it may write them. All paths are absolute; an empty one is no output. `document`
/// is the document of the project at `project`, null if it can't be opened.
[[nodiscard]] QString ClashOfOutputs(const QStringList &outputs, Environment &env, const QString &project,
                                     CResDoc *document, const CheckSettings &settings);
