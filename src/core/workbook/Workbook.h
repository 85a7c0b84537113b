// SPDX-License-Identifier: MIT
#pragma once

#include "Sheet.h"

/// The reason why reading or writing a workbook failed.
enum class WorkbookFault
{
    None,
    NoWorkbook,  ///< the file can't be opened, or isn't a workbook of its format
    Broken,      ///< the file is a workbook, but a part of it can't be read
    TooLarge,    ///< the sheet doesn't fit the format, or the file needs more memory than it may take
    CannotWrite, ///< the file couldn't be written
    Stopped,     ///< the caller no longer wants the sheet (Sheet::stop)
};

struct WorkbookResult
{
    WorkbookFault fault = WorkbookFault::None;
    QString reason; ///< in plain words, with the place and the limit: "row 65537: an .xls sheet has 65536"

    [[nodiscard]] bool HasFailed() const { return fault != WorkbookFault::None; }
};

/// Reads the first sheet of the workbook at `path`, or the one that `sheet` wants, into `sheet`. The extension of the
/// path is the format: xls, xlsx or csv, in any case. After a failure the sheet has what was read before it, without
/// Sheet::Finish.
[[nodiscard]] WorkbookResult ReadWorkbook(const QString &path, Sheet &sheet);
/// The same for the content of a file. The reason doesn't begin with a path.
[[nodiscard]] WorkbookResult ReadWorkbookBytes(const QByteArray &bytes, const QString &extension, Sheet &sheet);

/// Writes a workbook with one sheet and replaces the file atomically. The extension of the path is the format. Writes
/// nothing when something of the sheet doesn't fit.
[[nodiscard]] WorkbookResult WriteWorkbook(const QString &path, ISheetSource &source);
