#include "InspectFixture.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtEndian>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace
{

QByteArray Put32(QByteArray bytes, qsizetype at, quint32 number)
{
    qToLittleEndian(number, bytes.data() + at);
    return bytes;
}

quint32 U32(const QByteArray &bytes, qsizetype at)
{
    return qFromLittleEndian<quint32>(bytes.constData() + at);
}

} // namespace

using InspectTest = InspectFixture;

TEST_F(InspectTest, AllThreeKindsOfFileAreToldApartAndReadAlike)
{
    const auto expect = [&](const Bytes &file, const QByteArray &kind, quint64 base) {
        SCOPED_TRACE(kind.constData());
        const InspectResult result = Read(file);
        EXPECT_EQ(result.kind, kind);
        EXPECT_EQ(result.payload.base, base);
        ASSERT_EQ(result.payload.entries.size(), 3U);
        EXPECT_EQ(result.payload.entries[0].data, "0123456789");
        ASSERT_EQ(result.payload.block.size(), 4U);
        EXPECT_EQ(result.payload.block[2].data, QByteArray("audio\0\0\0", 8));
        ASSERT_EQ(result.payload.languages.size(), 2U);
        EXPECT_EQ(result.payload.languages[1].language, 12U);
    };
    const Bytes code(33, 0x90);
    expect(Sample().Build(), "res", 0);
    expect(PayloadBuilder::AppendedTo(code, Sample(41).Unpadded().Build()), "dll", 41);
    expect(ElfBuilder().Section(".text", code).Section(".zp_res", Sample().Build()).Build(), "elf", 0);

    const Bytes relative = ElfBuilder().Section(".text", code).Section(".zp_res", Sample().Build()).Build();
    const auto offset = quint32(Read(relative).payloadOffset);
    expect(ElfBuilder().Section(".text", code).Section(".zp_res", Sample(offset).Build()).Build(), "elf", offset);
}

TEST_F(InspectTest, OfSeveralSectionsTheNewestIsShown)
{
    const Bytes old = PayloadBuilder().Entry("old", OfText("o")).Build();
    const InspectResult result =
        Read(ElfBuilder().Section(".zp_res", old).Section(".zp_res", Sample().Build()).Build());
    EXPECT_EQ(result.payload.entries[0].name, "AppLogo.img");
}

TEST_F(InspectTest, AnElfFileThatWasPackedAsADllIsADllAndOneThatOnlyEndsLikeOneIsNot)
{
    const Bytes elf = ElfBuilder().Section(".zp_res", Sample().Build()).Build();
    const Bytes dll = PayloadBuilder::AppendedTo(elf, Sample(quint32(elf.size()) + 8).Unpadded().Build());
    EXPECT_EQ(Read(dll).kind, "dll");
    EXPECT_EQ(Read(PayloadBuilder::AppendedTo(elf, OfText("no payload"))).kind, "elf");
}

TEST_F(InspectTest, OffsetsThatCountFromElsewhereAreNamed)
{
    EXPECT_THAT(Wrong(Sample(4).Build()), HasSubstr("count from 4, where 0 is wanted"));
    EXPECT_THAT(Wrong(ElfBuilder().Section(".zp_res", Sample(5).Build()).Build()), HasSubstr("count from 5, where "));
    EXPECT_THAT(Wrong(PayloadBuilder::AppendedTo(Bytes(9), Sample(0).Build())), HasSubstr("where 17 is wanted"));
}

TEST_F(InspectTest, FilesThatWereNeverPackedAreSaidToBeSo)
{
    EXPECT_THAT(Wrong(ElfBuilder().Section(".text", Bytes(4)).Build()), HasSubstr("it hasn't been packed"));
    Bytes wide = ElfBuilder().Section(".text", Bytes(4)).Build();
    wide[4] = 2;
    EXPECT_THAT(Wrong(wide), HasSubstr("not a 32-bit little-endian one"));
    EXPECT_NE(Wrong(Bytes()), "");
    EXPECT_NE(Wrong(OfText("plain text")), "");
    InspectResult result;
    EXPECT_THAT(InspectFile(folder.Path("none"), result).toStdString(), HasSubstr("can't be read: No such file"));
    EXPECT_NE(InspectFile(u"/dev/zero"_s, result), QString());
}

