#include "Text.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

struct Selected : CodePage
{
    explicit Selected(const char *name) { EXPECT_TRUE(Select(name)) << name; }
};

} // namespace

TEST(CodePage, TextOfTheWindowsCodePagesComesBackAsItWas)
{
    EXPECT_EQ(Selected("936").FromWide(u"中a"), "\xd6\xd0"
                                                "a");
    EXPECT_EQ(Selected("936").ToWide("\xd6\xd0"
                                     "a"),
              u"中a"_s);
    EXPECT_EQ(Selected("932").FromWide(u"表\\"), "\x95\x5c\\");
    EXPECT_EQ(Selected("932").ToWide("\x95\x5c\\"), u"表\\"_s);
    EXPECT_EQ(Selected("1252").FromWide(u"€é"), "\x80\xe9");
    EXPECT_EQ(Selected("1252").ToWide("\x80\xe9"), u"€é"_s);
    EXPECT_EQ(CodePage().FromWide(u"中😀"), "\xe4\xb8\xad\xf0\x9f\x98\x80");
}

TEST(CodePage, EveryByteOfAsciiIsItselfInAllOfThem)
{
    QByteArray ascii;
    QString wide;
    for (char c = 1; c < 127; ++c) {
        ascii += c;
        wide += QLatin1Char(c);
    }
    for (const char *name : {"936", "932", "949", "950", "1252", "utf-8"}) {
        const Selected page(name);
        EXPECT_EQ(page.ToWide(ascii), wide) << name;
        EXPECT_EQ(page.FromWide(wide), ascii) << name;
    }
}

TEST(CodePage, ACharacterThatItLacksIsOneQuestionMark)
{
    const Selected page("1252");
    EXPECT_EQ(page.FromWide(u"a中b"), "a?b");
    EXPECT_EQ(page.FromWide(u"a😀b"), "a?b");
    EXPECT_EQ(page.FromWide(QString(QChar(0xD83D)) + u"xy"_s), "?xy");
    EXPECT_EQ(page.FromWide(QString(QChar(0xE000))), "?");
    EXPECT_EQ(Selected("936").FromWide(QString(QChar(0xE000))), "?");
    EXPECT_EQ(Selected("936").FromWide(u"ﬁ"), "?"); // no look-alike for a ligature
}

TEST(CodePage, BytesThatAreNoTextAreReplacementCharacters)
{
    const Selected page("936");
    EXPECT_EQ(page.ToWide("a\xd6"), u"a\uFFFD"_s); // cut
    EXPECT_EQ(page.ToWide("\xff\xff"
                          "a")
                  .back(),
              QChar(u'a'));
    EXPECT_EQ(page.ToWide("\xaa\xa1"), u"\uFFFD"_s); // a place for private use
    EXPECT_TRUE(CodePage().ToWide("a\xe4\xb8").startsWith(u"a\uFFFD"));
}

TEST(CodePage, AnUnknownNameChangesNothing)
{
    CodePage page;
    EXPECT_FALSE(page.Select("no such code page"));
    EXPECT_TRUE(page.IsUtf8());
    EXPECT_TRUE(page.Select("936"));
    EXPECT_FALSE(page.Select("99999"));
    EXPECT_EQ(page.FromWide(u"中"), "\xd6\xd0");
    EXPECT_TRUE(page.Select("UTF-8"));
    EXPECT_TRUE(page.IsUtf8());
}

TEST(Text, CaseIsMappedOneCharacterToOne)
{
    EXPECT_EQ(ToUpperSimple(u"straße ǆ"), u"STRAßE Ǆ"_s);
    EXPECT_EQ(ToLowerSimple(u"ÄΣ"), u"äσ"_s);
    EXPECT_TRUE(EqualsNoCase(u"ÄB", u"äb"));
    EXPECT_FALSE(EqualsNoCase(u"ß", u"ss"));
    EXPECT_FALSE(EqualsNoCase(u"a", u"ab"));
}
