// SPDX-License-Identifier: MIT
#include "Formats.h"

#include "SharedStrings.h"
#include "XlsxPackage.h"
#include "XlsxSheet.h"
#include "ZipFile.h"

namespace
{

constexpr std::string_view COMPOUND_FILE = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
constexpr qsizetype MEMORY_PER_BYTE = 32; // the file is packed

WorkbookResult ReadPackage(const ZipFile &zip, TextBudget &budget, Sheet &sheet)
{
    XlsxParts parts;
    WorkbookResult result = FindXlsxParts(zip, sheet.wanted, parts);
    if (result.HasFailed())
        return result;
    sheet.name = parts.sheetName;
    std::vector<TextPool::Ref> strings;
    if (!parts.sharedStrings.isEmpty())
        result = ReadSharedStrings(zip, parts.sharedStrings, budget, sheet.texts, strings);
    return result.HasFailed() ? result : ReadXlsxSheet(zip, parts, strings, budget, sheet);
}

/// Explains a compound file in place of a ZIP file: the application puts a workbook with a password into a compound
/// file.
WorkbookResult ExplainCompoundFile(QByteArrayView file)
{
    const std::u16string_view name = u"EncryptedPackage";
    const bool isEncrypted = file.contains({reinterpret_cast<const char *>(name.data()), qsizetype(name.size() * 2)});
    return {WorkbookFault::NoWorkbook, isEncrypted ? QStringLiteral("it is protected by a password")
                                                   : QStringLiteral("it has an older format, such as .xls")};
}

} // namespace

WorkbookResult ReadXlsx(const QByteArray &file, Sheet &sheet)
{
    if (file.startsWith(QByteArrayView(COMPOUND_FILE.data(), qsizetype(COMPOUND_FILE.size()))))
        return ExplainCompoundFile(file);
    ZipFile zip;
    zip.StopWhen(sheet.stop);
    const WorkbookResult result = zip.Open(file);
    if (result.HasFailed())
        return result;
    TextBudget budget(file.size(), MEMORY_PER_BYTE);
    return ReadPackage(zip, budget, sheet);
}
