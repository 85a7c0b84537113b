#include "IdNames.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(IdNames, ANameHas1To64WordCharactersAndNoDigitInFront)
{
    for (const QString &good : {u"A"_s, u"_1"_s, u"id_image_9"_s, QString(64, u'x')})
        EXPECT_TRUE(IsValidIdName(good)) << qPrintable(good);
    for (const QString &bad :
         {QString(), QString(65, u'x'), u"1A"_s, u"A B"_s, u"A-B"_s, u"\u4e2d"_s, u"A\u0141"_s, u"A\0B"_s})
        EXPECT_FALSE(IsValidIdName(bad)) << qPrintable(bad);
}

TEST(IdNames, MakingANameSafeTellsWhetherAnythingWasLeft)
{
    QString text = u"my file-\u00e91"_s;
    EXPECT_TRUE(MakeIdSafe(text));
    EXPECT_EQ(text, u"my_file__1"_s);
    text = u"9_"_s;
    EXPECT_TRUE(MakeIdSafe(text));
    EXPECT_EQ(text, u"9_"_s);
    text = u"+++"_s;
    EXPECT_FALSE(MakeIdSafe(text));
    EXPECT_EQ(text, u"___"_s);
    text.clear();
    EXPECT_FALSE(MakeIdSafe(text));
}

TEST(IdNames, ACounterTakesThePlaceOfTheEndOfALongName)
{
    EXPECT_EQ(AppendCounter(QString(64, u'x'), 10), QString(62, u'x') + u"10"_s);
    EXPECT_EQ(AppendCounter(u"ID"_s, 7), u"ID7"_s);
    EXPECT_EQ(AppendCounter(QString(70, u'x'), 2147483647).size(), 64);
}

TEST(IdNames, AFloatLosesTheZerosBehindItsPointAndNoOthers)
{
    EXPECT_EQ(FormatFloat(1.5), u"1.5"_s);
    EXPECT_EQ(FormatFloat(2.0), u"2"_s);
    EXPECT_EQ(FormatFloat(100), u"100"_s);
    EXPECT_EQ(FormatFloat(0), u"0"_s);
    EXPECT_EQ(FormatFloat(-0.25), u"-0.25"_s);
    EXPECT_EQ(FormatFloat(1e-9), u"0"_s);
}
