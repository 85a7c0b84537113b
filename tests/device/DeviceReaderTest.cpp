// SPDX-License-Identifier: MIT
#include "morvanite_device.h"

#include "PayloadBuilder.h"
#include "ReadEverything.h"

#include <gmock/gmock.h>
#include <rapidcheck.h>

#include <algorithm>
#include <tuple>

using namespace std::string_literals;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

namespace
{

using Bytes = PayloadBuilder::Bytes;

PayloadBuilder SmallProject()
{
    return PayloadBuilder()
        .Entry("AppLogo.img", "0123456789")
        .Entry("tune.mid", "")
        .Entry("tune.mid", "later")
        .Language(0, {{7, u"Hello"}, {3, u""}, {104000, u"d\u00FCnn"}, {7, u"later"}})
        .Language(300, {})
        .Item(1, "audio")
        .Item(103000, "pict")
        .Item(1, "more");
}

Bytes WithU32(Bytes bytes, std::size_t at, std::size_t number)
{
    return bytes.replace(at, 4, PayloadBuilder::U32({number}));
}

} // namespace

TEST(DeviceReader, FindsEverythingInOrderWithAnyBaseAndPadding)
{
    for (const std::uint32_t base : {0U, 4096U, 12347U, 0xFFFF0000U}) {
        SCOPED_TRACE(base);
        for (const PayloadBuilder &project : {SmallProject(), SmallProject().Unpadded()}) {
            const std::string all = ReadEverything(PayloadBuilder(project).Base(base).Build(), base);
            EXPECT_THAT(all, StartsWith("AppLogo.img 0123456789\ntune.mid \ntune.mid later\nzep-2.0 \0\0\xFF\xFF"s));
            EXPECT_THAT(all, EndsWith("\n4294901760 language 0\n7 Hello\n3 \n104000 d\u00FCnn\n7 later\n"
                                      "4294902060 language 300\n1 audio\0\0\0\n103000 pict\n1 more\n"s));
        }
    }
}

TEST(DeviceReader, DoesNotFindMissingResources)
{
    const ExactBytes memory(SmallProject().Build());
    morvanite_payload payload;
    ASSERT_EQ(morvanite_open(&payload, memory.Data(), memory.Size(), 0), MORVANITE_OK);
    morvanite_entry entry;
    morvanite_item item;
    morvanite_string string;
    for (const char *name : {"", "AppLogo", "AppLogo.img2", "applogo.img"})
        EXPECT_EQ(morvanite_find_entry(&payload, name, &entry), MORVANITE_NOT_FOUND) << name;
    ASSERT_EQ(morvanite_find_entry(&payload, "tune.mid", &entry), MORVANITE_OK);
    EXPECT_EQ(entry.size, 0U) << "the first of two";
    EXPECT_EQ(morvanite_find_item(&payload, PayloadBuilder::EndKey, &item), MORVANITE_NOT_FOUND);
    for (const std::uint32_t language : {2U, 0xFFFFU, 0x10000U, 0xFFFF0000U})
        EXPECT_EQ(morvanite_find_text(&payload, language, 7, &string), MORVANITE_NOT_FOUND) << language;
    EXPECT_EQ(morvanite_find_text(&payload, 0, PayloadBuilder::EndKey, &string), MORVANITE_NOT_FOUND);
    std::uint32_t cursor = 0xFFFFFFF0;
    EXPECT_EQ(morvanite_next_entry(&payload, &cursor, &entry), MORVANITE_DAMAGED) << "not a cursor of the reader";
}

