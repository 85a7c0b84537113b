// SPDX-License-Identifier: MIT
#include "Settings.h"

#include "TempFolder.h"

#include <QFile>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

TEST(Profile, ReadsTheValueFromTheFirstSectionOfThatName)
{
    for (const auto &[text, value] : {
             std::pair<QByteArray, QString>("  [ S ] behind\r\n  Key \t=  a = b  \r\n", u"a = b"_s),
             {"[other]\nkey=1\n[s]\n", u"(none)"_s},
             {"key=before any section\n[s]\n", u"(none)"_s},
             {"[s]\nkey\n=x\n;key=comment\n", u"(none)"_s},
             {"[s]\nother=1\n[S]\nkey=2\n", u"(none)"_s},
             {"[s]\nkey=1\nkey=2\n", u"1"_s},
             {"[s]\nkey=", u""_s},
             {"[s\nkey=head without its end", u"head without its end"_s},
             {"[s]\nkey=\" a \"", u" a "_s},
             {"[s]\nkey='\"a\"'", u"\"a\""_s},
             {"[s]\nkey=\"a'", u"\"a'"_s},
             {"[s]\nkey=\"", u"\""_s},
             {"[s]\nkey=.\\res\\tmp\\ ; no comment", u".\\res\\tmp\\ ; no comment"_s},
             {"\xEF\xBB\xBF[s]\nkey=\xe4\xb8\xad", u"\u4e2d"_s},
             {{"\xFF\xFE[\0s\0]\0\n\0k\0e\0y\0=\0\x2d\x4e\r", 21}, u"\u4e2d"_s}, // cut in the middle of a character
         })
        EXPECT_EQ(Profile::Parse(text).String(u"s", u"kEY", u"(none)"_s), value) << text.constData();
}

TEST(Profile, ReadsANumberFromTheStartOfTheValue)
{
    const Profile profile = Profile::Parse("[s]\na= 12px\nb=-3\nc=x\nd=\ne=99999999999\nf=-99999999999\n");
    QList<int> numbers;
    for (const QString &key : {u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s, u"f"_s, u"missing"_s})
        numbers << profile.Int(u"s", key, 7);
    EXPECT_EQ(numbers, QList<int>({12, -3, 0, 0, 2147483647, -2147483647 - 1, 7}));
}

TEST(Profile, CutsASectionThatIsTooLongAtALine)
{
    const QByteArray text = "[s]\n; a comment\n\n  four  \n" + QByteArray("123456789\n").repeated(1000) + "[S]\nk=3\n";
    const QStringList lines = Profile::Parse(text).Section(u"s");
    ASSERT_FALSE(lines.isEmpty());
    EXPECT_EQ(lines.first(), u"four"_s);
    // 4096 characters hold "four" and a zero, lines of 9 and a zero each, and a last zero.
    EXPECT_EQ(lines.size(), 1 + (4096 - 1 - 5) / 10);
}

TEST(Profile, ChangingAKeyKeepsEveryOtherLine)
{
    const QByteArray before = "; head\r\n[A]\r\n x = 1 ; odd\r\n\r\n[B]\r\ny='2'\r\n";
    Profile profile = Profile::Parse(before);
    EXPECT_EQ(profile.Bytes(), before);
    profile.Set(u"b", u"Y", u"3"_s);
    profile.Set(u"a", u"z", u"4"_s);
    profile.Set(u"New", u"k", u"5"_s);
    profile.Set(u"new", u"l", u"6"_s);
    EXPECT_EQ(profile.Bytes(), "; head\r\n[A]\r\n x = 1 ; odd\r\nz=4\r\n\r\n[B]\r\nY=3\r\n[New]\r\nk=5\r\nl=6\r\n");
    const QByteArray utf16("\xFF\xFE[\0s\0]\0\n\0", 10);
    EXPECT_EQ(Profile::Parse(utf16).Bytes(), utf16);
    Profile cut = Profile::Parse(utf16 + 'x');
    cut.Set(u"s", u"k", u"v"_s);
    EXPECT_EQ(Profile::Parse(cut.Bytes()).String(u"s", u"k", {}), u"v");
    Profile foreign = Profile::Parse("; \xD6\xD0\r\n[s]\na=1\n; no end");
    foreign.Set(u"s", u"b", u"2"_s);
    EXPECT_EQ(foreign.Bytes(), "; \xD6\xD0\r\n[s]\na=1\n; no end\r\nb=2\r\n") << "neither UTF-8 nor one code page";
}

TEST(Profile, IsEmptyForAMissingOrHugeFile)
{
    const TempFolder folder;
    folder.Put("huge.ini", "[s]\nk=1\n" + QByteArray(2 << 20, '\n'));
    for (const char *name : {"", "missing.ini", "huge.ini"})
        EXPECT_FALSE(Profile::Load(folder.Path(name)).Has(u"s", u"k")) << name;
}

