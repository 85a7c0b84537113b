#pragma once

/// What becomes of a text that is imported.
enum class CellFate
{
    Filled,   ///< it comes into a cell that is there and empty
    New,      ///< it comes into a new cell
    Same,     ///< the table has it already
    Kept,     ///< another text is in the table, and stays; the imported one may be empty
    Replaced, ///< the row gets another kind
    Nowhere,  ///< it belongs to no row or column of the table
    Refused,  ///< a string can't hold it: it, or its row's ID, has a tab or a line end
};
