// SPDX-License-Identifier: MIT
#include "Module.h"

#include <dlfcn.h>

#include <filesystem>

void *SymbolOfModule(const char *module, const char *symbol)
{
    // The name that the program was called by isn't used, since the current folder changes with each project.
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    const std::filesystem::path path = program.parent_path() / module;
    void *const library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    return library ? dlsym(library, symbol) : nullptr;
}
