#pragma once

#include "ResFolder.h"

/// How many resources a folder has, with all folders in use below it.
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

/// Takes time in the number of resolutions and languages, not in that of resources.
[[nodiscard]] ResourceCounts CountResources(const CResFolder &folder);

/// What the window shows of a project's counts, such as "67 resources, 40 of them strings in 3 languages".
[[nodiscard]] QString SummaryOf(const ResourceCounts &counts);
/// The same where there is little room, such as "67 resources".
[[nodiscard]] QString ShortSummaryOf(const ResourceCounts &counts);

/// The line below a folder's name in the contents, such as "3 images"; empty for a folder without one.
[[nodiscard]] QString CountLineOf(const CResFolder &folder);

/// What the contents show in the place of a folder's subfolders when it has none: what it holds, or that it is empty.
[[nodiscard]] QString HintOf(const CResFolder &folder);
