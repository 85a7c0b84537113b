#include "Workbook.h"

#include "Formats.h"
#include "HostFiles.h"
#include "Paths.h"

#include <cstring>

namespace
{

constexpr qint64 LARGEST_FILE = qint64(256) << 20; // bytes

struct Format
{
    const char16_t *extension;
    WorkbookResult (*read)(QByteArrayView file, Sheet &sheet);
    WorkbookResult (*write)(ISheetSource &source, QByteArray &file);
};

constexpr Format FORMATS[] = {
    {u"xls", ReadXls, WriteXls},
    {u"xlsx", ReadXlsx, WriteXlsx},
    {u"csv", ReadCsv, WriteCsv},
};

const Format *FormatOf(const QString &path)
{
    const QString extension = ToLowerSimple(FileExtension(path));
    for (const Format &format : FORMATS) {
        if (extension == QStringView(format.extension))
            return &format;
    }
    return nullptr;
}

WorkbookResult NoFormat(const QString &path)
{
    return {WorkbookFault::NoWorkbook,
            path + QStringLiteral(": a workbook's name ends in .xls, .xlsx or .csv, which says what it is")};
}

WorkbookResult Failed(WorkbookFault fault, const QString &path, const QString &why)
{
    return {fault, path + QStringLiteral(": ") + why};
}

QString SystemText(int error)
{
    return QString::fromLocal8Bit(std::strerror(error));
}

} // namespace

WorkbookResult ReadWorkbook(const QString &path, Sheet &sheet)
{
    const Format *format = FormatOf(path);
    if (!format)
        return NoFormat(path);
    QByteArray bytes;
    if (const int error = ReadFile(path, bytes, LARGEST_FILE))
        return Failed(WorkbookFault::NoWorkbook, path, SystemText(error));
    const WorkbookResult result = format->read(bytes, sheet);
    if (result.HasFailed())
        return Failed(result.fault, path, result.reason);
    sheet.Finish();
    return result;
}

WorkbookResult WriteWorkbook(const QString &path, ISheetSource &source)
{
    const Format *format = FormatOf(path);
    if (!format)
        return NoFormat(path);
    QByteArray bytes;
    const WorkbookResult result = format->write(source, bytes);
    if (result.HasFailed())
        return Failed(result.fault, path, result.reason);
    if (const int error = WriteFileAtomically(path, bytes))
        return Failed(WorkbookFault::CannotWrite, path, SystemText(error));
    return result;
}
