// SPDX-License-Identifier: MIT
#include "InspectFixture.h"
#include "PackNames.h"
#include "PackSelection.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;
using testing::HasSubstr;
using testing::Not;

using InspectTest = InspectFixture;

TEST_F(InspectTest, RecognisesAndReadsAllThreeKindsOfFile)
{
    const auto packed = [](quint32 base) {
        return ElfBuilder(1).Section(".zp_res", "old").Section(".zp_res", Sample(base).Build()).Build();
    };
    const auto section = quint32(packed(0).find("AppLogo.img")); // the position of the newest section in the file
    const auto dll = [](const Bytes &file) {
        return PayloadBuilder::AppendedTo(file, Sample(quint32(file.size()) + 8).Unpadded().Build());
    };
    for (const auto &[file, kind, base] : {std::tuple(Sample().Build(), "res", 0U),
                                           {dll(Bytes(33, 'x')), "dll", 41U},
                                           {packed(0), "elf", 0U},
                                           {packed(section), "elf", section},
                                           {dll(packed(0)), "dll", quint32(packed(0).size()) + 8},
                                           {PayloadBuilder::AppendedTo(packed(0), "no payload"), "elf", 0U}}) {
        SCOPED_TRACE(kind);
        EXPECT_EQ(Read(file).kind, kind);
        EXPECT_EQ(result.payload.base, base);
        ASSERT_EQ(result.payload.entries.size(), 3U);
        EXPECT_EQ(result.payload.entries[0].data, "0123456789");
        ASSERT_EQ(result.payload.block.size(), 4U);
        EXPECT_EQ(result.payload.block[2].data, QByteArray("audio\0\0\0", 8));
        ASSERT_EQ(result.payload.languages.size(), 2U);
        EXPECT_EQ(result.payload.languages[1].language, 12U);
    }
}

TEST_F(InspectTest, ReportsFilesThatAreNotPacked)
{
    const Bytes elf = ElfBuilder().Section(".text", "code").Build();
    const auto zpRes = [](quint32 base) { return ElfBuilder().Section(".zp_res", Sample(base).Build()).Build(); };
    for (const auto &[file, text] :
         {std::pair(Sample(4).Build(), "count from 4, but 0 is expected"),
          {zpRes(5), "count from 5, but "},
          {PayloadBuilder::AppendedTo("123456789", Sample(0).Build()), "but 17 is expected"},
          {elf, "it hasn't been packed"},
          {Bytes(elf).replace(4, 1, "\2"), "not a 32-bit little-endian one"},
          {Bytes(elf).replace(50, 1, "\3"), "whose section table is outside"},
          {Bytes(elf).replace(elf.size() - 40 + 20, 1, "\xFF"), "whose section names are outside"},
          {Bytes(), "its directory has no end mark"},
          {"plain text", "its directory has no end mark"},
          {Bytes(256, 'x') + ".zp_res" + PayloadBuilder::U32({256}), "the directory is cut off in entry 0"}})
        EXPECT_THAT(Wrong(file), HasSubstr(text));
    EXPECT_THAT(InspectFile(folder.Path("none"), result).toStdString(), HasSubstr("can't be read: No such file"));
    EXPECT_NE(InspectFile(u"/dev/zero"_s, result), QString());
}

TEST_F(InspectTest, SurvivesAFileThatIsCutShortWhileItIsRead)
{
    Bytes large = Sample().Build();
    large.append(1 << 20, 'x');
    folder.Put("app.res", QByteArray::fromStdString(large));
    ASSERT_EQ(InspectFile(folder.Path("app.res"), result), QString());
    EXPECT_EQ(WhyCutShort(result), QString());
    const QByteArrayView bytes = result.file.Bytes();
    ASSERT_EQ(truncate(folder.Path("app.res").toUtf8().constData(), 5000), 0);
    EXPECT_THAT(WhyCutShort(result).toStdString(), HasSubstr("cut it short"));
    EXPECT_EQ(bytes.back(), '\0') << "instead of a bus error";
    EXPECT_EQ(bytes.first(5000).toByteArray().toStdString(), large.substr(0, 5000));
}

