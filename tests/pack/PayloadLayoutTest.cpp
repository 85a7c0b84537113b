#include "PackImage.h"

#include "PackProject.h"

namespace
{

PackEntry Entry(const char *name, quint32 size, quint32 padded)
{
    PackEntry entry;
    entry.name = name;
    entry.size = size;
    entry.paddedSize = padded;
    return entry;
}

std::vector<PackEntry> EntriesAround(const PackEntry &first)
{
    std::vector<PackEntry> entries = {first, Entry(BLOCK_NAME, 0, 0), Entry("", 0, 0)};
    entries[1].isBlock = true;
    return entries;
}

TEST(LayOutPayload, PlacesEntriesTableAndItemsBehindTheDirectory)
{
    auto entries = EntriesAround(Entry("AppLogo.img", 10, 12));
    std::vector<BlockItem> items(3);
    items[0].size = 28;
    items[1].size = 16;
    const auto layout = LayOutPayload(entries, items, 1000);
    ASSERT_TRUE(layout);
    EXPECT_EQ(layout->directory, 48U);
    EXPECT_EQ(layout->tableOffset, 1060U);
    EXPECT_EQ(layout->Total(), 128U);
    EXPECT_EQ(entries[0].offset, 1048U);
    EXPECT_EQ(entries[1].offset, 1060U);
    EXPECT_EQ(entries[1].size, 24U);
    EXPECT_EQ(entries[2].offset, 1060U);
    EXPECT_EQ(items[0].offset, 1084U);
    EXPECT_EQ(items[1].offset, 1112U);
    EXPECT_EQ(items[2].offset, 1128U);
}

TEST(LayOutPayload, RefusesOffsetsBeyond32Bits)
{
    auto entries = EntriesAround(Entry("a", 0, 0));
    std::vector<BlockItem> items(2);
    items[0].size = 0xFFFFFFFC - 52; // directory of 36 bytes and table of 16
    EXPECT_TRUE(LayOutPayload(entries, items, 0));
    EXPECT_FALSE(LayOutPayload(entries, items, 4));
    items.resize(3);
    items[1].size = 0xFFFFFFFC;
    EXPECT_FALSE(LayOutPayload(entries, items, 0)) << "a sum that wraps in 32 bits";
}

TEST(PackImage, FindsRoomForALongDirectoryInFrontOfItsData)
{
    for (const size_t frontRoom : {0, 1, 40, 4096}) {
        SCOPED_TRACE(frontRoom);
        PayloadBuffer memory(frontRoom);
        for (int run = 0; run < 2; ++run) {
            PackImage image(memory, EntryPadding::None);
            PayloadBuilder expected;
            expected.Unpadded().Base(8);
            for (int n = 0; n < 300; ++n) {
                const QByteArray text = "text " + QByteArray::number(n);
                char *place = image.EntryData(image.AddEntry(text), quint64(text.size()));
                ASSERT_TRUE(place);
                memcpy(place, text.constData(), size_t(text.size()));
                expected.Entry(text.toStdString(), ToBytes(text));
            }
            image.BeginBlock();
            image.AddItem(7, ITEM_FILE);
            char *place = image.ExtendItem(5);
            ASSERT_TRUE(place);
            memcpy(place, "bytes", 5);
            ASSERT_TRUE(image.PadItem());
            expected.Item(7, ToBytes("bytes"));
            image.EndBlock();
            image.base = 8;
            ASSERT_TRUE(image.LayOut());
            EXPECT_EQ(image.Serialise("a prefix").toByteArray(), "a prefix" + BytesOf(expected));
        }
    }
}

TEST(PayloadBuffer, GrowsWithoutLosingAByteAndStopsAt32Bits)
{
    PayloadBuffer buffer;
    constexpr qint64 PIECE = 20 << 20;
    for (int n = 0; n < 5; ++n) {
        char *place = buffer.Append(PIECE);
        ASSERT_TRUE(place);
        *place = char('a' + n);
    }
    for (int n = 0; n < 5; ++n)
        EXPECT_EQ(*buffer.At(n * PIECE), char('a' + n));
    EXPECT_FALSE(buffer.Append((quint64(1) << 32) - 1));
    EXPECT_FALSE(buffer.Append(~quint64(0)));
    EXPECT_TRUE(buffer.Append(1));
}

} // namespace
