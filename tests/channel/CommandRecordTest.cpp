// SPDX-License-Identifier: MIT
#include "CommandRecord.h"
#include "CResoTable.h"
#include "Environment.h"
#include "PackRequest.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

PackCommandRecord FullRecord()
{
    return {u"/x/demo.vcproj", u"/x/äpp.axf", u"/x/app.out", u"240*320", u"Axf", -2, 0x01020304};
}

QByteArray Built(const PackCommandRecord &record)
{
    std::string error;
    return QByteArray::fromStdString(BuildRecord(record, error).value());
}

TEST(CommandRecord, HasItsFieldsAtTheirOffsetsAndIsReadAsBuilt)
{
    const QByteArray bytes = Built(FullRecord());
    ASSERT_EQ(bytes.size(), 1696);
    EXPECT_EQ(bytes.mid(0, 4), QByteArray("/\0x\0", 4));
    EXPECT_EQ(bytes.mid(520 + 14, 8), QByteArray("a\0x\0f\0\0\0", 8));
    EXPECT_EQ(bytes.mid(1040 + 18, 4), QByteArray("t\0\0\0", 4));
    EXPECT_EQ(bytes.mid(1560, 4), QByteArray("2\0004\0", 4));
    EXPECT_EQ(bytes.mid(1624, 8), QByteArray("A\0x\0f\0\0\0", 8));
    EXPECT_EQ(bytes.mid(1688), QByteArray("\xfe\xff\xff\xff\x04\x03\x02\x01", 8));
    EXPECT_EQ(Built(ParsePackCommandRecord(bytes.toStdString() + std::string(5000, 'x')).value()), bytes);
    EXPECT_EQ(ParseCommandRecord(bytes.first(520).toStdString()).value().projectPath, u"/x/demo.vcproj");
    EXPECT_EQ(ParsePackCommandRecord(std::string(1696, 'a')).value().resolution, std::u16string(32, 0x6161))
        << "the text fills its field";
}

TEST(CommandRecord, IsNotBuiltFromTextThatDoesNotFit)
{
    std::string error;
    EXPECT_TRUE(BuildRecord(CommandRecord{std::u16string(259, u'a')}, error));
    EXPECT_FALSE(BuildRecord(CommandRecord{std::u16string(260, u'a')}, error));
    EXPECT_TRUE(error.starts_with("the project path has 260 characters, but a command has room for 259 only: aaa"));
    EXPECT_FALSE(BuildRecord(PackCommandRecord{{}, {}, {}, {}, std::u16string(32, u'a')}, error));
    EXPECT_TRUE(error.starts_with("the target kind has 32 characters, but a command has room for 31"));
    EXPECT_FALSE(BuildRecord(CommandRecord{{u"a\0b", 3}}, error));
    EXPECT_EQ(error, "the project path contains a null character");
}

/// Returns "240,320", or "-" for a text that is refused.
QString Scanned(const QString &text)
{
    const auto size = ParseResolution(text);
    return size ? u"%1,%2"_s.arg(size->width).arg(size->height) : u"-"_s;
}

TEST(PackRequest, ParsesAResolutionLikeScanf)
{
    for (const auto &text : {u"240x320"_s, u"240X320"_s, u"240*320"_s, u" \t\n240x \r320"_s, u"+240xX**x+320"_s,
                             u"0240x320x16"_s, u"240x320 and more"_s})
        EXPECT_EQ(Scanned(text), u"240,320"_s) << qPrintable(text);
    for (const auto &text : {u""_s, u" "_s, u"240"_s, u"240x"_s, u"240 x320"_s, u"240 320"_s, u"240,320"_s, u"x320"_s,
                             u"- 240x320"_s, u"+-240x320"_s, u"240x-"_s, u"240xy320"_s, u"٢x٣"_s})
        EXPECT_EQ(Scanned(text), u"-"_s) << qPrintable(text);
    EXPECT_EQ(Scanned(u"99999999999999999999999x-99999999999"_s), u"2147483647,-2147483648"_s);
    EXPECT_EQ(Scanned(u"2147483648x-2147483648"_s), u"2147483647,-2147483648"_s);
}

TEST(PackRequest, BecomesTheParametersOfAPack)
{
    const Environment env(u"/nonexistent"_s);
    CResoTable resolutions;
    resolutions.Add("", 176, 220);
    resolutions.Add("", 240, 320);
    PackRequest record = PackRequestOf(Built(FullRecord())).value();
    auto parameters = PackInfoOf(record, env, resolutions);
    ASSERT_TRUE(parameters);
    EXPECT_EQ(parameters->inputfilename, "/x/äpp.axf");
    EXPECT_EQ(parameters->outputfilename, "/x/app.out");
    EXPECT_EQ(parameters->packmode, PACK_TO_TARGET);
    EXPECT_EQ(parameters->scope, 1);
    EXPECT_EQ(parameters->imageconvert, -2);
    EXPECT_EQ(parameters->ver, 0x01020304);

    record.resolution = u"241x320"_s;
    record.targetKind = u"DLL"_s;
    parameters = PackInfoOf(record, env, resolutions);
    EXPECT_EQ(parameters->scope, -1);
    EXPECT_EQ(parameters->packmode, PACK_TO_DLL);
    for (const auto &kind : {u""_s, u"elf"_s, u"dll "_s, u" axf"_s}) {
        record.targetKind = kind;
        EXPECT_FALSE(PackInfoOf(record, env, resolutions)) << qPrintable(kind);
    }
}

} // namespace