TEST_F(InspectTest, ReportsEveryTruncationAndSurvivesEveryChangedByte)
{
    const Bytes elf = ElfBuilder().Section(".zp_res", Sample().Build()).Build();
    for (const Bytes &whole : {PayloadBuilder::AppendedTo("123456789", Sample(17).Unpadded().Build()), elf}) {
        for (size_t at = 0; at < whole.size(); ++at) {
            EXPECT_NE(Wrong(whole.substr(0, at)), "") << at;
            for (const int value : {whole[at] ^ 1, whole[at] ^ 0x80, 0, 0x0A, 0xFF}) {
                const std::string wrong = Wrong(Bytes(whole).replace(at, 1, 1, char(value)));
                EXPECT_THAT(wrong, Not(HasSubstr("\n")));
                EXPECT_TRUE(!wrong.empty() || QJsonDocument::fromJson(InspectJson(env, result, {})).isObject()) << at;
            }
        }
    }
}

TEST_F(InspectTest, ChecksEveryOffsetAndSizeAndNamesIt)
{
    const Bytes good = Sample().Build();
    const auto size = quint32(good.size());
    // 12 and 29: offset and size of the entries, 45: of the block; 76: its records, 116: strings of language 0
    for (const auto &[at, number, text] :
         {std::tuple(12U, 3U, "the first entry's offset is 3, within the directory of 64 bytes"),
          {16U, size, "entry 0 has offset 64 and size "},
          {29U, 70U, "entry 1 has offset 70 and size 0, but must be between 74 and "},
          {37U, 0x2D70657AU - 1, "the last entry, 2, isn't named \"zep-2.0\""},
          {49U, 0U, "the block table of 0 bytes doesn't end"},
          {49U, 39U, "the block table of 39 bytes doesn't end"},
          {80U, 76U, "block record 0 extends from "},
          {84U, 0xFFFFFFFFU, "block record 1 has the key 0xFFFFFFFF, which ends the table, but 3 follow"},
          {88U, 0xFFFFFFF0U, "block record 0 extends from "},
          {112U, size + 1, "block record 3 extends from "},
          {112U, 220U, "block record 3 extends from 228 to 220, but must be between 228 and 232"},
          {116U, 0U, "language 0: a string count of 0 doesn't fit"},
          {120U, 0xFFFFFFFFU, "string 0 has the ID 0xFFFFFFFF, which ends the table, but 2 follow"},
          {124U, 8U, "the string of ID 7 at 8 doesn't begin after 28"},
          {132U, 30U, "the string of ID 3 at 30 doesn't begin after 40"},
          {136U, 5U, "doesn't end in the ID 0xFFFFFFFF"},
          {140U, 40U, "the string table says it has 40 bytes, but it has 44"}})
        EXPECT_THAT(Wrong(Bytes(good).replace(at, 4, PayloadBuilder::U32({number}))), HasSubstr(text));
}

TEST_F(InspectTest, JsonHasTheContentsOfTheFile)
{
    // The first of two tables of a language is used, and the first of two strings with one ID.
    const Bytes file = Sample().Language(12, {{9, u"other"}}).Language(1, {{1, {u'x', 0xD800, u'y'}}}).Build();
    const QByteArray expected = R"({"version": 1, "kind": "res", "base": 0, "entries": [
{"name": "AppLogo.img", "offset": 64, "size": 10}, {"name": "tune.mid", "offset": 76, "size": 0},
{"name": "zep-2.0", "offset": 76, "size": 56}], "block": [
{"key": 4294901760, "offset": 132, "size": 44}, {"key": 4294901772, "offset": 176, "size": 60},
{"key": 1, "offset": 236, "size": 8}, {"key": 103000, "offset": 244, "size": 4},
{"key": 4294901772, "offset": 248, "size": 32}, {"key": 4294901761, "offset": 280, "size": 28}],
"strings": {"0": {"3": "", "7": "Hello"}, "12": {"3": "你好 \"\\\n😀"}, "1": {"1": "x�y"}}})";
    const QJsonDocument wanted = QJsonDocument::fromJson(expected);
    ASSERT_TRUE(wanted.isObject());
    const QByteArray json = InspectJson(env, Read(file), {});
    EXPECT_EQ(QJsonDocument::fromJson(json).toJson().toStdString(), wanted.toJson().toStdString());
    EXPECT_TRUE(json.startsWith("{\n    \"version\": 1,\n"));
}

