#include "morvanite_device.h"

#include "PayloadBuilder.h"
#include "ReadEverything.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

namespace
{

using Bytes = PayloadBuilder::Bytes;

/// A payload that stays open and alive for the test.
struct OpenPayload
{
    explicit OpenPayload(const Bytes &bytes, std::uint32_t base = 0) : memory(bytes)
    {
        EXPECT_EQ(morvanite_open(&payload, memory.Data(), memory.Size(), base), MORVANITE_OK);
    }

    Bytes Item(std::uint32_t key) const
    {
        morvanite_item item;
        EXPECT_EQ(morvanite_find_item(&payload, key, &item), MORVANITE_OK) << key;
        return Bytes(item.data, item.data + item.size);
    }

    Bytes Entry(const char *name) const
    {
        morvanite_entry entry;
        EXPECT_EQ(morvanite_find_entry(&payload, name, &entry), MORVANITE_OK) << name;
        return Bytes(entry.data, entry.data + entry.size);
    }

    std::u16string Text(std::uint32_t language, std::uint32_t id) const
    {
        morvanite_string string;
        EXPECT_EQ(morvanite_find_text(&payload, language, id, &string), MORVANITE_OK) << language << ' ' << id;
        std::u16string text;
        for (std::uint32_t i = 0; i < string.length; ++i)
            text.push_back(morvanite_string_unit(&string, i));
        return text;
    }

    ExactBytes memory;
    morvanite_payload payload;
};

PayloadBuilder SmallProject()
{
    return PayloadBuilder()
        .Entry("AppLogo.img", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10})
        .Entry("zep.preview_0", {0xA0})
        .Entry("zep.preview_1", {0xA1, 0xA2})
        .Entry("tune.mid", {})
        .Language(0, {{7, u"Hello"}, {3, u""}, {104000, u"d\u00FCnn"}})
        .Language(1, {})
        .Language(300, {{3, u"\u4F60\u597D"}})
        .Item(1, {0, 0, 0, 0, 0, 0, 0, 0, 'a', 'u', 'd', 'i', 'o'})
        .Item(103000, {9, 9, 9, 9});
}

/// `text` as the reader turns it into UTF-8, in just the room that it asked for.
std::string Utf8(const std::u16string &text)
{
    const OpenPayload open(PayloadBuilder().Language(0, {{1, text}}).Build());
    morvanite_string string;
    EXPECT_EQ(morvanite_find_text(&open.payload, 0, 1, &string), MORVANITE_OK);
    const std::uint32_t needed = morvanite_string_utf8(&string, nullptr, 0);
    std::string out(needed + 1, '?');
    EXPECT_EQ(morvanite_string_utf8(&string, out.data(), needed + 1), needed);
    EXPECT_EQ(out.back(), '\0');
    out.pop_back();
    return out;
}

void PutU32(Bytes &bytes, std::size_t at, std::uint32_t number)
{
    for (unsigned i = 0; i < 4; ++i)
        bytes.at(at + i) = static_cast<std::uint8_t>(number >> (8 * i));
}

} // namespace

