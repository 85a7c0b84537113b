// SPDX-License-Identifier: MIT
// An .xls file, or only its stream if the signature of the container is missing. Reads it, writes what was read and
// reads that; aborts if the tables differ.
#include "CompoundFile.h"
#include "SheetTexts.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size > 256 * 1024)
        return 0;
    QByteArray file(reinterpret_cast<const char *>(data), qsizetype(size));
    if (!file.startsWith("\xD0\xCF\x11\xE0")) {
        file = InMemory([&file](std::FILE *stream) {
            CompoundWriter container("Workbook", stream);
            container.Write(file);
            Require(!container.Close().HasFailed());
        });
    }
    Sheet sheet;
    const WorkbookResult result = ReadXls(file, sheet);
    Require(result.HasFailed() != result.reason.isEmpty());
    sheet.Finish();
    constexpr quint32 FEW_ROWS = 100; // otherwise most of the time would be spent on empty rows
    if (!result.HasFailed() && sheet.EndRow() < FEW_ROWS)
        RequireSameAgain(sheet, /*columns=*/256, /*canHoldAll=*/true, WriteXls, ReadXls);
    return 0;
}
