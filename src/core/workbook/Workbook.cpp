// SPDX-License-Identifier: MIT
#include "Workbook.h"

#include "FileReplacement.h"
#include "Formats.h"
#include "Paths.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <unistd.h>
#include <utility>

namespace
{

constexpr qint64 LARGEST_FILE = qint64(256) << 20; // bytes

struct Format
{
    const char16_t *extension;
    WorkbookResult (*read)(const QByteArray &file, Sheet &sheet);
    WorkbookResult (*write)(ISheetSource &source, std::FILE *file);
};

constexpr Format FORMATS[] = {
    {u"xls", ReadXls, WriteXls},
    {u"xlsx", ReadXlsx, WriteXlsx},
    {u"csv", ReadCsv, WriteCsv},
};

const Format *FormatOfExtension(const QString &extension)
{
    for (const Format &format : FORMATS) {
        if (ToLowerSimple(extension) == QStringView(format.extension))
            return &format;
    }
    return nullptr;
}

const Format *FormatOf(const QString &path)
{
    return FormatOfExtension(FileExtension(path));
}

WorkbookResult NoFormat(const QString &name)
{
    return {WorkbookFault::NoWorkbook,
            name + QStringLiteral(": the name of a workbook must end in .xls, .xlsx or .csv, and that of a "
                                  "translation file in .po or .xlf")};
}

WorkbookResult Failed(WorkbookFault fault, const QString &path, const QString &why)
{
    return {fault, path + QStringLiteral(": ") + why};
}

QString SystemText(int error)
{
    return QString::fromLocal8Bit(std::strerror(error));
}

struct CloseFile
{
    void operator()(std::FILE *file) const { std::fclose(file); }
};

WorkbookResult WriteTo(const FileHandle &handle, const Format &format, ISheetSource &source)
{
    const std::unique_ptr<std::FILE, CloseFile> file(fdopen(dup(handle.Get()), "wb"));
    if (!file)
        return {WorkbookFault::CannotWrite, SystemText(errno)};
    const WorkbookResult result = format.write(source, file.get());
    if (result.fault != WorkbookFault::None && result.fault != WorkbookFault::CannotWrite)
        return result;
    // An earlier failure repeats here, except when the disk has room again: then errno is lost, but ferror still tells.
    if (std::fflush(file.get()) != 0)
        return {WorkbookFault::CannotWrite, SystemText(errno)};
    return std::ferror(file.get()) ? WorkbookResult{WorkbookFault::CannotWrite, SystemText(EIO)} : result;
}

} // namespace

WorkbookResult ReadWorkbook(const QString &path, Sheet &sheet)
{
    if (!FormatOf(path))
        return NoFormat(path);
    QByteArray bytes;
    if (const int error = ReadFile(path, bytes, LARGEST_FILE))
        return Failed(WorkbookFault::NoWorkbook, path, SystemText(error));
    const WorkbookResult result = ReadWorkbookBytes(bytes, FileExtension(path), sheet);
    return result.HasFailed() ? Failed(result.fault, path, result.reason) : result;
}

WorkbookResult ReadWorkbookBytes(const QByteArray &bytes, const QString &extension, Sheet &sheet)
{
    const Format *const format = FormatOfExtension(extension);
    if (!format)
        return NoFormat(extension);
    WorkbookResult result = format->read(bytes, sheet);
    if (!result.HasFailed())
        sheet.Finish();
    return result;
}

WorkbookResult WriteWorkbook(const QString &path, ISheetSource &source)
{
    const Format *format = FormatOf(path);
    if (!format)
        return NoFormat(path);
    FileReplacement file;
    if (const int error = file.Begin(path, IfDevice::WriteThrough))
        return Failed(WorkbookFault::CannotWrite, path, SystemText(error));
    const WorkbookResult result = WriteTo(file.Handle(), *format, source);
    if (result.HasFailed())
        return Failed(result.fault, path, result.reason);
    int error = file.Finish();
    if (error == 0)
        error = file.PutInPlace();
    if (error != 0)
        return Failed(WorkbookFault::CannotWrite, path, SystemText(error));
    SyncFolder(file.Folder());
    return {};
}
