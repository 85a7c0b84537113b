// SPDX-License-Identifier: MIT
#include "HostFiles.h"

#include "TempFolder.h"

#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

TEST(HostPaths, MatchNamesWithoutCaseAndPreferExactOnes)
{
    const TempFolder folder;
    for (const char *name : {"Res/Images/Logo.PNG", "res/other.png", "Res/Über.png", "twin", "Twin", "tWin", "TWin"})
        folder.Put(name, "");
    QDir::setCurrent(folder.Path());
    EXPECT_EQ(HostPath(u".\\Res\\Images\\Logo.PNG"), "./Res/Images/Logo.PNG");
    EXPECT_EQ(HostPath(u".\\Res\\IMAGES\\logo.png"), "./Res/Images/Logo.PNG");
    EXPECT_EQ(HostPath(u"res\\OTHER.png"), "res/other.png");
    EXPECT_EQ(HostPath(u"Res\\üBER.png"), QByteArray("Res/Über.png"));
    EXPECT_EQ(HostPath(u"Res\\missing\\Logo.PNG"), "Res/missing/Logo.PNG");
    EXPECT_EQ(HostPath(u"RES\\other.png"), "Res/other.png") << "always the same one of two folders";
    EXPECT_EQ(HostPath(u"TWIN"), "TWin");
    // No text can name a file whose name isn't UTF-8: two such names could be equal after decoding.
    QDir().mkdir(u"text"_s);
    const FileHandle other(creat("text/M\xF6ller", 0600));
    ASSERT_TRUE(other.IsOpen());
    EXPECT_EQ(HostPath(u"text\\M\uFFFDller"), QByteArray("text/M\uFFFDller"));
    EXPECT_FALSE(PathExists(u"text\\M\uFFFDller") || HostPaths().Exists(u"text\\M\uFFFDller"));
    EXPECT_EQ(unlink("text/M\xF6ller"), 0); // the destructor of the folder can't remove it
}

TEST(HostPaths, ListingsAgreeWithTheFileSystem)
{
    const TempFolder folder;
    QDir::setCurrent(folder.Path());
    folder.Put("a/file.png", "1");
    ASSERT_TRUE(symlink("nowhere", "a/dangling") == 0 && symlink("file.png", "a/link") == 0);
    HostPaths paths;
    for (const QString &there : {u".\\a\\file.png"_s, u"A/FILE.PNG"_s, u"a/link"_s, u"a"_s, u"."_s, u"a\\.."_s,
                                 folder.Path("a/file.png"), folder.Path("A/File.png")})
        EXPECT_TRUE(paths.Exists(there) && PathExists(there)) << qPrintable(there);
    for (const QString &missing : {u"a/dangling"_s, u"a/none"_s, u"b/file.png"_s, u""_s, u"a/file.png/x"_s})
        EXPECT_FALSE(paths.Exists(missing) || PathExists(missing)) << qPrintable(missing);
    // Very long paths and thousands of folders give a result too.
    for (const QString &part : {u"x/"_s, u"./"_s, u"/"_s})
        EXPECT_FALSE(paths.Exists(part.repeated(1'000'000) + u"none here"_s));
    for (int i = 1; i < 1500; ++i)
        EXPECT_FALSE(paths.Exists(u"./"_s.repeated(i) + u"Y"_s));
}

TEST(ReadFile, RefusesSpecialFilesWithoutWaiting)
{
    const TempFolder folder;
    QDir::setCurrent(folder.Path());
    folder.Put("big", QByteArray(100, 'x'));
    ASSERT_EQ(mkfifo("pipe", 0600), 0);
    QByteArray bytes = "unchanged";
    EXPECT_EQ(ReadFile(u".", bytes), EISDIR);
    EXPECT_EQ(ReadFile(u"pipe", bytes), EINVAL);
    EXPECT_EQ(ReadFile(u"missing", bytes), ENOENT);
    EXPECT_EQ(ReadFile(u"big", bytes, 99), EFBIG);
    EXPECT_EQ(bytes, "unchanged");
    EXPECT_EQ(ReadFile(u"BIG", bytes, 100), 0);
    EXPECT_EQ(bytes, QByteArray(100, 'x'));
}