TEST_F(InspectTest, EveryCutIsAnError)
{
    for (const Bytes &whole : {Sample().Build(), ElfBuilder().Section(".zp_res", Sample().Build()).Build()}) {
        for (size_t size = 0; size < whole.size(); ++size)
            EXPECT_NE(Wrong(Bytes(whole.begin(), whole.begin() + qptrdiff(size))), "") << size;
    }
}

TEST_F(InspectTest, AnyChangedByteGivesAResultOrOneLine)
{
    const auto elf = ElfBuilder().Section(".text", Bytes(4)).Section(".zp_res", Sample().Build()).Build();
    for (const Bytes &good : {PayloadBuilder::AppendedTo(Bytes(9), Sample(17).Unpadded().Build()), elf}) {
        QByteArray file = Array(good);
        for (char &byte : file) {
            const char before = byte;
            for (const int value : {before ^ 1, before ^ 0x80, 0, 0x0A, 0xFF}) {
                byte = char(value);
                InspectResult result;
                const QString wrong = InspectBytes(file, result);
                EXPECT_FALSE(wrong.contains(u'\n')) << wrong.toStdString();
                EXPECT_TRUE(!wrong.isEmpty() || QJsonDocument::fromJson(InspectJson(env, result)).isObject());
            }
            byte = before;
        }
    }
}

TEST_F(InspectTest, EachOffsetAndSizeIsCheckedAndNamed)
{
    const QByteArray good = Array(Sample().Build());
    const qsizetype icon = 12; // of the first record's offset
    const qsizetype tune = 20 + 9;
    const qsizetype block = tune + 8 + 8;
    const qsizetype table = U32(good, block);
    const auto wrong = [&](qsizetype at, quint32 number) { return Wrong(Put32(good, at, number)); };

    EXPECT_THAT(wrong(icon, 3), HasSubstr("the first entry's offset is 3, within the directory of 64 bytes"));
    EXPECT_THAT(wrong(icon + 4, quint32(good.size())), HasSubstr("entry 0 has offset 64 and size "));
    EXPECT_THAT(wrong(tune, 70), HasSubstr("entry 1 has offset 70 and size 0, but must lie from 74 to "));
    EXPECT_THAT(wrong(tune, 0xFFFFFFFF), HasSubstr("entry 1 has offset 4294967295"));
    EXPECT_THAT(wrong(block + 4, 0), HasSubstr("the block table of 0 bytes doesn't end"));
    EXPECT_THAT(wrong(block + 4, 39), HasSubstr("the block table of 39 bytes doesn't end"));
    EXPECT_THAT(wrong(table + 4, quint32(table)), HasSubstr("block record 0 goes from "));
    EXPECT_THAT(wrong(table + 8, 0xFFFFFFFF), HasSubstr("block record 1 has the key 0xFFFFFFFF, which ends the table"));
    EXPECT_THAT(wrong(table + 12, 0xFFFFFFF0), HasSubstr("block record 0 goes from "));
    EXPECT_THAT(wrong(table + 36, quint32(good.size()) + 1), HasSubstr("block record 3 goes from "));

    const qsizetype strings = U32(good, table + 4);
    EXPECT_THAT(wrong(strings, 0), HasSubstr("language 0: a string count of 0 doesn't fit"));
    EXPECT_THAT(wrong(strings, 0xFFFFFFFF), HasSubstr("a string count of 4294967295 doesn't fit"));
    EXPECT_THAT(wrong(strings + 4, 0xFFFFFFFF), HasSubstr("string 0 has the ID 0xFFFFFFFF, which ends the table"));
    EXPECT_THAT(wrong(strings + 8, 8), HasSubstr("the string of ID 7 at 8 doesn't begin behind 28"));
    EXPECT_THAT(wrong(strings + 16, 30), HasSubstr("the string of ID 3 at 30 doesn't begin behind 40"));
    EXPECT_THAT(wrong(strings + 20, 5), HasSubstr("doesn't end in the ID 0xFFFFFFFF"));
    EXPECT_THAT(wrong(strings + 24, 40), HasSubstr("the string table says it has 40 bytes, but it has 44"));
}

