#pragma once

#include "Text.h"

class Environment;

/// What the IDE's "config.xml" says of a project.
struct ProjectConfig
{
    qint32 zepVersion = 0;
    bool tarvoChecked = false;
    qint32 width = 0; ///< pixels
    qint32 height = 0;
    QString file;    ///< the path of the configuration
    QString problem; ///< what it is or has that it gave nothing; empty when it was read
};

/// Fills what the configuration of the project at `path` (its ".vcproj" file) has; leaves the rest, and all of it when
/// the file can't be read.
void ReadConfig(const Environment &env, const QString &path, ProjectConfig &config);