TEST(DeviceReader, EveryLookUpFindsTheFirstMatchOfASearchInAnyPayload)
{
    const auto below = [](std::size_t range) { return *rc::gen::inRange<std::uint32_t>(0, std::uint32_t(range)); };
    EXPECT_TRUE(rc::check([&] {
        const std::uint32_t range = *rc::gen::element(1U, 40U, 90U, 100000U); // a small range has equal keys
        const std::uint32_t first = *rc::gen::element(0U, 1U, 0xFFFEFF00U);
        const bool isSorted = *rc::gen::arbitrary<bool>();
        const bool hasGaps = *rc::gen::arbitrary<bool>();
        std::vector<std::uint32_t> keys(below(60));
        for (std::size_t i = 0; i < keys.size(); ++i)
            keys[i] = first + (hasGaps ? below(range) : std::uint32_t(i));
        if (isSorted)
            std::sort(keys.begin(), keys.end());
        PayloadBuilder builder;
        PayloadBuilder::Strings strings;
        for (std::size_t i = 0; i < keys.size(); ++i) {
            builder.Item(keys[i], Bytes(below(9), static_cast<char>(i)));
            strings.emplace_back(keys[i], std::u16string(below(4), static_cast<char16_t>(0x41 + i)));
        }
        Bytes payload = builder.Language(4, strings).Build();
        ReadEverything(payload);
        if (!keys.empty()) { // two texts exchanged
            const std::size_t offsets = payload.rfind(PayloadBuilder::U32({keys.size() + 1, keys[0]})) + 8;
            const std::size_t left = offsets + 8 * below(keys.size());
            const std::size_t right = offsets + 8 * below(keys.size());
            const Bytes moved = payload.substr(left, 4);
            payload.replace(left, 4, payload.substr(right, 4)).replace(right, 4, moved);
            ReadEverything(payload);
        }
        for (std::uint32_t damage = below(3); damage > 0; --damage)
            payload = WithU32(payload, 4 * below(payload.size() / 4 - 1),
                              *rc::gen::element(0U, 1U, 5U, first + 7, 60U, 400U, 0x7FFFFFFFU, 0xFFFFFFFFU));
        ReadEverything(payload);
    }));
}

TEST(DeviceReader, AnIndexNeedsRoomUnlessTheTableIsSorted)
{
    const ExactBytes memory(PayloadBuilder()
                                .Item(1, "one")
                                .Item(9, "nine")
                                .Language(0, {{3, u"a"}, {4, u"b"}, {7, u"c"}})
                                .Language(1, {{3, u"a"}, {7, u"c"}, {4, u"b"}})
                                .Build());
    morvanite_payload payload;
    morvanite_language language;
    ASSERT_EQ(morvanite_open(&payload, memory.Data(), memory.Size(), 0), MORVANITE_OK);
    EXPECT_EQ(morvanite_make_index(&payload.items, nullptr, 0), MORVANITE_OK);
    ASSERT_EQ(morvanite_find_language(&payload, 0, &language), MORVANITE_OK);
    EXPECT_EQ(morvanite_make_index(&language.strings, nullptr, 0), MORVANITE_OK);
    ASSERT_EQ(morvanite_find_language(&payload, 1, &language), MORVANITE_OK);
    std::uint32_t order[3];
    EXPECT_EQ(morvanite_make_index(&language.strings, order, 2), MORVANITE_NO_ROOM);
    EXPECT_EQ(morvanite_make_index(&language.strings, order, 3), MORVANITE_OK);
}

TEST(DeviceReader, TheLengthOfATextIsThatOfTheProject)
{
    const std::u16string zeroWithin(u"a\0b", 3);
    Bytes whole = PayloadBuilder().Language(0, {{1, u""}, {2, zeroWithin}, {3, u"odd"}, {4, u"even"}}).Build();
    const auto lengths = [](const Bytes &bytes) {
        const ExactBytes memory(bytes);
        morvanite_payload payload;
        morvanite_language language;
        morvanite_string string;
        EXPECT_EQ(morvanite_open(&payload, memory.Data(), memory.Size(), 0), MORVANITE_OK);
        EXPECT_EQ(morvanite_find_language(&payload, 0, &language), MORVANITE_OK);
        std::vector<std::uint32_t> found;
        for (std::uint32_t i = 0; morvanite_string_at(&language, i, &string) == MORVANITE_OK; ++i) {
            found.push_back(string.length);
            ReadText(payload, 0, string.id);
        }
        return found;
    };
    EXPECT_EQ(lengths(whole), (std::vector<std::uint32_t>{0, 3, 3, 4}));
    // The last two texts exchanged: the offsets don't show where a text ends, so its first zero unit counts.
    whole.replace(whole.find(PayloadBuilder::U32({3, 56})), 16, PayloadBuilder::U32({3, 64, 4, 56}));
    EXPECT_EQ(lengths(whole), (std::vector<std::uint32_t>{0, 1, 4, 3}));
}

