#include "Profile.h"

#include "Settings.h"
#include "TempFolder.h"

using namespace Qt::StringLiterals;

namespace
{

QString Value(QByteArrayView text, QStringView key)
{
    return Profile::Parse(text).String(u"s", key, u"(none)"_s);
}

} // namespace

TEST(Profile, NamesCompareWithoutCaseAndBlanksAroundThemDoNotCount)
{
    EXPECT_EQ(Value("  [ S ] behind\r\n  Key \t=  a = b  \r\n", u"kEY"), u"a = b"_s);
    EXPECT_EQ(Value("[other]\nkey=1\n[s]\n", u"key"), u"(none)"_s);
    EXPECT_EQ(Value("key=before any section\n[s]\n", u"key"), u"(none)"_s);
    EXPECT_EQ(Value("[s]\nkey\n=x\n;key=comment\n", u"key"), u"(none)"_s);
    EXPECT_EQ(Value("[s]\nkey=", u"key"), QString());
    EXPECT_EQ(Value("[s\nkey=head without its end", u"key"), u"head without its end"_s);
}

TEST(Profile, OnePairOfEqualQuotesGoes)
{
    EXPECT_EQ(Value("[s]\nk=\" a \"", u"k"), u" a "_s);
    EXPECT_EQ(Value("[s]\nk='\"a\"'", u"k"), u"\"a\""_s);
    EXPECT_EQ(Value("[s]\nk=\"a'", u"k"), u"\"a'"_s);
    EXPECT_EQ(Value("[s]\nk=\"", u"k"), u"\""_s);
    EXPECT_EQ(Value("[s]\nk=.\\res\\tmp\\ ; no comment", u"k"), u".\\res\\tmp\\ ; no comment"_s);
}

TEST(Profile, OfEqualSectionsAndKeysTheFirstCounts)
{
    const QByteArrayView text("[s]\nk=1\nk=2\n[S]\nk=3\nother=4\n");
    EXPECT_EQ(Value(text, u"k"), u"1"_s);
    EXPECT_EQ(Value(text, u"other"), u"(none)"_s);
    EXPECT_EQ(Profile::Parse(text).Section(u"s"), QStringList({u"k=1"_s, u"k=2"_s}));
}

TEST(Profile, ANumberIsWhatTheValueBeginsWith)
{
    const Profile profile = Profile::Parse("[s]\na= 12px\nb=-3\nc=x\nd=\ne=99999999999\nf=-99999999999\n");
    EXPECT_EQ(profile.Int(u"s", u"a", 7), 12);
    EXPECT_EQ(profile.Int(u"s", u"b", 7), -3);
    EXPECT_EQ(profile.Int(u"s", u"c", 7), 0);
    EXPECT_EQ(profile.Int(u"s", u"d", 7), 0);
    EXPECT_EQ(profile.Int(u"s", u"e", 7), 2147483647);
    EXPECT_EQ(profile.Int(u"s", u"f", 7), -2147483647 - 1);
    EXPECT_EQ(profile.Int(u"s", u"missing", 7), 7);
}

TEST(Profile, ASectionEndsWhereItsLinesNoLongerFit)
{
    QByteArray text = "[s]\n; a comment\n\n  first  \n";
    for (int i = 0; i < 1000; ++i)
        text += "123456789\n";
    const QStringList lines = Profile::Parse(text).Section(u"s");
    ASSERT_FALSE(lines.isEmpty());
    EXPECT_EQ(lines.first(), u"first"_s);
    // 4096 characters hold "first" and a zero, lines of 9 and a zero each, and a last zero.
    EXPECT_EQ(lines.size(), 1 + (4096 - 1 - 6) / 10);
    EXPECT_TRUE(Profile::Parse(text).Section(u"missing").isEmpty());
}

TEST(Profile, TheMarkOfUtf16OrUtf8NamesTheEncoding)
{
    const QByteArray utf16("\xFF\xFE[\0s\0]\0\r\0\n\0k\0=\0\x2d\x4e\r\0\n\0", 22);
    EXPECT_EQ(Value(utf16, u"k"), u"\u4e2d"_s);
    EXPECT_EQ(Value("\xEF\xBB\xBF[s]\nk=\xe4\xb8\xad", u"k"), u"\u4e2d"_s);
    EXPECT_EQ(Profile::Parse(utf16).Bytes(), utf16);
    EXPECT_EQ(Value(utf16.first(19), u"k"), u"\u4e2d"_s); // cut in the middle of a character
}

