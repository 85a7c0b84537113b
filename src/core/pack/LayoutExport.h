// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <QStringList>

class Environment;

/// The names of the files that the converter and its sub-tool write: the tables and the header made from them.
inline const QStringList LAYOUT_TABLE_FILES{QStringLiteral("zul_xml_table.i"), QStringLiteral("zul_xml_enum.i"),
                                            QStringLiteral("LayoutID.h")};

/// The paths of these files in a folder.
[[nodiscard]] QStringList LayoutTableFilesIn(const QString &folder);

/// The name of the layout that makes the converter write its tables and no layouts.
inline constexpr char TABLES_LAYOUT[] = "ID_D279A4D9_BC6C_420b_9EC7_CE2FA9F8415D";

/// Moves the tables of the last run aside, then runs the layout converter on the layout tables of the installation.
/// Never fails: the result isn't checked.
void ExportLayoutTables(Environment &env, const QString &projectFolder);

/// True when the settings ask for such tables.
[[nodiscard]] bool HasLayoutTables(const Environment &env);
/// Runs the converter on the same tables with `folder`, a host path, in place of every folder that it writes to. The
/// folder must exist. It then has the files that the converter made, or none if the converter failed.
void MakeLayoutTables(Environment &env, const QString &projectFolder, const QString &folder);
/// The host paths of the files that these runs read; some may not exist.
[[nodiscard]] QStringList LayoutTableInputs(const Environment &env);