TEST(DeviceReader, ConvertsUtf16ToUtf8)
{
    const PayloadBuilder::Strings strings{{1, u"a\u007F\u0080\u07FF\u0800\uFFFF"},
                                          {2, u"\U00010000\U0001F600\U0010FFFF"},
                                          {3, {0xD83D, u'x'}},
                                          {4, {0xD83D, 0xE000}},
                                          {5, {0xDC00, 0xDC00}},
                                          {6, {0xDE00, 0xD83D}},
                                          {7, {0xD83D, 0xD83D, 0xDE00}}};
    EXPECT_THAT(ReadEverything(PayloadBuilder().Language(0, strings).Build()),
                EndsWith("\n1 a\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\n"
                         "2 \xF0\x90\x80\x80\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF\n"
                         "3 \uFFFDx\n4 \uFFFD\uE000\n5 \uFFFD\uFFFD\n6 \uFFFD\uFFFD\n7 \uFFFD\U0001F600\n"));
}

TEST(DeviceReader, CutsUtf8AfterAWholeCharacterAndNeverWritesBeyondTheBuffer)
{
    const std::string whole = "a\u00FC\u4F60\U0001F600z";
    const ExactBytes memory(PayloadBuilder().Language(0, {{1, u"a\u00FC\u4F60\U0001F600z"}}).Build());
    morvanite_payload payload;
    morvanite_string string;
    ASSERT_EQ(morvanite_open(&payload, memory.Data(), memory.Size(), 0), MORVANITE_OK);
    ASSERT_EQ(morvanite_find_text(&payload, 0, 1, &string), MORVANITE_OK);
    std::size_t fits = 0;
    for (std::uint32_t room = 0; room <= whole.size() + 2; ++room) {
        std::string buffer(room + 1, '#');
        EXPECT_EQ(morvanite_string_utf8(&string, buffer.data(), room), whole.size());
        EXPECT_EQ(buffer[room], '#') << room;
        for (const std::size_t end : {1U, 3U, 6U, 10U, 11U})
            fits = end + 1 == room ? end : fits;
        EXPECT_TRUE(room == 0 || buffer.c_str() == whole.substr(0, fits)) << room << ' ' << buffer;
    }
    EXPECT_EQ(morvanite_string_unit(&string, 1), u'\u00FC');
    for (const std::uint32_t i : {6U, 1000U, 0x80000000U, 0xFFFFFFFFU})
        EXPECT_EQ(morvanite_string_unit(&string, i), 0) << i;
}

TEST(DeviceReader, DetectsEveryTruncationAndSurvivesEveryDamagedByte)
{
    const Bytes whole = SmallProject().Build();
    const std::size_t table = whole.find("\0\0\xFF\xFF"s);
    for (std::size_t at = 0; at < whole.size(); ++at) {
        EXPECT_THAT(ReadEverything(whole.substr(0, at)),
                    at < table + 8 * 6 ? HasSubstr("no payload") : HasSubstr("damaged"))
            << at;
        for (unsigned value = 0; value < 256; ++value)
            ASSERT_NO_THROW(
                ReadEverythingAt(ExactBytes(Bytes(whole).replace(at, 1, 1, static_cast<char>(value)), value % 2), 0))
                << at;
    }
}

