// SPDX-License-Identifier: MIT
#pragma once

/// What an import does with a text.
enum class CellFate
{
    Filled,     ///< puts it into an existing, empty cell
    New,        ///< puts it into a new cell
    Same,       ///< nothing: the table has the same text already
    Kept,       ///< nothing: the table keeps its own, different text; the imported text may be empty
    Replaced,   ///< changes the kind of the row; with ImportOptions::replace, also puts it in place of another text
    Nowhere,    ///< nothing: it belongs to no row or column of the table
    Refused,    ///< refuses it: the text or the ID of its row has a tab or a line end
    Stale,      ///< nothing: it translates another source text than that of the table
    Unfinished, ///< nothing: the file says that the translation isn't finished
};

inline constexpr int IMPORT_FATES = int(CellFate::Unfinished) + 1;
