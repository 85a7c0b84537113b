// SPDX-License-Identifier: MIT
// ReadWorkbook and WriteWorkbook for a program: they load libmorvanite-workbook.so, which has the real functions. The
// libraries of the formats would cost the window's start, and every other command, some megabytes and milliseconds.

#include "WorkbookModule.h"

#include <dlfcn.h>

#include <filesystem>

namespace
{

const WorkbookFunctions *LoadFunctions()
{
    // The name that the program was called by isn't used, since the current folder changes with each project.
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    const std::filesystem::path path = program.parent_path() / "libmorvanite-workbook.so";
    void *const library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
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
            QStringLiteral("libmorvanite-workbook.so, which must be beside the program, can't be loaded")};
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
