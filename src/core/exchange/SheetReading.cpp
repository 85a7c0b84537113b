// SPDX-License-Identifier: MIT
#include "SheetReading.h"

#include "Paths.h"
#include "SignalCleanup.h"

#include <utility>

namespace
{

WorkbookResult ReadSheet(const ImportFile &file, Sheet &sheet)
{
    if (!file.content)
        return ReadWorkbook(file.path, sheet);
    WorkbookResult result = ReadWorkbookBytes(*file.content, FileExtension(file.path), sheet);
    if (result.HasFailed())
        result.reason = file.name + QStringLiteral(": ") + result.reason;
    return result;
}

} // namespace

SheetReading::SheetReading(ImportFile workbook, const QString &wanted) : file(std::move(workbook))
{
    sheet.wanted = wanted;
    sheet.stop = &stop;
    const SignalHold hold;
    // Without a thread it is read by Take.
    result = std::async(std::launch::async | std::launch::deferred, [this] { return ReadSheet(file, sheet); });
}

WorkbookResult SheetReading::Take(Sheet &to)
{
    WorkbookResult outcome = result.get();
    to = std::move(sheet);
    to.stop = nullptr;
    return outcome;
}
