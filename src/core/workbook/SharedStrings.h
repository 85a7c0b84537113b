// SPDX-License-Identifier: MIT
#pragma once

#include "TextBudget.h"
#include "Workbook.h"

#include <string_view>
#include <vector>

class ZipFile;

/// The namespaces of a workbook's elements: the usual one, and that of the strict variant.
inline constexpr std::string_view SPREADSHEET_ML = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
inline constexpr std::string_view STRICT_SPREADSHEET_ML = "http://purl.oclc.org/ooxml/spreadsheetml/main";

/// Reads the texts to which the cells of a workbook refer by number. Adds the texts to `texts`.
[[nodiscard]] WorkbookResult ReadSharedStrings(const ZipFile &zip, const QByteArray &part, TextBudget &budget,
                                               TextPool &texts, std::vector<TextPool::Ref> &strings);
