// SPDX-License-Identifier: MIT
#include "NewFiles.h"
#include "TempFolder.h"

using namespace Qt::StringLiterals;

TEST(NewFiles, MakesWhatIsMissingAndKeepsWhatExists)
{
    const TempFolder folder;
    folder.Put("a/kept", "old");
    EXPECT_EQ(symlink("nowhere", folder.Path("a/link").toUtf8().constData()), 0);
    NewFiles files;
    for (const char *name : {"a/b/c/one", "a/kept", "a/link", "two"})
        files.Add(folder.Path(name), name);
    EXPECT_EQ(files.Missing(), QStringList({folder.Path("a/b/c/one"), folder.Path("two")}));
    EXPECT_EQ(files.Existing(), QStringList({folder.Path("a/kept"), folder.Path("a/link")}));
    EXPECT_EQ(files.Make(), QString());
    EXPECT_EQ(folder.Get("a/b/c/one"), "a/b/c/one");
    EXPECT_EQ(folder.Get("a/kept"), "old");
    EXPECT_FALSE(folder.Has("a/nowhere"));

    files.TakeBack();
    EXPECT_EQ(folder.Names(), QStringList({u"a"_s}));
    EXPECT_EQ(folder.Names("a"), QStringList({u"kept"_s, u"link"_s}));
}
