#pragma once

#include "Workbook.h"

#include <QByteArray>

class ZipFile;

/// The names of the parts of a package that the first worksheet is read from.
struct XlsxParts
{
    bool datesFrom1904 = false; ///< dates count from 1904 on, not from 1900
    QByteArray worksheet;
    QByteArray sharedStrings; ///< empty when there is no such part
    QString sheetName;
};

/// Finds them, by the relationships of the package.
[[nodiscard]] WorkbookResult FindXlsxParts(const ZipFile &zip, XlsxParts &parts);
