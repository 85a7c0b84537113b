#pragma once

#include "Sheet.h"

/// What stands in the way of reading or writing a workbook.
enum class WorkbookFault
{
    None,
    NoWorkbook,  ///< the file can't be opened, or is no workbook of its kind
    Broken,      ///< it is one, but a part of it can't be read
    TooLarge,    ///< the sheet doesn't fit the format, or the file asks for more than is granted
    CannotWrite, ///< the file couldn't be written
};

struct WorkbookResult
{
    WorkbookFault fault = WorkbookFault::None;
    QString reason; ///< in plain words, with place and limit: "row 65537: an .xls sheet has 65536"

    [[nodiscard]] bool HasFailed() const { return fault != WorkbookFault::None; }
};

/// Reads the first sheet of the workbook at `path` into `sheet`, by the extension of its name: xls, xlsx or csv, in any
/// case. What was read before a failure is in the sheet, not finished.
[[nodiscard]] WorkbookResult ReadWorkbook(const QString &path, Sheet &sheet);

/// Writes a workbook with one sheet, by the extension of its name, and replaces the file in one step. Nothing is
/// written when something of the sheet doesn't fit.
[[nodiscard]] WorkbookResult WriteWorkbook(const QString &path, ISheetSource &source);
