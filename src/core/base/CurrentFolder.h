// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// Returns the current folder of the process; empty if it is gone.
[[nodiscard]] std::string CurrentFolderBytes();
