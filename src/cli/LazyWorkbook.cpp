// The commands' own ReadWorkbook and WriteWorkbook: they load libmorvanite-workbook.so, which has the real ones. What
// the formats are built on would cost every other command some megabytes and milliseconds.

#include "WorkbookModule.h"

#include <QByteArray>

#include <dlfcn.h>

namespace
{

const WorkbookFunctions *LoadFunctions()
{
    Dl_info here;
    if (dladdr(WORKBOOK_FUNCTIONS, &here) == 0)
        return nullptr;
    QByteArray path = here.dli_fname;
    path = path.left(path.lastIndexOf('/') + 1) + "libmorvanite-workbook.so";
    void *const library = dlopen(path.constData(), RTLD_NOW | RTLD_LOCAL);
    return library ? static_cast<const WorkbookFunctions *>(dlsym(library, WORKBOOK_FUNCTIONS)) : nullptr;
}

const WorkbookFunctions *Functions()
{
    static const WorkbookFunctions *const functions = LoadFunctions();
    return functions;
}

WorkbookResult Missing()
{
    return {WorkbookFault::NoWorkbook,
            QStringLiteral("libmorvanite-workbook.so, which must lie beside the program, can't be loaded")};
}

} // namespace

WorkbookResult ReadWorkbook(const QString &path, Sheet &sheet)
{
    return Functions() ? Functions()->read(path, sheet) : Missing();
}

WorkbookResult WriteWorkbook(const QString &path, ISheetSource &source)
{
    return Functions() ? Functions()->write(path, source) : Missing();
}
