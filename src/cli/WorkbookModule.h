#pragma once

#include "Workbook.h"

/// What libmorvanite-workbook.so gives under the name WORKBOOK_FUNCTIONS.
struct WorkbookFunctions
{
    decltype(&ReadWorkbook) read;
    decltype(&WriteWorkbook) write;
};

inline constexpr char WORKBOOK_FUNCTIONS[] = "MorvaniteWorkbook";
