#include "Paths.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Paths, ArePartedAtTheLastSeparatorAndTheLastDotOfTheName)
{
    const struct
    {
        QString path, directory, title, extension;
    } cases[] = {
        {u"C:\\p\\demo.res.xml"_s, u"C:\\p"_s, u"demo.res"_s, u"xml"_s},
        {u"mixed.d/up\\a"_s, u"mixed.d/up"_s, u"a"_s, u""_s},
        {u"p.d/demo"_s, u"p.d"_s, u"demo"_s, u""_s},
        {u"a.vcproj"_s, u"."_s, u"a"_s, u"vcproj"_s},
        {u"\\a.vcproj"_s, u"."_s, u"a"_s, u"vcproj"_s},
        {u"/a.vcproj"_s, u"/"_s, u"a"_s, u"vcproj"_s},
        {u".hidden"_s, u"."_s, u""_s, u"hidden"_s},
        {u"folder/"_s, u"folder"_s, u""_s, u""_s},
        {u"ends."_s, u"."_s, u"ends"_s, u""_s},
        {u""_s, u"."_s, u""_s, u""_s},
    };
    for (const auto &[path, directory, title, extension] : cases) {
        EXPECT_EQ(DirectoryOf(path), directory) << qPrintable(path);
        EXPECT_EQ(FileTitle(path), title) << qPrintable(path);
        EXPECT_EQ(FileExtension(path), extension) << qPrintable(path);
    }
}

TEST(Paths, ARelativePathIsJoinedAndItsDotsGo)
{
    EXPECT_EQ(ResolvePath(u".\\config.xml"_s, u"/home/x/demo"_s), u"/home/x/demo/config.xml"_s);
    EXPECT_EQ(ResolvePath(u"..\\..\\..\\..\\a"_s, u"/home/x/"_s), u"/a"_s);
    EXPECT_EQ(ResolvePath(u"res\\\\b\\..\\a.png"_s, u"C:\\proj"_s), u"C:/proj/res/a.png"_s);
    EXPECT_EQ(ResolvePath(u"a"_s, u"\\\\server\\share"_s), u"/server/share/a"_s);
    EXPECT_EQ(ResolvePath(u"..\\ResID.h"_s, u".\\ResID\\..\\.."_s), u"../../ResID.h"_s);
    for (const QString &path : {u"/etc/x"_s, u"\\\\server\\x"_s, u"D:\\..\\x"_s})
        EXPECT_EQ(ResolvePath(path, u"/home/x"_s), path);
    for (const qsizetype size : {517, 518}) { // 520 characters at most
        QString path(size, u'a');
        EXPECT_EQ(MakeAbsolute(path, u"/b"_s), size == 517);
        EXPECT_EQ(path.size(), size == 517 ? 520 : size);
    }
}

TEST(Paths, OnlyWhatLiesInTheFolderIsMadeRelative)
{
    const struct
    {
        QString path, base, result;
        bool mayBeStored;
    } cases[] = {
        {u"C:\\PROJ\\res\\a.png"_s, u"C:\\proj"_s, u".\\res\\a.png"_s, true},
        {u"C:\\proj\\res\\a.png"_s, u"C:/proj/"_s, u".\\res\\a.png"_s, true},
        {u"/home/x/proj/res/a.png"_s, u"/home/x/proj"_s, u".\\res\\a.png"_s, true},
        {u"C:\\proj2\\a.png"_s, u"C:\\proj"_s, u"C:\\proj2\\a.png"_s, false},
        {u"C:\\proj"_s, u"c:\\PROJ"_s, u"."_s, true},
        {u"C:\\pro"_s, u"C:\\proj"_s, u"C:\\pro"_s, false},
        {u"D:\\elsewhere\\a.png"_s, u"C:\\proj"_s, u"D:\\elsewhere\\a.png"_s, false},
        {u"res\\a.png"_s, u"C:\\proj"_s, u"res\\a.png"_s, true},
        {u"C:\\proj\\a"_s, u""_s, u"C:\\proj\\a"_s, true},
    };
    for (const auto &[from, base, result, mayBeStored] : cases) {
        QString path = from;
        EXPECT_EQ(MakeRelative(path, base), mayBeStored) << qPrintable(from);
        EXPECT_EQ(path, result);
    }
}
