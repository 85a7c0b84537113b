// SPDX-License-Identifier: MIT
#include "IdNames.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

struct Selected : CodePage
{
    explicit Selected(const char *name) { EXPECT_TRUE(Select(name)) << name; }
};

TEST(CodePage, ConvertsTextBothWaysAndKeepsAscii)
{
    QByteArray ascii;
    for (char c = 1; c < 127; ++c)
        ascii += c;
    for (const auto &[name, wide, narrow] : {std::tuple("936", u"中"_s, "\xd6\xd0"),
                                             {"932", u"表\\"_s, "\x95\x5c\\"},
                                             {"1252", u"€é"_s, "\x80\xe9"},
                                             {"949", u"가"_s, "\xb0\xa1"},
                                             {"950", u"中"_s, "\xa4\xa4"},
                                             {"utf-8", u"中😀"_s, "\xe4\xb8\xad\xf0\x9f\x98\x80"}}) {
        const Selected page(name);
        EXPECT_EQ(page.ToWide(narrow + ascii), wide + QLatin1StringView(ascii)) << name;
        EXPECT_EQ(page.FromWide(wide + QLatin1StringView(ascii)), narrow + ascii) << name;
    }
}

TEST(CodePage, ReplacesMissingCharactersAndInvalidBytes)
{
    EXPECT_EQ(Selected("1252").FromWide(u"a中b😀c"), "a?b?c");
    EXPECT_EQ(Selected("1252").FromWide(QString(QChar(0xD83D)) + u"xy"_s), "?xy");
    Selected chinese("936");
    EXPECT_EQ(chinese.FromWide(u"\uE000ﬁ"), "??"); // isn't replaced by similar letters
    EXPECT_EQ(chinese.ToWide("a\xd6"), u"a\uFFFD"_s);
    EXPECT_EQ(chinese.ToWide("\xff\xff\x61").back(), u'a');
    EXPECT_EQ(chinese.ToWide("\xaa\xa1"), u"\uFFFD"_s); // a code for private use
    EXPECT_TRUE(CodePage().ToWide("a\xe4\xb8").startsWith(u"a\uFFFD"));
    EXPECT_FALSE(chinese.Select("no such code page") || chinese.Select("99999"));
    EXPECT_EQ(chinese.FromWide(u"中"), "\xd6\xd0") << "an unknown name changes nothing";
    EXPECT_TRUE(chinese.Select("UTF-8") && chinese.IsUtf8());
}

TEST(Text, MapsCaseOneCharacterToOne)
{
    EXPECT_EQ(ToUpperSimple(u"straße ǆ"), u"STRAßE Ǆ"_s);
    EXPECT_EQ(ToLowerSimple(u"ÄΣ"), u"äσ"_s);
    EXPECT_TRUE(EqualsNoCase(u"ÄB", u"äb"));
    EXPECT_FALSE(EqualsNoCase(u"ß", u"ss") || EqualsNoCase(u"a", u"ab"));
}

TEST(IdNames, HaveOneTo64WordCharactersAndNoLeadingDigit)
{
    for (const QString &good : {u"A"_s, u"_1"_s, u"id_image_9"_s, QString(64, u'x')})
        EXPECT_TRUE(IsValidIdName(good) && IsValidIdName(good.toUtf8())) << qPrintable(good);
    for (const QString &bad : {QString(), QString(65, u'x'), u"1A"_s, u"A B"_s, u"A-B"_s, u"\u4e2d"_s, u"A\0B"_s})
        EXPECT_FALSE(IsValidIdName(bad) || IsValidIdName(bad.toUtf8())) << qPrintable(bad);
}

TEST(IdNames, AreMadeFromAnyText)
{
    for (const auto &[from, to, anyLeft] : {std::tuple(u"my file-\u00e91"_s, u"my_file__1"_s, true),
                                            {u"9_"_s, u"9_"_s, true},
                                            {u"+++"_s, u"___"_s, false}}) {
        QString text = from;
        EXPECT_EQ(MakeIdSafe(text), anyLeft) << qPrintable(from);
        EXPECT_EQ(text, to);
    }
    EXPECT_EQ(AppendCounter(QString(70, u'x'), 10), QString(62, u'x') + u"10"_s);
    EXPECT_EQ(AppendCounter(u"ID"_s, 7), u"ID7"_s);
}

TEST(FormatFloat, DropsOnlyTheZerosAfterTheDecimalPoint)
{
    QStringList texts;
    for (const double value : {1.5, 2.0, 100.0, 0.0, -0.25, 1e-9, 1e23, std::numeric_limits<double>::infinity()})
        texts << FormatFloat(value);
    EXPECT_EQ(texts.join(u' '), u"1.5 2 100 0 -0.25 0 99999999999999991611392 inf");
    EXPECT_EQ(FormatFloat(-std::numeric_limits<double>::max()).size(), 310);
}
