// SPDX-License-Identifier: MIT
#include "Paths.h"

#include <gtest/gtest.h>

#include <array>

using namespace Qt::StringLiterals;

TEST(Paths, AreSplitAtTheLastSeparatorAndTheLastDotOfTheName)
{
    using Parts = std::array<QString, 4>;
    for (const auto &[path, directory, title, extension] : {
             Parts{u"C:\\p\\demo.res.xml"_s, u"C:\\p"_s, u"demo.res"_s, u"xml"_s},
             Parts{u"mixed.d/up\\a"_s, u"mixed.d/up"_s, u"a"_s, u""_s},
             Parts{u"\\a.vcproj"_s, u"."_s, u"a"_s, u"vcproj"_s},
             Parts{u"/a.vcproj"_s, u"/"_s, u"a"_s, u"vcproj"_s},
             Parts{u".hidden"_s, u"."_s, u""_s, u"hidden"_s},
             Parts{u"folder/"_s, u"folder"_s, u""_s, u""_s},
             Parts{u"ends."_s, u"."_s, u"ends"_s, u""_s},
             Parts{u""_s, u"."_s, u""_s, u""_s},
         })
        EXPECT_EQ((Parts{path, DirectoryOf(path), FileTitle(path), FileExtension(path)}),
                  (Parts{path, directory, title, extension}))
            << qPrintable(path);
}

TEST(Paths, JoinsRelativePathsAndResolvesDots)
{
    EXPECT_EQ(ResolvePath(u".\\config.xml"_s, u"/home/x/demo"_s), u"/home/x/demo/config.xml"_s);
    EXPECT_EQ(ResolvePath(u"..\\..\\..\\..\\a"_s, u"/home/x/"_s), u"/a"_s);
    EXPECT_EQ(ResolvePath(u"res\\\\b\\..\\a.png"_s, u"C:\\proj"_s), u"C:/proj/res/a.png"_s);
    EXPECT_EQ(ResolvePath(u"..\\..\\a"_s, u"C:\\proj"_s), u"C:/a"_s);
    EXPECT_EQ(ResolvePath(u"a"_s, u"\\\\server\\share"_s), u"/server/share/a"_s);
    EXPECT_EQ(ResolvePath(u"..\\ResID.h"_s, u".\\ResID\\..\\.."_s), u"../../ResID.h"_s);
    for (const QString &path : {u"/etc/x"_s, u"\\\\server\\x"_s, u"D:\\..\\x"_s})
        EXPECT_EQ(ResolvePath(path, u"/home/x"_s), path);
    QString longest(517, u'a');
    EXPECT_TRUE(MakeAbsolute(longest, u"/b"_s) && longest.size() == 520);
    QString tooLong(518, u'a');
    EXPECT_TRUE(!MakeAbsolute(tooLong, u"/b"_s) && tooLong.size() == 518);
}

TEST(Paths, MakesOnlyPathsInsideTheFolderRelative)
{
    const QString refused;
    for (const auto &[path, base, result] : {
             std::tuple(u"C:\\PROJ\\res\\a.png"_s, u"C:\\proj"_s, u".\\res\\a.png"_s),
             {u"C:\\proj\\res\\a.png"_s, u"C:/proj/"_s, u".\\res\\a.png"_s},
             {u"/home/x/proj/res/a.png"_s, u"/home/x/proj"_s, u".\\res\\a.png"_s},
             {u"C:\\proj"_s, u"c:\\PROJ"_s, u"."_s},
             {u"res\\a.png"_s, u"C:\\proj"_s, u"res\\a.png"_s},
             {u"C:\\proj\\a"_s, u""_s, u"C:\\proj\\a"_s},
             {u"C:\\proj2\\a.png"_s, u"C:\\proj"_s, refused},
             {u"C:\\pro"_s, u"C:\\proj"_s, refused},
             {u"D:\\elsewhere\\a.png"_s, u"C:\\proj"_s, refused},
         }) {
        QString made = path;
        EXPECT_EQ(MakeRelative(made, base), result != refused) << qPrintable(path);
        EXPECT_EQ(made, result == refused ? path : result);
    }
}
