// SPDX-License-Identifier: MIT
// An .xlsx file. Or, so that mutations aren't stopped by the checksums, the contents of its parts: the shared strings,
// the sheet, the workbook and its relationships, with a zero between them. Sometimes writes what was read and reads it
// again; aborts if the texts differ.
#include "PackageBuilder.h"
#include "SheetTexts.h"

#include <QList>

namespace
{

QByteArray PackageOf(const QByteArray &input)
{
    static const char *const PARTS[] = {"xl/strings.xml", "xl/sheet.xml", "xl/workbook.xml",
                                        "xl/_rels/workbook.xml.rels"};
    Package package;
    const QList<QByteArray> contents = input.split('\0');
    for (qsizetype i = 0; i < std::min(contents.size(), qsizetype(std::size(PARTS))); ++i)
        package.Set(PARTS[i], contents[i]);
    return package.Build();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static unsigned runs = 0;
    const QByteArray input(reinterpret_cast<const char *>(data), qsizetype(size));
    Sheet sheet;
    const WorkbookResult result = ReadXlsx(input.startsWith("PK") ? input : PackageOf(input), sheet);
    Require(result.HasFailed() != result.reason.isEmpty());
    sheet.Finish();
    if (++runs % 64 == 0) // writing takes much longer
        RequireSameAgain(sheet, /*columns=*/20, /*canHoldAll=*/false, WriteXlsx, ReadXlsx);
    return 0;
}
