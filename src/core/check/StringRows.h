// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

class CResModel;
class CStringRes;
class TextContext;

/// A row of the string table.
struct StringRow
{
    const CStringRes *head; ///< its record in the Description folder
    size_t sourceHash = 0;  ///< a hash of its source text, which isn't the same on all machines
};

/// Returns the rows of a project's string table, in its order, without the hashes.
[[nodiscard]] std::vector<StringRow> StringRowsOf(const CResModel &model);

/// Returns those rows that have the same hash as another one, in their order.
[[nodiscard]] std::vector<const CStringRes *> RowsWithEqualSource(const std::vector<StringRow> &rows);

/// Returns the rows of a project's string table whose source texts another row has too, in its order, and perhaps a few
/// others.
[[nodiscard]] std::vector<const CStringRes *> RowsWithEqualSource(const CResModel &model, const TextContext &context);