TEST(Profile, ChangingAKeyLeavesEveryOtherLineAsItWas)
{
    const QByteArray before = "; head\r\n[A]\r\n x = 1 ; odd\r\n\r\n[B]\r\ny='2'\r\n";
    Profile profile = Profile::Parse(before);
    EXPECT_EQ(profile.Bytes(), before);
    profile.Set(u"b", u"Y", u"3"_s);
    profile.Set(u"a", u"z", u"4"_s);
    profile.Set(u"New", u"k", u"5"_s);
    profile.Set(u"new", u"l", u"6"_s);
    EXPECT_EQ(profile.Bytes(), "; head\r\n[A]\r\n x = 1 ; odd\r\nz=4\r\n\r\n[B]\r\nY=3\r\n[New]\r\nk=5\r\nl=6\r\n");
    EXPECT_EQ(profile.String(u"NEW", u"L", {}), u"6"_s);
}

TEST(Settings, TheUsersFileGoesBeforeTheProgramsAndBothBeforeTheDefault)
{
    const TempFolder folder;
    folder.Put("bin/m.ini", "[Path]\na=program\nb=program\n[Frame]\nmaximized=1\n");
    folder.Put("user/m.ini", "[Path]\na=user\n");
    const Settings settings(folder.Path("bin/m.ini"), folder.Path("user/m.ini"));
    EXPECT_EQ(settings.String("Path", "a", "default"), u"user"_s);
    EXPECT_EQ(settings.String("Path", "b", "default"), u"program"_s);
    EXPECT_EQ(settings.String("Path", "c", "default"), u"default"_s);
    EXPECT_EQ(settings.Int("Frame", "maximized", 0), 1);
    EXPECT_EQ(settings.Int("Frame", "missing", 42), 42);
}

TEST(Settings, AKeyIsWrittenWhereItWillBeReadFrom)
{
    const TempFolder folder;
    folder.Put("bin/m.ini", "[Path]\na=program\n");
    Settings settings(folder.Path("bin/m.ini"), folder.Path("u/v/m.ini"));
    EXPECT_TRUE(settings.Write(u"split1st"_s, u"width"_s, u"250"_s));
    EXPECT_EQ(folder.Get("bin/m.ini"), "[Path]\na=program\n[split1st]\nwidth=250\n");
    EXPECT_EQ(settings.Int("split1st", "width", 200), 250);

    // A program's file that can't be replaced (here: a folder) sends the key to the user's, whose folders are made.
    folder.MakeFolder("ro/m.ini");
    Settings readOnly(folder.Path("ro/m.ini"), folder.Path("u/v/m.ini"));
    EXPECT_TRUE(readOnly.Write(u"split1st"_s, u"width"_s, u"300"_s));
    EXPECT_EQ(folder.Get("u/v/m.ini"), "[split1st]\nwidth=300\n");

    // What the user's file has would hide the program's key.
    Settings both(folder.Path("bin/m.ini"), folder.Path("u/v/m.ini"));
    EXPECT_TRUE(both.Write(u"split1st"_s, u"width"_s, u"310"_s));
    EXPECT_EQ(folder.Get("u/v/m.ini"), "[split1st]\nwidth=310\n");
    EXPECT_EQ(folder.Get("bin/m.ini"), "[Path]\na=program\n[split1st]\nwidth=250\n");
}

TEST(Profile, WhatIsNoFileGivesAnEmptyProfile)
{
    const TempFolder folder;
    folder.MakeFolder("folder.ini");
    EXPECT_FALSE(Profile::Load(folder.Path("folder.ini")).Has(u"s", u"k"));
    EXPECT_FALSE(Profile::Load(folder.Path("missing.ini")).Has(u"s", u"k"));
    folder.Put("huge.ini", "[s]\nk=1\n" + QByteArray(2 << 20, '\n'));
    EXPECT_FALSE(Profile::Load(folder.Path("huge.ini")).Has(u"s", u"k"));
}
