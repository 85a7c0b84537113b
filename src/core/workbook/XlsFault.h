#pragma once

#include "Workbook.h"

// Failures of the .xls format in few words.

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

/// "row 3, column 2: " of a place that counts from 0.
inline QString XlsPlace(quint64 row, quint64 column)
{
    return QStringLiteral("row %1, column %2: ").arg(row + 1).arg(column + 1);
}
