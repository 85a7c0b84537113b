// SPDX-License-Identifier: MIT
#include "PackImage.h"

#include "PackProject.h"

TEST(LayOutPayload, RefusesOffsetsBeyond32Bits)
{
    std::vector<PackEntry> entries(2);
    entries[0].name = BLOCK_NAME;
    entries[0].isBlock = true;
    std::vector<BlockItem> items(2);
    items[0].size = 0xFFFFFFFC - 44; // directory of 28 bytes and table of 16
    EXPECT_TRUE(LayOutPayload(entries, items, 0));
    EXPECT_FALSE(LayOutPayload(entries, items, 4));
    items.resize(3);
    items[1].size = 0xFFFFFFFC;
    EXPECT_FALSE(LayOutPayload(entries, items, 0)) << "a sum that wraps in 32 bits";
}
