// SPDX-License-Identifier: MIT
#pragma once

#include "ResFolder.h"

/// The number of resources of a folder and all folders in use below it.
struct ResourceCounts
{
    size_t audio = 0;
    size_t video = 0;
    size_t binary = 0;
    size_t images = 0;
    size_t layouts = 0;
    size_t strings = 0; ///< rows of the string table
    size_t languages = 0;

    [[nodiscard]] size_t Files() const { return audio + video + binary; }
    [[nodiscard]] size_t All() const { return Files() + images + layouts + strings; }
    bool operator==(const ResourceCounts &) const = default;
};

/// The running time depends on the number of resolutions and languages, not on the number of resources.
[[nodiscard]] ResourceCounts CountResources(const CResFolder &folder);

/// A project's counts as the window shows them, such as "67 resources, 40 of them strings in 3 languages".
[[nodiscard]] QString SummaryOf(const ResourceCounts &counts);
/// The same in short, for little room, such as "67 resources".
[[nodiscard]] QString ShortSummaryOf(const ResourceCounts &counts);

/// The line below a folder's name in the contents, such as "3 images"; empty for a folder without one.
[[nodiscard]] QString CountLineOf(const CResFolder &folder);

/// The text that the contents show if a folder has no subfolders: what the folder has, or that it is empty.
[[nodiscard]] QString HintOf(const CResFolder &folder);
