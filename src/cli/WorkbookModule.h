// SPDX-License-Identifier: MIT
#pragma once

#include "Workbook.h"

/// The functions that libmorvanite-workbook.so exports under the name WORKBOOK_FUNCTIONS.
struct WorkbookFunctions
{
    decltype(&ReadWorkbook) read;
    decltype(&WriteWorkbook) write;
};

inline constexpr char WORKBOOK_FUNCTIONS[] = "MorvaniteWorkbook";