TEST_F(InspectTest, NamesOfIdsAreBesideTheirNumbers)
{
    PackNames names;
    names.Add(1, u"ID_TUNE"_s);
    names.Add(7, u"ID_HELLO"_s);
    names.Add(7, u"ID_ALIAS"_s); // the first name of a number counts
    const std::string text = InspectText(env, Read(Sample().Build()), names).toStdString();
    EXPECT_THAT(text, HasSubstr("           1  file, image or layout  ID_TUNE\n"));
    EXPECT_THAT(text, HasSubstr("      103000  push image\n"));
    EXPECT_THAT(text, HasSubstr("           3            \n           7  ID_HELLO  Hello\n"));
    const QJsonObject json = QJsonDocument::fromJson(InspectJson(env, result, names)).object();
    EXPECT_EQ(json[u"block"_s][2][u"id"_s], u"ID_TUNE"_s);
    EXPECT_TRUE(json[u"block"_s][3][u"id"_s].isUndefined());
    EXPECT_EQ(json[u"string_ids"_s].toObject(), (QJsonObject{{u"7"_s, u"ID_HELLO"_s}}));
}

TEST_F(InspectTest, ASelectionHasOneItemEntryOrLanguage)
{
    PackNames names;
    names.Add(1, u"ID_TUNE"_s);
    const auto select = [&](const char *word) {
        (void)Read(Sample().Build());
        const auto selection = PackSelection::Parse(QString::fromLatin1(word), names);
        if (!selection)
            return std::string("wrong");
        if (!selection->KeepOnly(env, result))
            return std::string("nothing");
        const std::string text = InspectText(env, result, {}).toStdString();
        return text.substr(text.find("\n\n") + 2);
    };
    const std::string item = "block    1\n      offset        size         key  what\n"
                             "         220           8           1  file, image or layout\n";
    EXPECT_EQ(select("1"), item);
    EXPECT_EQ(select("ID_TUNE"), item);
    EXPECT_THAT(select("tune.mid"), testing::StartsWith("entries  1\n"));
    EXPECT_THAT(select("language:0"),
                testing::EndsWith("\nlanguage 0, 2 strings\n           3  \n           7  Hello\n"));
    for (const char *absent : {"2", "ID_NONE", "language:1"})
        EXPECT_EQ(select(absent), "nothing") << absent;
    EXPECT_EQ(select("language:x"), "wrong");

    (void)Read(Sample().Build());
    ASSERT_TRUE(PackSelection::Parse(u"AppLogo.img"_s, names)->KeepOnly(env, result));
    std::vector<QByteArray> written;
    EXPECT_EQ(ExtractAll(env, result, folder.Path("out"), written), QString());
    EXPECT_EQ(written, std::vector<QByteArray>{"entries/AppLogo.img"});
}

TEST_F(InspectTest, ListingIsReadableHasLayoutsAndNoControlCharacters)
{
    const std::string expected = "kind     res, side file\n"
                                 "payload  232 bytes at 0, offsets count from 0\n"
                                 "\n"
                                 "entries  3\n"
                                 "      offset        size  name\n"
                                 "          64          10  AppLogo.img\n"
                                 "          76           0  tune.mid\n"
                                 "          76          40  zep-2.0\n"
                                 "\n"
                                 "block    4\n"
                                 "      offset        size         key  what\n"
                                 "         116          44  0xFFFF0000  strings of language 0\n"
                                 "         160          60  0xFFFF000C  strings of language 12\n"
                                 "         220           8           1  file, image or layout\n"
                                 "         228           4      103000  push image\n"
                                 "\n"
                                 "language 0, 2 strings\n"
                                 "           3  \n"
                                 "           7  Hello\n"
                                 "\n"
                                 "language 12, 1 strings\n"
                                 "           3  \u4F60\u597D \"\\\\n\U0001F600\n";
    EXPECT_EQ(InspectText(env, Read(Sample().Build()), {}).toStdString(), expected);
    const Bytes layout = "MLAY\1\x14" + Bytes(2, '\0') + PayloadBuilder::U32({20, 7, 0}); // its ID is 7
    PayloadBuilder hostile = PayloadBuilder().Entry("\x1B[2J\xC2\x9B\n", "").Language(0, {{1, u"a\u202Eb\u001B"}});
    hostile.Item(7, layout).Item(8, layout).Item(9, "MLAY");
    const std::string text = InspectText(env, Read(hostile.Build()), {}).toStdString();
    for (const char *part :
         {"  ?[2J?\\n\n", "  a?b?\n", " 7  layout\n", " 8  file, image or layout\n", " 9  file, image or layout\n"})
        EXPECT_THAT(text, HasSubstr(part));
}
