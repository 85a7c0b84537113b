// SPDX-License-Identifier: MIT
#pragma once

#include "TextBudget.h"
#include "Workbook.h"

struct XlsxParts;
class ZipFile;

/// Reads the cells of the worksheet of `parts` into `sheet`.
[[nodiscard]] WorkbookResult ReadXlsxSheet(const ZipFile &zip, const XlsxParts &parts,
                                           const std::vector<TextPool::Ref> &sharedStrings, TextBudget &budget,
                                           Sheet &sheet);