TEST(DeviceReader, EverythingIsFoundWhateverTheBaseAndThePadding)
{
    for (const std::uint32_t base : {0U, 4096U, 12347U, 0xFFFF0000U}) {
        for (const bool padded : {true, false}) {
            SCOPED_TRACE(testing::Message() << base << (padded ? " padded" : " unpadded"));
            PayloadBuilder builder = SmallProject().Base(base);
            if (!padded)
                builder.Unpadded();
            const OpenPayload open(builder.Build(), base);

            EXPECT_EQ(open.Entry("AppLogo.img"), (Bytes{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
            EXPECT_EQ(open.Entry("zep.preview_1"), (Bytes{0xA1, 0xA2}));
            EXPECT_EQ(open.Entry("tune.mid"), Bytes());
            EXPECT_EQ(open.Item(1), (Bytes{0, 0, 0, 0, 0, 0, 0, 0, 'a', 'u', 'd', 'i', 'o', 0, 0, 0}));
            EXPECT_EQ(open.Item(103000), (Bytes{9, 9, 9, 9}));
            EXPECT_EQ(open.Text(0, 7), u"Hello");
            EXPECT_EQ(open.Text(0, 3), u"");
            EXPECT_EQ(open.Text(0, 104000), u"d\u00FCnn");
            EXPECT_EQ(open.Text(300, 3), u"\u4F60\u597D");
        }
    }
}

TEST(DeviceReader, WhatIsNotThereIsNotFound)
{
    const OpenPayload open(SmallProject().Build());
    morvanite_item item;
    morvanite_entry entry;
    morvanite_string string;
    morvanite_language language;

    EXPECT_EQ(morvanite_find_item(&open.payload, 0, &item), MORVANITE_NOT_FOUND);
    EXPECT_EQ(morvanite_find_item(&open.payload, PayloadBuilder::EndKey, &item), MORVANITE_NOT_FOUND);
    for (const char *name : {"", "AppLogo", "AppLogo.img2", "applogo.img"})
        EXPECT_EQ(morvanite_find_entry(&open.payload, name, &entry), MORVANITE_NOT_FOUND) << name;
    for (const std::uint32_t number : {2U, 0xFFFFU, 0x10000U, 0xFFFF0000U})
        EXPECT_EQ(morvanite_find_language(&open.payload, number, &language), MORVANITE_NOT_FOUND) << number;
    for (const std::uint32_t id : {0U, 8U, PayloadBuilder::EndKey})
        EXPECT_EQ(morvanite_find_text(&open.payload, 0, id, &string), MORVANITE_NOT_FOUND) << id;
    EXPECT_EQ(morvanite_find_text(&open.payload, 1, 7, &string), MORVANITE_NOT_FOUND);

    ASSERT_EQ(morvanite_find_item(&open.payload, 103000, &item), MORVANITE_OK);
    EXPECT_EQ(morvanite_open_language(&item, &language), MORVANITE_NOT_FOUND) << "an image is no language";
}

TEST(DeviceReader, WalksGiveEverythingInTheOrderOfThePayload)
{
    const OpenPayload open(SmallProject().Build());
    std::vector<std::string> names;
    morvanite_entry entry;
    std::uint32_t cursor = 0;
    while (morvanite_next_entry(&open.payload, &cursor, &entry) == MORVANITE_OK) {
        EXPECT_EQ(entry.name_length, std::strlen(entry.name));
        names.emplace_back(entry.name);
    }
    EXPECT_EQ(names,
              (std::vector<std::string>{"AppLogo.img", "zep.preview_0", "zep.preview_1", "tune.mid", "zep-2.0"}));
    EXPECT_EQ(morvanite_next_entry(&open.payload, &cursor, &entry), MORVANITE_NOT_FOUND) << "the end stays the end";
    cursor = 0xFFFFFFF0;
    EXPECT_EQ(morvanite_next_entry(&open.payload, &cursor, &entry), MORVANITE_DAMAGED) << "no cursor of ours";

    std::map<std::uint32_t, std::vector<std::uint32_t>> idsOfLanguage;
    std::vector<std::uint32_t> others;
    morvanite_item item;
    for (std::uint32_t i = 0; morvanite_item_at(&open.payload, i, &item) == MORVANITE_OK; ++i) {
        morvanite_language language;
        if (morvanite_open_language(&item, &language) != MORVANITE_OK) {
            others.push_back(item.key);
            continue;
        }
        auto &ids = idsOfLanguage[language.number];
        morvanite_string string;
        for (std::uint32_t j = 0; morvanite_string_at(&language, j, &string) == MORVANITE_OK; ++j)
            ids.push_back(string.id);
        EXPECT_EQ(ids.size(), language.strings.count);
    }
    const std::map<std::uint32_t, std::vector<std::uint32_t>> expected{{0, {7, 3, 104000}}, {1, {}}, {300, {3}}};
    EXPECT_EQ(idsOfLanguage, expected);
    EXPECT_EQ(others, (std::vector<std::uint32_t>{1, 103000}));
}

TEST(DeviceReader, TheFirstOfEqualNamesAndKeysIsFoundWithAndWithoutAnIndex)
{
    OpenPayload open(PayloadBuilder()
                         .Entry("a", {1})
                         .Entry("a", {2})
                         .Item(5, {1})
                         .Item(0, {2})
                         .Item(5, {3})
                         .Item(0, {4})
                         .Language(0, {{9, u"first"}, {0, u"zero"}, {9, u"second"}})
                         .Language(0, {{9, u"other"}})
                         .Build());
    std::uint32_t order[6];
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(open.Entry("a"), (Bytes{1}));
        EXPECT_EQ(open.Item(5), (Bytes{1, 0, 0, 0}));
        EXPECT_EQ(open.Item(0), (Bytes{2, 0, 0, 0}));
        EXPECT_EQ(open.Text(0, 9), u"first");
        EXPECT_EQ(open.Text(0, 0), u"zero");
        ASSERT_EQ(morvanite_make_index(&open.payload.items, order, 6), MORVANITE_OK);
    }
}

TEST(DeviceReader, AnIndexFindsWhatAWalkFinds)
{
    std::mt19937 generator(7);
    const auto random = [&generator] { return static_cast<std::uint32_t>(generator()); };
    for (int round = 0; round < 300; ++round) {
        SCOPED_TRACE(round);
        const std::uint32_t count = random() % 70;
        const std::uint32_t range = 1 + random() % 100; // a small one gives duplicates
        PayloadBuilder builder;
        PayloadBuilder::Strings strings;
        for (std::uint32_t i = 0; i < count; ++i) {
            builder.Item(random() % range, Bytes(random() % 9, static_cast<std::uint8_t>(i)));
            strings.emplace_back(random() % range, std::u16string(random() % 4, static_cast<char16_t>(0x41 + i)));
        }
        const OpenPayload open(builder.Language(4, strings).Build());

        morvanite_payload indexed = open.payload;
        std::vector<std::uint32_t> order(indexed.items.count);
        EXPECT_EQ(morvanite_make_index(&indexed.items, order.data(), count), MORVANITE_NO_ROOM);
        ASSERT_EQ(morvanite_make_index(&indexed.items, order.data(), count + 1), MORVANITE_OK);
        std::vector<std::uint32_t> positions = order;
        std::sort(positions.begin(), positions.end());
        for (std::uint32_t i = 0; i <= count; ++i)
            ASSERT_EQ(positions[i], i) << "every position stands once";

        morvanite_language walked;
        ASSERT_EQ(morvanite_find_language(&indexed, 4, &walked), MORVANITE_OK);
        morvanite_language sorted = walked;
        std::vector<std::uint32_t> stringOrder(count);
        ASSERT_EQ(morvanite_make_index(&sorted.strings, stringOrder.data(), count), MORVANITE_OK);
        for (std::uint32_t key = 0; key <= range; ++key) {
            morvanite_item left{};
            morvanite_item right{};
            EXPECT_EQ(morvanite_find_item(&open.payload, key, &left), morvanite_find_item(&indexed, key, &right));
            EXPECT_EQ(left.data, right.data);
            EXPECT_EQ(left.size, right.size);
            morvanite_string leftText{};
            morvanite_string rightText{};
            EXPECT_EQ(morvanite_find_string(&walked, key, &leftText), morvanite_find_string(&sorted, key, &rightText));
            EXPECT_EQ(leftText.units, rightText.units);
        }
    }
}

TEST(DeviceReader, Utf16BecomesUtf8)
{
    EXPECT_EQ(Utf8(u""), "");
    EXPECT_EQ(Utf8(u"a\u007F\u0080\u07FF\u0800\uFFFF"), "a\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF");
    EXPECT_EQ(Utf8(u"\U00010000\U0001F600\U0010FFFF"), "\xF0\x90\x80\x80\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF");
    EXPECT_EQ(Utf8({0xD83D, u'x'}), "\xEF\xBF\xBDx");
    EXPECT_EQ(Utf8({0xD83D, 0xE000}), "\xEF\xBF\xBD\xEE\x80\x80");
    EXPECT_EQ(Utf8({0xDC00, 0xDC00}), "\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(Utf8({0xDE00, 0xD83D}), "\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(Utf8({0xD83D, 0xD83D, 0xDE00}), "\xEF\xBF\xBD\xF0\x9F\x98\x80");
}

TEST(DeviceReader, Utf8IsCutBehindAWholeCharacterAndNeverWritesBehindTheRoom)
{
    const std::string whole = "a\xC3\xBC\xE4\xBD\xA0\xF0\x9F\x98\x80z";
    const OpenPayload open(PayloadBuilder().Language(0, {{1, u"a\u00FC\u4F60\U0001F600z"}}).Build());
    morvanite_string string;
    ASSERT_EQ(morvanite_find_text(&open.payload, 0, 1, &string), MORVANITE_OK);
    for (std::uint32_t room = 0; room <= whole.size() + 2; ++room) {
        SCOPED_TRACE(room);
        std::string buffer(room + 1, '#');
        EXPECT_EQ(morvanite_string_utf8(&string, buffer.data(), room), whole.size());
        EXPECT_EQ(buffer[room], '#');
        std::size_t fits = 0;
        for (const std::size_t end : {1U, 3U, 6U, 10U, 11U})
            if (end < room)
                fits = end;
        if (room > 0) {
            EXPECT_STREQ(buffer.c_str(), whole.substr(0, fits).c_str());
        }
    }
}

TEST(DeviceReader, EveryCutIsSurvivedAndNoCutDirectoryIsOpened)
{
    const Bytes whole = SmallProject().Build();
    Reading all;
    ASSERT_EQ(ReadEverything(ExactBytes(whole), 0, all), MORVANITE_OK);
    EXPECT_EQ(all.damaged, 0U);
    EXPECT_EQ(all.items, 5U);
    EXPECT_EQ(all.strings, 4U);
    const OpenPayload open(whole);
    const std::size_t table = static_cast<std::size_t>(open.payload.items.pairs - open.memory.Data());
    for (std::size_t size = 0; size < whole.size(); ++size) {
        SCOPED_TRACE(size);
        Reading reading;
        const morvanite_result result = ReadEverything(
            ExactBytes(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size))), 0, reading);
        EXPECT_EQ(result, size < table + 8 * 6 ? MORVANITE_DAMAGED : MORVANITE_OK);
        EXPECT_TRUE(result != MORVANITE_OK || reading.damaged > 0) << "the last item is cut";
        EXPECT_TRUE(reading.indexAgrees);
    }
}

TEST(DeviceReader, EveryDamagedByteIsSurvived)
{
    for (const std::uint32_t base : {0U, 1001U}) {
        const Bytes whole = SmallProject().Base(base).Build();
        for (std::size_t at = 0; at < whole.size(); ++at) {
            for (int value = 0; value < 256; ++value) {
                Bytes bytes = whole;
                bytes[at] = static_cast<std::uint8_t>(value);
                Reading reading;
                ReadEverything(ExactBytes(bytes), base, reading);
                ASSERT_TRUE(reading.indexAgrees) << at << ' ' << value;
            }
        }
    }
}

TEST(DeviceReader, HardNumbersAnywhereAreSurvived)
{
    const Bytes whole = SmallProject().Build();
    const auto size = static_cast<std::uint32_t>(whole.size());
    const std::vector<std::uint32_t> hard{0,          1,          4,          size - 4,   size,      0x7FFFFFFF,
                                          0x80000000, 0xFFFFFFFC, 0xFFFFFFFD, 0xFFFFFFFE, 0xFFFFFFFF};
    std::mt19937 generator(11);
    const auto random = [&generator] { return static_cast<std::uint32_t>(generator()); };
    for (int round = 0; round < 20000; ++round) {
        Bytes bytes = whole;
        for (auto damages = 1 + random() % 3; damages > 0; --damages)
            PutU32(bytes, random() % (size - 3), hard[random() % hard.size()]);
        Reading reading;
        ReadEverything(ExactBytes(bytes), random() % 2 ? 0 : hard[random() % hard.size()], reading);
        ASSERT_TRUE(reading.indexAgrees) << round;
    }
}

TEST(DeviceReader, OnlyTheDamagedItemIsLost)
{
    const Bytes whole = PayloadBuilder().Item(1, {1}).Item(2, {2}).Item(3, {3}).Build();
    const std::size_t table = whole.size() - 3 * 4 - 4 * 8;
    const auto items = static_cast<std::uint32_t>(table + 4 * 8);
    for (const std::uint32_t offset : {items + 9, items + 100, 0xFFFFFFFFU}) {
        SCOPED_TRACE(offset);
        Bytes bytes = whole;
        PutU32(bytes, table + 8 + 4, offset); // of item 2
        const OpenPayload open(bytes);
        morvanite_item item;
        EXPECT_EQ(morvanite_find_item(&open.payload, 2, &item), MORVANITE_DAMAGED);
        EXPECT_EQ(item.data, nullptr);
        EXPECT_EQ(item.size, 0U);
        EXPECT_EQ(open.Item(3), (Bytes{3, 0, 0, 0}));
    }
}

TEST(DeviceReader, OffsetsThatWrapRoundAreDamaged)
{
    // Of the payload of 120 bytes the last 20 would lie behind what 32 bits can count.
    const std::uint32_t base = 0xFFFFFFFF - 99;
    const OpenPayload open(PayloadBuilder().Item(1, Bytes(64)).Item(2, {1}).Base(base).Build(), base);
    ASSERT_EQ(open.memory.Size(), 120U);
    morvanite_item item;
    EXPECT_EQ(morvanite_find_item(&open.payload, 1, &item), MORVANITE_DAMAGED);
    EXPECT_EQ(morvanite_find_item(&open.payload, 2, &item), MORVANITE_DAMAGED);
}

TEST(DeviceReader, BehindAStringThereAreOnlyZeroUnits)
{
    const OpenPayload open(PayloadBuilder().Language(0, {{1, u"ab"}}).Build());
    morvanite_string string;
    ASSERT_EQ(morvanite_find_text(&open.payload, 0, 1, &string), MORVANITE_OK);
    EXPECT_EQ(morvanite_string_unit(&string, 1), u'b');
    for (const std::uint32_t i : {2U, 3U, 1000U, 0x80000000U, 0xFFFFFFFFU})
        EXPECT_EQ(morvanite_string_unit(&string, i), 0) << i;
}

TEST(DeviceReader, ADirectoryThatDoesNotLeadToAWholeTableIsRefused)
{
    const Bytes whole = PayloadBuilder().Item(1, {1}).Build(); // "zep-2.0" 28, 16; "" 28, 0; pad; the table at 28
    ASSERT_EQ(OpenPayload(whole).payload.items.count, 1U);
    const std::vector<std::pair<std::size_t, std::uint32_t>> damages{
        {8, 29}, {8, 0}, {8, 0xFFFFFFF8}, {12, 15}, {12, 0}, {12, 0xFFFFFFFF}, {36, 0}, {0, 0x2D7A6570}};
    for (const auto &[at, number] : damages) {
        SCOPED_TRACE(testing::Message() << at << ' ' << number);
        Bytes bytes = whole;
        PutU32(bytes, at, number);
        const ExactBytes memory(bytes);
        morvanite_payload payload;
        EXPECT_EQ(morvanite_open(&payload, memory.Data(), memory.Size(), 0), MORVANITE_DAMAGED);
        morvanite_item item;
        morvanite_entry entry;
        EXPECT_EQ(morvanite_find_item(&payload, 1, &item), MORVANITE_NOT_FOUND);
        EXPECT_EQ(morvanite_find_entry(&payload, "zep-2.0", &entry), MORVANITE_NOT_FOUND);
    }
    morvanite_payload payload;
    EXPECT_EQ(morvanite_open(&payload, whole.data(), static_cast<std::uint32_t>(whole.size()), 28), MORVANITE_DAMAGED);
    EXPECT_EQ(morvanite_open(&payload, nullptr, 0, 0), MORVANITE_DAMAGED);
}

TEST(DeviceReader, ADamagedEntryDoesNotHideTheOthers)
{
    Bytes bytes = PayloadBuilder().Entry("one", {1}).Entry("two", {2}).Build();
    PutU32(bytes, 8, 0x10000); // the size of "one"
    const OpenPayload open(bytes);
    morvanite_entry entry;
    EXPECT_EQ(morvanite_find_entry(&open.payload, "one", &entry), MORVANITE_DAMAGED);
    EXPECT_EQ(entry.data, nullptr);
    EXPECT_EQ(open.Entry("two"), (Bytes{2}));
}

TEST(DeviceReader, AStringTableMustFitItsItemAndHoldItsStrings)
{
    // count 2; (5, 20); (end, 28); "ab", a zero unit, two zero bytes
    const Bytes table = PayloadBuilder::StringTable({{5, u"ab"}});
    const auto find = [](Bytes bytes) {
        const OpenPayload open(PayloadBuilder().Item(0xFFFF0000, std::move(bytes)).Item(1, Bytes(64)).Build());
        morvanite_string string;
        return morvanite_find_text(&open.payload, 0, 5, &string);
    };
    ASSERT_EQ(find(table), MORVANITE_OK);

    const std::vector<std::pair<std::size_t, std::uint32_t>> damages{
        {0, 0},  {0, 1},   {0, 3},          {0, 0x20000002}, {0, 0xFFFFFFFF}, {4, 0xFFFFFFFF},
        {12, 6}, {16, 32}, {16, 0xFFFFFFF}, {16, 4},         {8, 0},          {8, 18},
        {8, 28}, {8, 27},  {8, 0xFFFFFFFE}, {24, 0x00010001}};
    for (const auto &[at, number] : damages) {
        Bytes bytes = table;
        PutU32(bytes, at, number);
        EXPECT_EQ(find(bytes), MORVANITE_DAMAGED) << at << ' ' << number;
    }
    EXPECT_EQ(find({}), MORVANITE_DAMAGED);
    EXPECT_EQ(find({1, 0, 0, 0}), MORVANITE_DAMAGED);
}

TEST(DeviceReader, AnAppendedPayloadIsFoundByTheEndOfTheFile)
{
    for (const std::size_t size : {0U, 1U, 64U, 1001U}) {
        SCOPED_TRACE(size);
        const auto base = static_cast<std::uint32_t>(size + 8);
        const Bytes payload = SmallProject().Unpadded().Base(base).Build();
        const Bytes file = PayloadBuilder::AppendedTo(Bytes(size, 0x5A), payload);
        const ExactBytes memory(file);
        const std::uint8_t *found = nullptr;
        std::uint32_t foundSize = 0;
        std::uint32_t foundBase = 0;
        ASSERT_EQ(morvanite_find_appended(memory.Data(), memory.Size(), &found, &foundSize, &foundBase), MORVANITE_OK);
        EXPECT_EQ(Bytes(found, found + foundSize), payload);
        EXPECT_EQ(foundBase, base);
        morvanite_payload open;
        EXPECT_EQ(morvanite_open(&open, found, foundSize, foundBase), MORVANITE_OK);

        for (std::size_t cut = 0; cut < file.size(); cut += 1 + cut / 40) {
            const ExactBytes shorter(Bytes(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(cut)));
            // An end of zero bytes may point at the magic of a file that was empty before.
            if (morvanite_find_appended(shorter.Data(), shorter.Size(), &found, &foundSize, &foundBase) ==
                MORVANITE_OK) {
                EXPECT_LE(found - shorter.Data() + std::ptrdiff_t{foundSize}, std::ptrdiff_t{shorter.Size()}) << cut;
            }
        }
        for (const std::uint32_t end :
             {0x7FFFFFFFU, 0xFFFFFFF4U, 0xFFFFFFFFU, static_cast<std::uint32_t>(file.size())}) {
            Bytes damaged = file;
            PutU32(damaged, file.size() - 4, end);
            const ExactBytes wrong(damaged);
            EXPECT_EQ(morvanite_find_appended(wrong.Data(), wrong.Size(), &found, &foundSize, &foundBase),
                      MORVANITE_NOT_FOUND)
                << end;
        }
    }
}

TEST(DeviceReader, AMagicThatReachesIntoTheTrailerIsNone)
{
    Bytes file(256);
    for (const char c : {'.', 'z', 'p', '_', 'r', 'e', 's'})
        file.push_back(static_cast<std::uint8_t>(c));
    PayloadBuilder::AppendU32(file, 256); // its first byte is the zero that the magic ends with
    const ExactBytes memory(file);
    const std::uint8_t *found = nullptr;
    std::uint32_t size = 0;
    std::uint32_t base = 0;
    EXPECT_EQ(morvanite_find_appended(memory.Data(), memory.Size(), &found, &size, &base), MORVANITE_NOT_FOUND);
}
