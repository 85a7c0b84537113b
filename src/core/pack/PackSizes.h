// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

class Environment;
class PackImage;

/// A resource and the bytes that it takes in a payload, with its padding.
struct PackedSize
{
    QString name; ///< the ID, the name of a file of the directory, or "language N"
    quint64 bytes = 0;
};

/// Returns at most `most` resources of a payload, the largest first.
[[nodiscard]] std::vector<PackedSize> LargestResources(const PackImage &image, const Environment &env, size_t most);

/// Says that a payload is larger than its budget, and by how much; empty if it isn't. Both are in bytes; a budget of 0
/// is none.
[[nodiscard]] QString OverBudgetText(quint64 payload, quint64 budget);

/// How many resources a message about a budget names.
inline constexpr size_t LARGEST_NAMED = 10;

/// A line for each resource: its bytes, right-aligned, and its name. Each line has a line end before it.
[[nodiscard]] QString SizeLines(const std::vector<PackedSize> &sizes);
