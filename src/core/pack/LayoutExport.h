#pragma once

#include "Text.h"

class Environment;

/// Runs the layout converter on the layout tables of the installation, after moving the tables of the last run aside.
/// Can't fail: nothing of it is checked.
void ExportLayoutTables(Environment &env, const QString &projectFolder);
