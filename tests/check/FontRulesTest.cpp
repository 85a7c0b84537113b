// SPDX-License-Identifier: MIT
#include "CheckedProject.h"
#include "CodePoints.h"

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace
{

QByteArray Glyph(char character, int width)
{
    return QByteArray("STARTCHAR ") + character + "\nENCODING " + QByteArray::number(int(character)) +
           "\nSWIDTH 500 0\nDWIDTH " + QByteArray::number(width) + " 0\nBBX 1 1 0 0\nBITMAP\n80\nENDCHAR\n";
}

/// A font of bitmaps with a size of 8 pixels, in which "A" is 5 pixels wide and "B" 7.
QByteArray Font()
{
    return "STARTFONT 2.1\nFONT -x-x-medium-r-normal--8-80-75-75-p-60-iso10646-1\nSIZE 8 75 75\n"
           "FONTBOUNDINGBOX 8 8 0 0\nSTARTPROPERTIES 3\nPIXEL_SIZE 8\nCHARSET_REGISTRY \"ISO10646\"\n"
           "CHARSET_ENCODING \"1\"\nENDPROPERTIES\nCHARS 2\n" +
           Glyph('A', 5) + Glyph('B', 7) + "ENDFONT\n";
}

struct FontProject : CheckedProject
{
    explicit FontProject(const QByteArray &settings)
    {
        folder.Put("demo/ui.bdf", Font());
        folder.Put("demo/morvanite-check.ini", settings);
        PutStrings("Number of Language|2\nString ID|Resource Type|Description|English(0)|Deutsch(8)\n"
                   "ID_A|Normal|[width:12]|AB|AAB\nID_B|Normal|[width:12]|AA\\nAB|BBC\n##number|2\n");
    }
};

} // namespace

TEST(FontRules, FindLinesThatAreWiderThanTheirLimit)
{
    FontProject project("[Font]\ndefault=ui.bdf 8\n");
    EXPECT_THAT(project.Findings({"text-too-wide"}),
                ElementsAre(HasSubstr("ID_A: the text is 17 pixels wide, 5 more than its limit of 12"),
                            HasSubstr("ID_B: the text is ")));
    FontProject other("[Font]\nfr=ui.bdf 8\n");
    EXPECT_THAT(other.Findings({"text-too-wide", "glyph-missing"}), IsEmpty())
        << "no language of the project is French";
}

TEST(FontRules, FindCharactersThatTheFontLacksOncePerLanguage)
{
    FontProject project("[Font]\ndefault=ui.bdf 8\n[Ignore]\ntext-too-wide=*\n");
    EXPECT_THAT(project.Findings({"glyph-missing"}),
                ElementsAre(HasSubstr("ini:2 : the font lacks a character: U+0043 (C)")));
}

TEST(FontRules, ReportFontsThatCannotBeOpened)
{
    for (const auto &[font, reason] : {std::pair<QByteArray, const char *>{"none.ttf 8", "none.ttf"},
                                       {"ui.bdf 9", "no size of 9 pixels; it has 8"},
                                       {"morvanite-check.ini 8", "isn't a font"}}) {
        FontProject project("[Font]\ndefault=" + font + "\n");
        EXPECT_THAT(project.Findings({"check-settings", "text-too-wide", "glyph-missing"}),
                    ElementsAre(AllOf(HasSubstr("morvanite-check.ini:2"), HasSubstr(reason))));
    }
}

TEST(CodePoints, AreListedInOrderAsLinesRangesAndC)
{
    CodePoints points;
    points.Add(u"cab\U0001F514z\xD83D!");
    CodePoints others;
    others.Add(u"d\xFFFF");
    points.Add(others);
    EXPECT_EQ(CodePointsText(points, CodePointFormat::Ranges), "U+0021\nU+0061-U+0064\nU+007A\nU+FFFF\nU+1F514\n");
    EXPECT_EQ(CodePointsText(points, CodePointFormat::C),
              "static const unsigned long code_points[][2] = {\n    {0x0021, 0x0021},\n    {0x0061, 0x0064},\n"
              "    {0x007A, 0x007A},\n    {0xFFFF, 0xFFFF},\n    {0x1F514, 0x1F514},\n};\n");
    EXPECT_TRUE(CodePointsText(points, CodePointFormat::List).startsWith("U+0021 !\nU+0061 a\n"));
    EXPECT_TRUE(points.Has(U'\U0001F514') && !points.Has(U'\xD83D') && !points.Has(U'\U0010FFFF'));
}
