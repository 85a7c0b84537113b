// SPDX-License-Identifier: MIT
#pragma once

#include "CLayoutRes.h"

#include <QByteArrayList>

class CResDoc;
class CResFolder;
class TiXmlElement;

/// Loads the layouts of a file into the folder of their resolution. Reports failures. Notes a file that couldn't be
/// loaded completely in the document, so that no save changes it.
void LoadLayoutFile(CResDoc &doc, CResFolder &folder, const NarrowText &path);

/// Returns why layout files of the project weren't loaded completely, as one sentence for each with its file and line.
/// Empty when all were loaded. Without their layouts the IDs get other numbers, so no file with numbers may be made
/// then.
[[nodiscard]] QStringList MissingLayouts(const CResDoc &doc);
/// Returns the layout files of those elements of the list that were left out, with the reasons. In a project without
/// layouts (key `folders` of section `Layout`) all of them are left out: its IDs are numbered without them, and the
/// user must be told so.
[[nodiscard]] QStringList LeftOutLayouts(const CResDoc &doc);

/// Returns the paths of the project's layout files as they are in the list, including those that weren't loaded
/// completely.
[[nodiscard]] QByteArrayList LayoutFiles(const CResDoc &doc);

/// Returns the file of the layouts in a resolution's folder; null while the folder has none.
[[nodiscard]] LayoutFileRef LayoutFileOf(const CResFolder &folder);

/// The entry of a layout file in the project's list.
struct LayoutEntry
{
    qint16 resolution = -1;
    NarrowText path; ///< as it is in the list
};
[[nodiscard]] LayoutEntry FindLayoutEntry(const QString &projectPath, const QString &layoutPath, CResDoc &doc);

/// Notes, for MissingLayouts, the layout files in an element of the list that is left out. `why` is the reason.
void NoteLeftOutLayouts(CResDoc &doc, const QString &list, const TiXmlElement &element, const QString &why);

/// Explains the problem with a text that the code page doesn't keep (IsKeptByCodePage): a save replaces characters of
/// it.
[[nodiscard]] QString NoFormText(const QString &text);