TEST(DeviceReader, ReportsDamageAndReadsTheOtherParts)
{
    // 0 "one", 40, 4; 12 "zep-2.0", 44, 32; 28 "", 44, 0; 40 "1234"; 44 the pairs of three items and their end;
    // 76 count 2; (5, 20); (end, 28); 96 "ab", a zero unit, two zero bytes; 104 "item"; 108 "last"
    const Bytes whole =
        PayloadBuilder().Entry("one", "1234").Language(0, {{5, u"ab"}}).Item(2, "item").Item(3, "last").Build();
    ASSERT_THAT(ReadEverything(whole), HasSubstr("\n4294901760 language 0\n5 ab\n2 item\n3 last\n"));
    using Damage = std::tuple<const char *, std::size_t, std::vector<std::uint32_t>>;
    const char *noLanguage = "\n4294901760 damaged language\n2 item\n3 last\n";
    const char *noString = "\n4294901760 language 0\n5 damaged\n2 item\n3 last\n";
    for (const auto &[expected, at, numbers] : {Damage{"no payload", 12, {0x2D7A6570}},
                                                {"no payload", 20, {0, 45, 0xFFFFFFF8}},
                                                {"no payload", 24, {0, 31, 0xFFFFFFFF}},
                                                {"no payload", 68, {0}},
                                                {"one damaged\nzep-2.0 ", 8, {0x10000}},
                                                {"\n2 damaged\n3 last\n", 56, {109, 200, 0xFFFFFFFF}},
                                                {noLanguage, 76, {0, 1, 3, 0x20000002, 0xFFFFFFFF}},
                                                {noLanguage, 80, {0xFFFFFFFF}},
                                                {noLanguage, 88, {6}},
                                                {noLanguage, 92, {32, 0xFFFFFFF}},
                                                {noString, 92, {4}},
                                                {noString, 84, {0, 18, 19, 27, 28, 0xFFFFFFF0, 0xFFFFFFFE}},
                                                {noString, 100, {0x00010001}}})
        for (const std::uint32_t number : numbers)
            EXPECT_THAT(ReadEverything(WithU32(whole, at, number)), HasSubstr(expected)) << at << ' ' << number;
    const ExactBytes memory(WithU32(whole, 76, 0));
    morvanite_payload payload;
    morvanite_string string;
    EXPECT_EQ(morvanite_open(&payload, memory.Data(), memory.Size(), 0), MORVANITE_OK);
    EXPECT_EQ(morvanite_find_text(&payload, 0, 5, &string), MORVANITE_DAMAGED);
    for (std::uint32_t base = 1; base < whole.size(); ++base)
        EXPECT_EQ(ReadEverything(whole, base), "no payload") << base;
    EXPECT_THAT(ReadEverything(PayloadBuilder().Entry("zep-2.0", "a file").Item(1, "item").Build()),
                AllOf(StartsWith("zep-2.0 a file\nzep-2.0 "), EndsWith("\n1 item\n")));
    EXPECT_EQ(ReadEverything({}), "no payload");
    EXPECT_THAT(ReadEverything(PayloadBuilder().Item(0xFFFF0000, "").Item(0xFFFF0001, "\1").Build()),
                EndsWith("\n4294901760 damaged language\n4294901761 damaged language\n"));
    // The last 20 of 120 bytes would be beyond the range of 32 bits.
    EXPECT_THAT(
        ReadEverything(PayloadBuilder().Item(1, Bytes(64, 'x')).Item(2, "").Base(0xFFFFFF9C).Build(), 0xFFFFFF9C),
        EndsWith("\n1 damaged\n2 damaged\n"));
}

TEST(DeviceReader, FindsAnAppendedPayloadFromTheEndOfTheFile)
{
    const auto find = [](const Bytes &file, std::uint32_t wantedBase) -> std::string {
        const ExactBytes memory(file);
        const std::uint8_t *payload = nullptr;
        std::uint32_t size = 0;
        std::uint32_t base = 0;
        if (morvanite_find_appended(memory.Data(), memory.Size(), &payload, &size, &base) != MORVANITE_OK)
            return "none";
        EXPECT_EQ(base, wantedBase);
        return {payload, payload + size};
    };
    const Bytes payload = SmallProject().Unpadded().Build();
    for (const std::uint32_t size : {0U, 1U, 64U, 1001U}) {
        const Bytes file = PayloadBuilder::AppendedTo(Bytes(size, 'Z'), payload);
        EXPECT_EQ(find(file, size + 8), payload);
        // A truncated payload may end in a small number, at which a small file could have its magic.
        for (std::size_t cut = 0; cut < file.size() && size >= 64; ++cut)
            EXPECT_EQ(find(file.substr(0, cut), 0), "none") << cut;
        for (const std::size_t end : {0x7FFFFFFFUL, 0xFFFFFFF4UL, 0xFFFFFFFFUL, file.size()})
            EXPECT_EQ(find(WithU32(file, file.size() - 4, end), 0), "none") << end;
    }
    // The trailer's first byte is the zero that the magic ends with.
    EXPECT_EQ(find(Bytes(256, 'Z') + ".zp_res" + PayloadBuilder::U32({256}), 0), "none");
}
