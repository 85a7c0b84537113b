#include "PackRequest.h"

#include "CResoTable.h"
#include "Environment.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

/// "240,320", or "-" for a text that isn't taken.
QString Scanned(const QString &text)
{
    const auto size = ParseResolution(text);
    return size ? u"%1,%2"_s.arg(size->width).arg(size->height) : u"-"_s;
}

TEST(Resolution, IsScannedAsTheFormatDoes)
{
    for (const auto &text : {u"240x320"_s, u"240X320"_s, u"240*320"_s, u" \t\n240x \r320"_s, u"+240xX**x+320"_s,
                             u"0240x320x16"_s, u"240x320 and more"_s})
        EXPECT_EQ(Scanned(text), u"240,320"_s) << qPrintable(text);
    EXPECT_EQ(Scanned(u"-1x-2"_s), u"-1,-2"_s);

    for (const auto &text : {u""_s, u" "_s, u"240"_s, u"240x"_s, u"240 x320"_s, u"240 320"_s, u"240,320"_s, u"x320"_s,
                             u"- 240x320"_s, u"+-240x320"_s, u"240x-"_s, u"240xy320"_s, u"٢x٣"_s})
        EXPECT_EQ(Scanned(text), u"-"_s) << qPrintable(text);
}

TEST(Resolution, NumbersBeyondTheirTypeStopAtItsEnds)
{
    EXPECT_EQ(Scanned(u"99999999999999999999999x-99999999999"_s), u"2147483647,-2147483648"_s);
    EXPECT_EQ(Scanned(u"2147483648x-2147483648"_s), u"2147483647,-2147483648"_s);
}

TEST(PackRequest, TakesTargetKindsWithoutRegardToCase)
{
    EXPECT_EQ(PackModeOf(u"DLL"), PACK_TO_DLL);
    EXPECT_EQ(PackModeOf(u"Axf"), PACK_TO_TARGET);
    for (const auto &text : {u""_s, u"elf"_s, u"dll "_s, u" axf"_s})
        EXPECT_FALSE(PackModeOf(text)) << qPrintable(text);
}

TEST(PackRequest, BecomesTheParametersOfAPack)
{
    Environment env(u"/nonexistent"_s);
    CResoTable resolutions;
    resolutions.Add("", 176, 220);
    resolutions.Add("", 240, 320);
    PackCommandRecord record{u"p"_s, u"/x/äpp.axf"_s, u"/x/o"_s, u"240*320"_s, u"DLL"_s, 7, -9};

    const auto parameters = PackInfoOf(record, env, resolutions);
    ASSERT_TRUE(parameters);
    EXPECT_EQ(parameters->inputfilename, "/x/äpp.axf");
    EXPECT_EQ(parameters->outputfilename, "/x/o");
    EXPECT_EQ(parameters->packmode, PACK_TO_DLL);
    EXPECT_EQ(parameters->scope, 1);
    EXPECT_EQ(parameters->imageconvert, 7);
    EXPECT_EQ(parameters->ver, -9);

    record.resolution = u"241x320"_s;
    EXPECT_EQ(PackInfoOf(record, env, resolutions)->scope, -1);
    record.targetKind = u"elf"_s;
    EXPECT_FALSE(PackInfoOf(record, env, resolutions));
}

} // namespace
