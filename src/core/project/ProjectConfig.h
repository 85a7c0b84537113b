// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

class Environment;

/// What the IDE's "config.xml" contains about a project.
struct ProjectConfig
{
    qint32 zepVersion = 0;
    bool tarvoChecked = false;
    qint32 width = 0; ///< pixels
    qint32 height = 0;
    QString file;    ///< the path of the configuration
    QString problem; ///< why nothing could be read from it; empty when it was read
};

/// Sets those members that the configuration of the project at `path` (its ".vcproj" file) has. Leaves the others
/// unchanged, and all of them when the file can't be read.
void ReadConfig(const Environment &env, const QString &path, ProjectConfig &config);
