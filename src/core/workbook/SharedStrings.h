#pragma once

#include "TextBudget.h"
#include "Workbook.h"

#include <string_view>
#include <vector>

class ZipFile;

/// The namespaces of a workbook's elements: as everybody writes them, and the strict variant.
inline constexpr std::string_view SPREADSHEET_ML = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
inline constexpr std::string_view STRICT_SPREADSHEET_ML = "http://purl.oclc.org/ooxml/spreadsheetml/main";

/// Reads the texts that the cells of a workbook name by their numbers, into `texts`.
[[nodiscard]] WorkbookResult ReadSharedStrings(const ZipFile &zip, const QByteArray &part, TextBudget &budget,
                                               TextPool &texts, std::vector<TextPool::Ref> &strings);
