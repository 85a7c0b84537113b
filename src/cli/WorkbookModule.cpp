// SPDX-License-Identifier: MIT
#include "WorkbookModule.h"

// The symbol that WORKBOOK_FUNCTIONS names.
extern "C" __attribute__((visibility("default")))
const WorkbookFunctions MorvaniteWorkbook = {ReadWorkbook, ReadWorkbookBytes, WriteWorkbook, ReadXliff};
