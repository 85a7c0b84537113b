#include "Paths.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Paths, TheDirectoryIsWhatStandsBeforeTheLastSeparator)
{
    EXPECT_EQ(DirectoryOf(u"C:\\proj\\a.vcproj"), u"C:\\proj"_s);
    EXPECT_EQ(DirectoryOf(u"/home/x/a.vcproj"), u"/home/x"_s);
    EXPECT_EQ(DirectoryOf(u"mixed/up\\a"), u"mixed/up"_s);
    EXPECT_EQ(DirectoryOf(u"a.vcproj"), u"."_s);
    EXPECT_EQ(DirectoryOf(u"\\a.vcproj"), u"."_s);
    EXPECT_EQ(DirectoryOf(u"/a.vcproj"), u"/"_s);
    EXPECT_EQ(DirectoryOf(u""), u"."_s);
}

TEST(Paths, TitleAndExtensionPartAtTheLastDotOfTheName)
{
    EXPECT_EQ(FileTitle(u"C:\\p\\demo.res.xml"), u"demo.res"_s);
    EXPECT_EQ(FileExtension(u"C:\\p\\demo.res.xml"), u"xml"_s);
    EXPECT_EQ(FileTitle(u"p.d/demo"), u"demo"_s);
    EXPECT_EQ(FileExtension(u"p.d/demo"), QString());
    EXPECT_EQ(FileTitle(u".hidden"), QString());
    EXPECT_EQ(FileExtension(u".hidden"), u"hidden"_s);
    EXPECT_EQ(FileExtension(u"ends."), QString());
    EXPECT_EQ(FileTitle(u"folder/"), QString());
}

TEST(Paths, ARelativePathIsJoinedAndItsDotsGo)
{
    const auto absolute = [](QString path, const QString &base) {
        EXPECT_TRUE(MakeAbsolute(path, base));
        return path;
    };
    EXPECT_EQ(absolute(u".\\config.xml"_s, u"/home/x/demo"_s), u"/home/x/demo/config.xml"_s);
    EXPECT_EQ(absolute(u"..\\..\\..\\..\\a"_s, u"/home/x/"_s), u"/a"_s);
    EXPECT_EQ(absolute(u"res\\\\b\\..\\a.png"_s, u"C:\\proj"_s), u"C:/proj/res/a.png"_s);
    EXPECT_EQ(absolute(u"a"_s, u"\\\\server\\share"_s), u"/server/share/a"_s);
    for (const QString &path : {u"/etc/x"_s, u"\\\\server\\x"_s, u"D:\\..\\x"_s})
        EXPECT_EQ(absolute(path, u"/home/x"_s), path);
    EXPECT_EQ(ResolvePath(u"ResID.h"_s, u".\\ResID"_s), u"ResID/ResID.h"_s);
    EXPECT_EQ(ResolvePath(u"/abs/R.h"_s, u".\\ResID"_s), u"/abs/R.h"_s);
}

TEST(Paths, AJoinOfMoreThan520CharactersIsRefused)
{
    QString path(520 - 3, u'a');
    EXPECT_TRUE(MakeAbsolute(path, u"/b"_s));
    EXPECT_EQ(path.size(), 520);
    QString longer(520 - 2, u'a');
    EXPECT_FALSE(MakeAbsolute(longer, u"/b"_s));
    EXPECT_EQ(longer, QString(518, u'a'));
}

TEST(Paths, OnlyWhatLiesInTheFolderIsMadeRelative)
{
    struct Case
    {
        QString path, base, result;
        bool mayBeStored;
    };
    const Case cases[] = {
        {u"C:\\PROJ\\res\\a.png"_s, u"C:\\proj"_s, u".\\res\\a.png"_s, true},
        {u"C:\\proj\\res\\a.png"_s, u"C:\\proj\\"_s, u".\\res\\a.png"_s, true},
        {u"/home/x/proj/res/a.png"_s, u"/home/x/proj"_s, u".\\res\\a.png"_s, true},
        {u"C:\\proj2\\a.png"_s, u"C:\\proj"_s, u"C:\\proj2\\a.png"_s, false},
        {u"C:\\proj"_s, u"c:\\PROJ"_s, u"."_s, true},
        {u"C:\\pro"_s, u"C:\\proj"_s, u"C:\\pro"_s, false},
        {u"D:\\elsewhere\\a.png"_s, u"C:\\proj"_s, u"D:\\elsewhere\\a.png"_s, false},
        {u"res\\a.png"_s, u"C:\\proj"_s, u"res\\a.png"_s, true},
        {u"C:\\proj\\a"_s, QString(), u"C:\\proj\\a"_s, true},
        {u"\\\\srv\\p\\a"_s, u"\\\\SRV\\p"_s, u".\\a"_s, true},
    };
    for (const Case &c : cases) {
        QString path = c.path;
        EXPECT_EQ(MakeRelative(path, c.base), c.mayBeStored) << qPrintable(c.path);
        EXPECT_EQ(path, c.result) << qPrintable(c.path);
    }
}
