#include "WorkbookModule.h"

// The name that WORKBOOK_FUNCTIONS tells.
extern "C" __attribute__((visibility("default")))
const WorkbookFunctions MorvaniteWorkbook = {ReadWorkbook, WriteWorkbook};
