// SPDX-License-Identifier: MIT
// A .csv file. Writes the texts that were read and reads them again; aborts if they differ.
#include "SheetTexts.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Sheet sheet;
    const WorkbookResult result = ReadCsv(QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)), sheet);
    Require(result.HasFailed() != result.reason.isEmpty());
    sheet.Finish();
    RequireSameAgain(sheet, /*columns=*/20, /*canHoldAll=*/false, WriteCsv, ReadCsv);
    return 0;
}