TEST_F(InspectTest, ATableThatClaimsTheSameBytesAThousandTimesIsRefused)
{
    QByteArray file = Array(PayloadBuilder().Entry("a", Bytes(4)).Build());
    const qsizetype table = file.size() - 8;
    file.chop(8);
    const auto start = quint32(table + 8 * 1001);
    for (quint32 i = 0; i < 1000; ++i)
        file += Put32(Put32(QByteArray(8, '\0'), 0, i + 1), 4, i % 2 ? start + 4096 : start);
    file += Put32(Put32(QByteArray(8, '\0'), 0, 0xFFFFFFFF), 4, start + 4096) + QByteArray(4096, 'x');
    EXPECT_THAT(Wrong(Put32(file, 10 + 8 + 4, 8 * 1001)), HasSubstr("block record 1 goes from "));
}

TEST_F(InspectTest, TheJsonHasWhatTheFileHas)
{
    const InspectResult result = Read(Sample().Build());
    QJsonParseError error;
    const QJsonObject json = QJsonDocument::fromJson(InspectJson(env, result), &error).object();
    ASSERT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString();
    EXPECT_EQ(json.keys(), (QStringList{u"base"_s, u"block"_s, u"entries"_s, u"kind"_s, u"strings"_s}));
    EXPECT_EQ(json[u"kind"_s].toString(), u"res"_s);
    EXPECT_EQ(json[u"base"_s].toInt(-1), 0);
    const QJsonObject icon{{u"name"_s, u"AppLogo.img"_s}, {u"offset"_s, 64}, {u"size"_s, 10}};
    EXPECT_EQ(json[u"entries"_s].toArray()[0].toObject(), icon);
    EXPECT_EQ(json[u"entries"_s].toArray()[2][u"name"_s].toString(), u"zep-2.0"_s);
    EXPECT_EQ(json[u"block"_s].toArray().size(), 4);
    const QJsonValue language = json[u"block"_s].toArray()[1];
    EXPECT_EQ(language[u"key"_s].toInteger(), 0xFFFF000C);
    EXPECT_EQ(language[u"offset"_s].toInteger(), result.payload.block[1].offset);
    EXPECT_EQ(language[u"size"_s].toInteger(), result.payload.block[1].size);
    const QJsonObject english{{u"3"_s, QString()}, {u"7"_s, u"Hello"_s}};
    EXPECT_EQ(json[u"strings"_s][u"0"_s].toObject(), english);
    const QJsonObject chinese{{u"3"_s, u"\u4F60\u597D \"\\\n\U0001F600"_s}}; // the first of two
    EXPECT_EQ(json[u"strings"_s][u"12"_s].toObject(), chinese);
}

TEST_F(InspectTest, TheFirstOfTwoTablesOfOneLanguageCountsAndHalfASurrogateIsReplaced)
{
    const InspectResult result =
        Read(PayloadBuilder().Entry("a", {}).Language(1, {{1, {u'x', 0xD800, u'y'}}}).Language(1, {{2, u"z"}}).Build());
    QJsonParseError error;
    const QJsonValue json = QJsonDocument::fromJson(InspectJson(env, result), &error).object();
    ASSERT_EQ(error.error, QJsonParseError::NoError);
    const QJsonObject language{{u"1"_s, u"x\uFFFDy"_s}};
    EXPECT_EQ(json[u"strings"_s][u"1"_s].toObject(), language);
}

TEST_F(InspectTest, TheListingIsForReading)
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
    const QByteArray text = InspectText(env, Read(Sample().Build()));
    EXPECT_EQ(text.toStdString(), expected);
}

TEST_F(InspectTest, NamesAndTextsCannotSteerTheTerminal)
{
    const QByteArray text = InspectText(
        env, Read(PayloadBuilder().Entry("\x1B[2J\xC2\x9B\n", {}).Language(0, {{1, u"a\u202Eb\u001B"}}).Build()));
    EXPECT_THAT(text.toStdString(), HasSubstr("  ?[2J?\\n\n"));
    EXPECT_THAT(text.toStdString(), HasSubstr("  a?b?\n"));
}
