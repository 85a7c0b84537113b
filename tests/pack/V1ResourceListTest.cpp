// SPDX-License-Identifier: MIT
#include "V1ResourceList.h"
#include "PackProject.h"

using namespace Qt::StringLiterals;

struct V1List : PackProject, testing::Test
{
    V1ResourceList Load(const QByteArray &listFile = {})
    {
        if (!listFile.isEmpty())
            folder.Put("demo_res.lst", listFile);
        V1ResourceList list(env, PathName());
        list.Load();
        return list;
    }
    /// Returns the paths, with "@" for the project's folder.
    QByteArray Paths(const V1ResourceList &list)
    {
        QStringList paths;
        for (const V1ResourceList::Row &row : list.Rows())
            paths += row.path;
        return paths.join(u' ').toUtf8().replace(Narrow(""), "@");
    }
    QByteArray Saved(const V1ResourceList &list)
    {
        EXPECT_TRUE(list.Save());
        return folder.Get("demo_res.lst");
    }
};

TEST_F(V1List, StoresFilesOfTheProjectRelativeAndOthersUnchanged)
{
    V1ResourceList list = Load();
    EXPECT_TRUE(list.Rows().empty());
    const QString a = folder.Path("res/a.gif");
    list.Add({a, u"/elsewhere/b.mp3"_s, a, u"C:\\x\\c.bin"_s});
    EXPECT_EQ(Saved(list), ".\\res\\a.gif\r\n/elsewhere/b.mp3\r\n.\\res\\a.gif\r\nC:\\x\\c.bin");
    EXPECT_EQ(Load().Rows(), list.Rows());
    EXPECT_EQ(Load().Rows()[1].name, u"b.mp3");
    list.Remove({2, 0, 99});
    EXPECT_EQ(Paths(list), "/elsewhere/b.mp3 C:\\x\\c.bin");
    list.Remove({0, 1});
    EXPECT_EQ(Saved(list), "");

    V1ResourceList none(env, QString());
    none.Load();
    none.Add({a});
    EXPECT_TRUE(!none.Save() && none.Rows().size() == 1) << "without a project there is nothing to load or save";
    folder.MakeFolder("x/demo_res.lst");
    EXPECT_TRUE(V1ResourceList(env, folder.Path("x/demo.vcproj")).Save())
        << "a list that can't be written is not a failure";
}

TEST_F(V1List, ReadingSkipsBlankLinesAndStopsAtAnInvalidOrTooLongPath)
{
    const V1ResourceList list = Load(".\\a.gif\n\r\n..\\up.gif\r\n.\\b.gif\r");
    EXPECT_EQ(Paths(list), "@/a.gif ..\\up.gif @/b.gif");
    EXPECT_EQ(Saved(list), ".\\a.gif\r\n..\\up.gif\r\n.\\b.gif");
    EXPECT_EQ(Saved(Load(".\\\xD6\xD0.gif\r\n.\\a.gif")), ".\\\xD6\xD0.gif\r\n.\\a.gif") << "in another code page";
    EXPECT_EQ(Paths(Load(".\\a.gif\r\nb.gif\r\n.\\c.gif")), "@/a.gif");
    const QByteArray fits = ".\\" + QByteArray(1021, 'x');
    EXPECT_EQ(Load(fits + "\n.\\c.gif").Rows().size(), 2U);
    EXPECT_EQ(Load(".\\a.gif\n" + fits + "x\n.\\c.gif").Rows().size(), 1U);
}

TEST_F(V1List, CopiesIntoTheFolderOfTheSelectedConfiguration)
{
    const auto save = [&](const char *selected, const char *file) {
        if (selected)
            folder.Put("config_list.ini", selected);
        V1ResourceList list = Load();
        list.Add({folder.Path(file)});
        return Saved(list);
    };
    save(nullptr, "no list of configurations");
    EXPECT_FALSE(folder.Has("config"));
    for (const char *file : {"a.gif", "b.gif"}) {
        const QByteArray saved = save("[CONFIGSELECTED]\r\nSELECTED=Debug\r\n", file);
        EXPECT_EQ(folder.Get("config/Debug/demo_res.lst"), saved);
    }
    // If the folder of all configurations exists, no other folder is made in it.
    for (const char *selected : {"[CONFIGSELECTED]\r\nSELECTED=Release\r\n", ""})
        save(selected, "c.gif");
    EXPECT_EQ(folder.Names("config"), QStringList({u"Debug"_s}));
}

TEST_F(V1List, ReadsAndWritesTheExampleOfTheManualUnchanged)
{
    QFile page(u"" MORVANITE_DOCS "/formats/lists.md"_s);
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    QByteArray example = page.readAll();
    example = example.sliced(example.indexOf("```text\n") + 8);
    example.truncate(example.indexOf("\n```"));
    const V1ResourceList list = Load(example);
    EXPECT_EQ(Paths(list), "@/res/v1/chime.mid @/res/v1/manual.txt /opt/shared/logo.gif");
    EXPECT_EQ(Saved(list), example.replace("\n", "\r\n"));
}

TEST_F(V1List, IsNotWrittenThroughALinkOutOfTheProject)
{
    V1ResourceList list = Load();
    list.Add({folder.Path("res/a.gif")});
    TempFolder user;
    user.Put("profile", "mine");
    ASSERT_EQ(symlink(user.Path("profile").toUtf8().constData(), Narrow("demo_res.lst").constData()), 0);
    EXPECT_EQ(Saved(list), "mine");
    EXPECT_EQ(env.FailureCount, 1);
}
