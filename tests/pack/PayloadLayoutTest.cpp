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

TEST(PackImage, HasRoomForALongDirectoryBeforeTheData)
{
    for (const size_t frontRoom : {0, 1, 40, 4096}) {
        PayloadBuffer memory(frontRoom);
        PackImage image(memory, EntryPadding::None);
        PayloadBuilder expected;
        for (int n = 0; n < 300; ++n) {
            const QByteArray text = "text " + QByteArray::number(n);
            memcpy(image.EntryData(image.AddEntry(text), quint64(text.size())), text.constData(), size_t(text.size()));
            expected.Entry(text.toStdString(), ToBytes(text));
        }
        image.BeginBlock();
        image.EndBlock();
        image.base = 8;
        ASSERT_TRUE(image.LayOut());
        EXPECT_EQ(image.Serialise("a prefix").toByteArray(), "a prefix" + BytesOf(expected.Unpadded().Base(8).Build()));
    }
}

TEST(PayloadBuffer, GrowsWithoutLosingAByteAndStopsAt32Bits)
{
    PayloadBuffer buffer;
    constexpr qint64 PIECE = 20 << 20;
    for (char n = 0; n < 5; ++n)
        *buffer.Append(PIECE) = n;
    for (char n = 0; n < 5; ++n)
        EXPECT_EQ(*buffer.At(n * PIECE), n);
    EXPECT_FALSE(buffer.Append((quint64(1) << 32) - 1) || buffer.Append(~quint64(0)));
    EXPECT_TRUE(buffer.Append(1));
}
