// SPDX-License-Identifier: MIT
#pragma once

#include "Workbook.h"

// Short functions for failures of the .xls format.

inline WorkbookResult NoXls(const QString &reason)
{
    return {WorkbookFault::NoWorkbook, reason};
}

inline WorkbookResult BrokenXls(const QString &reason)
{
    return {WorkbookFault::Broken, reason};
}

inline WorkbookResult TooLargeForXls(const QString &reason)
{
    return {WorkbookFault::TooLarge, reason};
}

/// Returns a text such as "row 3, column 2: ". `row` and `column` are from 0.
inline QString XlsPlace(quint64 row, quint64 column)
{
    return QStringLiteral("row %1, column %2: ").arg(row + 1).arg(column + 1);
}