TEST(Settings, PreferTheUsersFileAndWriteAKeyToTheFileThatItIsReadFrom)
{
    const TempFolder folder;
    folder.Put("bin/m.ini", "[Path]\na=program\n");
    folder.MakeFolder("ro/m.ini");
    const auto write = [&](const char *program, const QString &value) {
        Settings settings(folder.Path(program), folder.Path("u/v/m.ini"));
        EXPECT_TRUE(settings.Write(u"Path"_s, u"n"_s, value));
        EXPECT_EQ(settings.String("Path", "n", "0"), value);
    };
    write("bin/m.ini", u"1"_s);
    EXPECT_EQ(folder.Get("bin/m.ini"), "[Path]\na=program\nn=1\n");
    write("ro/m.ini", u"2"_s);  // a file that can't be replaced (here: a folder): the key goes to the user's file
    write("bin/m.ini", u"3"_s); // the user's file would hide the key in the program's file
    EXPECT_EQ(folder.Get("u/v/m.ini"), "[Path]\nn=3\n");
    EXPECT_EQ(folder.Get("bin/m.ini"), "[Path]\na=program\nn=1\n");
    const Settings settings(folder.Path("bin/m.ini"), folder.Path("u/v/m.ini"));
    EXPECT_EQ(settings.Int("Path", "n", 0), 3);
    EXPECT_EQ(settings.String("Path", "a", "default"), u"program");
    EXPECT_EQ(settings.String("Path", "c", "default"), u"default");
}

TEST(Settings, ReadsButNeverWritesAFileOfTheProgramThatIsALink)
{
    const TempFolder folder;
    folder.Put("etc/m.ini", "[A]\na=1\n");
    folder.MakeFolder("bin");
    const QByteArray link = folder.Path("bin/m.ini").toUtf8();
    ASSERT_EQ(symlink("../etc/m.ini", link.constData()), 0);
    Settings settings(folder.Path("bin/m.ini"), folder.Path("u/m.ini"));
    EXPECT_EQ(settings.Int("A", "a", 0), 1);
    EXPECT_TRUE(settings.Write(u"A"_s, u"a"_s, u"2"_s));
    ASSERT_TRUE(QFile::remove(folder.Path("etc/m.ini"))); // a link to nothing isn't written either
    EXPECT_TRUE(settings.Write(u"A"_s, u"b"_s, u"3"_s));
    EXPECT_EQ(folder.Get("u/m.ini"), "[A]\na=2\nb=3\n");
    struct stat info = {};
    EXPECT_TRUE(lstat(link.constData(), &info) == 0 && S_ISLNK(info.st_mode));
}

TEST(Settings, ReadAndKeepChangesOfOtherPrograms)
{
    const TempFolder folder;
    folder.Put("bin/m.ini", "[A]\na=1\n");
    Settings settings(folder.Path("bin/m.ini"), folder.Path("u/m.ini"));
    folder.Put("bin/m.ini", "[A]\na=22\nb=1\n");
    EXPECT_EQ(settings.Int("A", "a", 0), 1) << "an operation keeps the settings with which it started";
    settings.Refresh();
    EXPECT_EQ(settings.Int("A", "a", 0), 22);
    folder.Put("bin/m.ini", "[A]\na=333\nb=1\n");
    EXPECT_TRUE(settings.Write(u"A"_s, u"c"_s, u"2"_s));
    EXPECT_EQ(folder.Get("bin/m.ini"), "[A]\na=333\nb=1\nc=2\n");
    const QByteArray huge(2 << 20, '\n');
    folder.Put("bin/m.ini", huge);
    EXPECT_TRUE(settings.Write(u"A"_s, u"c"_s, u"3"_s));
    EXPECT_FALSE(settings.Write(u"A"_s, u"c"_s, u"4\n[Text]\ncode_page=936"_s));
    EXPECT_EQ(folder.Get("bin/m.ini"), huge) << "an unreadable file isn't overwritten";
    EXPECT_EQ(folder.Get("u/m.ini"), "[A]\nc=3\n");
}

TEST(Settings, WriteSeveralKeysAtOnceToTheFilesThatTheyAreReadFrom)
{
    const TempFolder folder;
    folder.Put("bin/m.ini", "; mine\n[A]\na=1\nb=1\n");
    folder.Put("u/m.ini", "[A]\nb=2\n");
    Settings settings(folder.Path("bin/m.ini"), folder.Path("u/m.ini"));
    EXPECT_TRUE(settings.WriteAll({{u"A"_s, u"b"_s, u"3"_s}, {u"A"_s, u"a"_s, u"4"_s}, {u"B"_s, u"c"_s, u"5"_s}}));
    EXPECT_EQ(folder.Get("bin/m.ini"), "; mine\n[A]\na=4\nb=1\n[B]\nc=5\n");
    EXPECT_EQ(folder.Get("u/m.ini"), "[A]\nb=3\n");

    const auto fileNumber = [&] { // changes with each write, which replaces the file
        struct stat found = {};
        EXPECT_EQ(stat(folder.Path("bin/m.ini").toUtf8().constData(), &found), 0);
        return found.st_ino;
    };
    const ino_t before = fileNumber();
    EXPECT_TRUE(settings.WriteAll({{u"A"_s, u"b"_s, u"3"_s}, {u"A"_s, u"a"_s, u"4"_s}}));
    EXPECT_EQ(fileNumber(), before) << "nothing is written without a change";
    EXPECT_FALSE(settings.WriteAll({{u"A"_s, u"b"_s, u"x\ny"_s}, {u"A"_s, u"a"_s, u"6"_s}}));
    EXPECT_EQ(settings.Int("A", "a", 0), 6) << "a key that can't be written doesn't stop the others";
    EXPECT_EQ(settings.Int("A", "b", 0), 3);
}
