// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

class CResModel;
class CStringRes;

/// Returns the rows of a project's string table, in its order: their records in the Description folder.
[[nodiscard]] std::vector<const CStringRes *> StringRowsOf(const CResModel &model);
