// SPDX-License-Identifier: MIT
// The functions of Workbook.h, and ReadXliff, for a program: they load libmorvanite-workbook.so, which has the real
// functions. The libraries of the formats would cost the window's start, and every other command, some megabytes and
// milliseconds.

#include "Module.h"
#include "WorkbookModule.h"

namespace
{

const WorkbookFunctions *Functions()
{
    static const auto *const functions =
        static_cast<const WorkbookFunctions *>(SymbolOfModule("libmorvanite-workbook.so", WORKBOOK_FUNCTIONS));
    return functions;
}

QString WhyMissing()
{
    return QStringLiteral("libmorvanite-workbook.so, which must be beside the program, can't be loaded");
}

WorkbookResult Missing()
{
    return {WorkbookFault::NoWorkbook, WhyMissing()};
}

} // namespace

WorkbookResult ReadWorkbook(const QString &path, Sheet &sheet)
{
    return Functions() ? Functions()->read(path, sheet) : Missing();
}

WorkbookResult ReadWorkbookBytes(const QByteArray &bytes, const QString &extension, Sheet &sheet)
{
    return Functions() ? Functions()->readBytes(bytes, extension, sheet) : Missing();
}

WorkbookResult WriteWorkbook(const QString &path, ISheetSource &source)
{
    return Functions() ? Functions()->write(path, source) : Missing();
}

void ReadXliff(const QByteArray &file, ITranslationSink &sink)
{
    if (Functions())
        Functions()->readXliff(file, sink);
    else
        sink.Fault(0, {}, WhyMissing());
}
