#pragma once

#include "TextBudget.h"
#include "Workbook.h"

class ZipFile;

/// Reads the cells of a worksheet part into `sheet`.
[[nodiscard]] WorkbookResult ReadXlsxSheet(const ZipFile &zip, const QByteArray &part,
                                           const std::vector<TextPool::Ref> &sharedStrings, TextBudget &budget,
                                           Sheet &sheet);
