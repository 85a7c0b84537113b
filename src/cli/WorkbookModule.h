// SPDX-License-Identifier: MIT
#pragma once

#include "TranslationFormats.h"
#include "Workbook.h"

/// The functions that libmorvanite-workbook.so exports under the name WORKBOOK_FUNCTIONS.
struct WorkbookFunctions
{
    decltype(&ReadWorkbook) read;
    decltype(&ReadWorkbookBytes) readBytes;
    decltype(&WriteWorkbook) write;
    decltype(&ReadXliff) readXliff;
};

inline constexpr char WORKBOOK_FUNCTIONS[] = "MorvaniteWorkbook";
