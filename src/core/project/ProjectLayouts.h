#pragma once

#include "CLayoutRes.h"

#include <QByteArrayList>

class CResDoc;
class CResFolder;
class TiXmlElement;

/// Loads the layouts of a file into the folder of their resolution. What fails is reported; a file that isn't loaded
/// whole is noted in the document, so that no save touches it.
void LoadLayoutFile(CResDoc &doc, CResFolder &folder, const NarrowText &path);

/// Why layout files of the project weren't loaded whole, a sentence each with its file and line; empty when all were.
/// Without their layouts the IDs get other numbers, so nothing that holds numbers may be made then.
[[nodiscard]] QStringList MissingLayouts(const CResDoc &doc);
/// The layout files that elements of the list name which were left out, with the reason. In a project without layouts
/// (key `folders` of section `Layout`) all of them are: its IDs are numbered without them, which somebody has to be
/// told.
[[nodiscard]] QStringList LeftOutLayouts(const CResDoc &doc);

/// The paths of the project's layout files as the list has them, with those that weren't loaded whole.
[[nodiscard]] QByteArrayList LayoutFiles(const CResDoc &doc);

/// The file of a resolution's layouts, by their folder; null while it has none.
[[nodiscard]] LayoutFileRef LayoutFileOf(const CResFolder &folder);

/// Which resolution the project's list names a layout file for, and how.
struct LayoutEntry
{
    qint16 resolution = -1;
    NarrowText path; ///< as the list has it
};
[[nodiscard]] LayoutEntry FindLayoutEntry(const QString &projectPath, const QString &layoutPath, CResDoc &doc);

/// Notes the layout files that an element of the list names which is left out, for MissingLayouts. `why` is the reason.
void NoteLeftOutLayouts(CResDoc &doc, const QString &list, const TiXmlElement &element, const QString &why);

/// Says what is wrong with a text that was read and that the code page doesn't keep (IsKeptByCodePage): a save replaces
/// characters of it.
[[nodiscard]] QString NoFormText(const QString &text);
