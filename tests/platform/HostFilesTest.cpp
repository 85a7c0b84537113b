#include "HostFiles.h"

#include "TempFolder.h"

#include <sys/stat.h>

using namespace Qt::StringLiterals;

TEST(HostPaths, EachNameIsMatchedWithoutCaseAndTheExactOneFirst)
{
    const TempFolder folder;
    for (const char *name : {"Res/Images/Logo.PNG", "res/other.png", "Res/Über.png"})
        folder.Put(name, "");
    QDir::setCurrent(folder.Path());
    EXPECT_EQ(HostPath(u".\\Res\\Images\\Logo.PNG"), "./Res/Images/Logo.PNG");
    EXPECT_EQ(HostPath(u".\\Res\\IMAGES\\logo.png"), "./Res/Images/Logo.PNG");
    EXPECT_EQ(HostPath(u"res\\OTHER.png"), "res/other.png");
    EXPECT_EQ(HostPath(u"Res\\üBER.png"), QByteArray("Res/Über.png"));
    EXPECT_EQ(HostPath(u"Res\\missing\\Logo.PNG"), "Res/missing/Logo.PNG");
    EXPECT_TRUE(PathExists(folder.Path("RES/Images/logo.png")) != PathExists(folder.Path("RES/other.png")))
        << "of two folders one is taken, always the same";
}

TEST(HostPaths, ListingsAnswerAsTheFileSystemDoes)
{
    const TempFolder folder;
    folder.Put("a/file.png", "1");
    ASSERT_EQ(symlink("nowhere", folder.Path("a/dangling").toUtf8().constData()), 0);
    ASSERT_EQ(symlink("file.png", folder.Path("a/link").toUtf8().constData()), 0);
    QDir::setCurrent(folder.Path());
    HostPaths paths;
    for (const QString &there : {u".\\a\\file.png"_s, u"A/FILE.PNG"_s, u"a/link"_s, u"a"_s, u"."_s, u"a\\.."_s,
                                 folder.Path("a/file.png"), folder.Path("A/File.png")})
        EXPECT_TRUE(paths.Exists(there) && PathExists(there)) << qPrintable(there);
    for (const QString &missing : {u"a/dangling"_s, u"a/none"_s, u"b/file.png"_s, QString(), u"a/file.png/x"_s})
        EXPECT_FALSE(paths.Exists(missing) || PathExists(missing)) << qPrintable(missing);
}

TEST(HostPaths, EndlessPathsAndThousandsOfFoldersAreAnswered)
{
    const TempFolder folder;
    QDir::setCurrent(folder.Path());
    HostPaths paths;
    for (const QString &part : {u"x/"_s, u"./"_s, u"/"_s})
        EXPECT_FALSE(paths.Exists(part.repeated(1'000'000) + u"none here"_s));
    for (int i = 1; i < 1500; ++i)
        EXPECT_FALSE(paths.Exists(u"./"_s.repeated(i) + u"Y"_s));
}

TEST(ReadFile, WhatIsNoPlainFileIsRefusedWithoutWaiting)
{
    const TempFolder folder;
    folder.MakeFolder("folder");
    ASSERT_EQ(mkfifo(folder.Path("pipe").toUtf8().constData(), 0600), 0);
    folder.Put("big", QByteArray(100, 'x'));
    QByteArray bytes = "unchanged";
    EXPECT_EQ(ReadFile(folder.Path("folder"), bytes), EISDIR);
    EXPECT_EQ(ReadFile(folder.Path("pipe"), bytes), EINVAL);
    EXPECT_EQ(ReadFile(folder.Path("missing"), bytes), ENOENT);
    EXPECT_EQ(ReadFile(folder.Path("big"), bytes, 99), EFBIG);
    EXPECT_EQ(bytes, "unchanged");
    EXPECT_EQ(ReadFile(folder.Path("BIG"), bytes, 100), 0);
    EXPECT_EQ(bytes, QByteArray(100, 'x'));
}
