// SPDX-License-Identifier: MIT
#pragma once

#include "Workbook.h"

#include <QByteArray>

class ZipFile;

/// The names of the parts of a package from which the first worksheet is read.
struct XlsxParts
{
    bool datesFrom1904 = false; ///< dates are counted from 1904, not from 1900
    QByteArray worksheet;
    QByteArray sharedStrings; ///< empty when there is no such part
    QString sheetName;
};

/// Finds these parts through the relationships of the package.
[[nodiscard]] WorkbookResult FindXlsxParts(const ZipFile &zip, XlsxParts &parts);
