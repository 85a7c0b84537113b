// SPDX-License-Identifier: MIT
#pragma once

#include <dlfcn.h>

#include <filesystem>

/// Loads a library that is beside the program and returns the address of its symbol; null if that fails.
inline const void *SymbolOfModule(const char *libraryName, const char *symbol)
{
    // The name that the program was called by isn't used, since the current folder changes with each project.
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    const std::filesystem::path path = program.parent_path() / libraryName;
    void *const library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    return library ? dlsym(library, symbol) : nullptr;
}
