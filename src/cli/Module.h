// SPDX-License-Identifier: MIT
#pragma once

/// Loads a module, a library in the program's folder, and returns the address of a symbol in it. Returns null if the
/// module or the symbol is missing. The module stays loaded.
[[nodiscard]] void *SymbolOfModule(const char *module, const char *symbol);
