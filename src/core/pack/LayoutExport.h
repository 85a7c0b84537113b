#pragma once

#include "Text.h"

#include <QStringList>

class Environment;

/// What the converter and its sub-tool write, by name: the tables and the header made of them.
inline const QStringList LAYOUT_TABLE_FILES{QStringLiteral("zul_xml_table.i"), QStringLiteral("zul_xml_enum.i"),
                                            QStringLiteral("LayoutID.h")};

/// The paths of these files in a folder.
[[nodiscard]] QStringList LayoutTableFilesIn(const QString &folder);

/// The layout whose name makes the converter write its tables, and no layouts.
inline constexpr char TABLES_LAYOUT[] = "ID_D279A4D9_BC6C_420b_9EC7_CE2FA9F8415D";

/// Runs the layout converter on the layout tables of the installation, after moving the tables of the last run aside.
/// Can't fail: nothing of it is checked.
void ExportLayoutTables(Environment &env, const QString &projectFolder);

/// True when the settings ask for such tables.
[[nodiscard]] bool HasLayoutTables(const Environment &env);
/// Runs the converter on the same tables with `folder`, a path of the host, in the place of every folder that it writes
/// to. The folder must be there; what the converter made is in it afterwards, nothing when it failed.
void MakeLayoutTables(Environment &env, const QString &projectFolder, const QString &folder);
/// The files that these runs read, in the host's form; some may not be there.
[[nodiscard]] QStringList LayoutTableInputs(const Environment &env);
