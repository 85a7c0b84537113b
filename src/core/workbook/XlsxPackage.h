// SPDX-License-Identifier: MIT
#pragma once

#include "Workbook.h"

#include <QByteArray>

class ZipFile;

/// The names of the parts of a package from which a worksheet is read.
struct XlsxParts
{
    bool datesFrom1904 = false; ///< dates are counted from 1904, not from 1900
    QByteArray worksheet;
    QByteArray sharedStrings; ///< empty when there is no such part
    QString sheetName;
};

/// Finds these parts through the relationships of the package, for the wanted sheet (Sheet::wanted).
[[nodiscard]] WorkbookResult FindXlsxParts(const ZipFile &zip, const QString &wanted, XlsxParts &parts);
