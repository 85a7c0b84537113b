#include "V1ResourceList.h"
#include "PackProject.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace
{

class V1ResourceListTest : public testing::Test
{
protected:
    V1ResourceList Load(const QByteArray &listFile)
    {
        project.Put("demo/demo_res.lst", listFile);
        return Load();
    }
    V1ResourceList Load()
    {
        V1ResourceList list(*project.env, project.Path("demo/demo.vcproj"));
        list.Load();
        return list;
    }
    static QStringList Paths(const V1ResourceList &list)
    {
        QStringList paths;
        for (const V1ResourceList::Row &row : list.Rows())
            paths += row.path;
        return paths;
    }
    QString Demo(const char *name) { return project.Path("demo/" + QByteArray(name)); }

    PackProject project;
};

TEST_F(V1ResourceListTest, FilesOfTheProjectAreStoredRelativeAndOthersAsTheyAre)
{
    V1ResourceList list = Load();
    EXPECT_TRUE(list.Rows().empty());
    list.Add({Demo("res/a.gif"), u"/elsewhere/b.mp3"_s, Demo("res/a.gif"), u"C:\\x\\c.bin"_s});
    ASSERT_TRUE(list.Save());
    EXPECT_EQ(project.Get("demo/demo_res.lst"), ".\\res\\a.gif\r\n/elsewhere/b.mp3\r\n.\\res\\a.gif\r\nC:\\x\\c.bin");
    EXPECT_EQ(Load().Rows(), list.Rows());
    EXPECT_EQ(Load().Rows()[1].name, u"b.mp3");
}

TEST_F(V1ResourceListTest, ReadsLinesWrittenByHandAndDropsBlankOnes)
{
    V1ResourceList list = Load(".\\a.gif\n\r\n..\\up.gif\r\n.\\b.gif\r");
    EXPECT_EQ(Paths(list), QStringList({Demo("a.gif"), u"..\\up.gif"_s, Demo("b.gif")}));
    ASSERT_TRUE(list.Save());
    EXPECT_EQ(project.Get("demo/demo_res.lst"), ".\\a.gif\r\n..\\up.gif\r\n.\\b.gif");
}

TEST_F(V1ResourceListTest, ReadingStopsAtALineThatIsNoPathOrTooLong)
{
    EXPECT_EQ(Paths(Load(".\\a.gif\r\nb.gif\r\n.\\c.gif")), QStringList(Demo("a.gif")));
    const QByteArray fits = ".\\" + QByteArray(1021, 'x');
    EXPECT_EQ(Load(fits + "\n.\\c.gif").Rows().size(), 2U);
    EXPECT_EQ(Load(".\\a.gif\n" + fits + "x\n.\\c.gif").Rows().size(), 1U);
}

TEST_F(V1ResourceListTest, RemovesExactlyTheSelectedRows)
{
    V1ResourceList list = Load(".\\0\n.\\1\n.\\2\n.\\3\n.\\4");
    list.Remove({4, 0, 2, 99});
    EXPECT_EQ(Paths(list), QStringList({Demo("1"), Demo("3")}));
    list.Remove({0, 1});
    ASSERT_TRUE(list.Save());
    EXPECT_EQ(project.Get("demo/demo_res.lst"), "");
}

TEST_F(V1ResourceListTest, WithoutAProjectThereIsNothingToLoadOrSave)
{
    V1ResourceList list(*project.env, QString());
    list.Load();
    list.Add({Demo("a.gif")});
    EXPECT_FALSE(list.Save());
    EXPECT_EQ(list.Rows().size(), 1U);
}

TEST_F(V1ResourceListTest, AListThatCannotBeWrittenStaysAsItWas)
{
    ASSERT_TRUE(CreateFolderOnDisk(Demo("demo_res.lst")));
    V1ResourceList list = Load();
    list.Add({Demo("a.gif")});
    EXPECT_TRUE(list.Save());
}

TEST_F(V1ResourceListTest, ACopyGoesIntoTheFolderOfTheSelectedConfiguration)
{
    const auto save = [&](const QByteArray &name) {
        V1ResourceList list = Load();
        list.Add({Demo(name.constData())});
        EXPECT_TRUE(list.Save());
    };
    save("no list of configurations");
    EXPECT_FALSE(project.Has("demo/config"));

    project.Put("demo/config_list.ini", "[CONFIGSELECTED]\r\nSELECTED=Debug\r\n");
    save("a.gif");
    EXPECT_EQ(project.Get("demo/config/Debug/demo_res.lst"), project.Get("demo/demo_res.lst"));
    save("b.gif");
    EXPECT_EQ(project.Get("demo/config/Debug/demo_res.lst"), project.Get("demo/demo_res.lst"));

    // Where the folder of all configurations is there already, none is made in it.
    project.Put("demo/config_list.ini", "[CONFIGSELECTED]\r\nSELECTED=Release\r\n");
    save("c.gif");
    EXPECT_FALSE(project.Has("demo/config/Release"));
    project.Put("demo/config_list.ini", "");
    save("d.gif");
    EXPECT_FALSE(project.Has("demo/config/demo_res.lst"));
}

TEST_F(V1ResourceListTest, TheExampleOfTheManualIsReadAndWrittenUnchanged)
{
    QByteArray page;
    ASSERT_EQ(ReadFile(u"" MORVANITE_DOCS "/formats/lists.md", page), 0);
    const qsizetype begin = page.indexOf("```text\n") + 8;
    QByteArray example = page.mid(begin, page.indexOf("\n```", begin) - begin);
    const V1ResourceList list = Load(example);
    EXPECT_EQ(Paths(list),
              QStringList({Demo("res/v1/chime.mid"), Demo("res/v1/manual.txt"), u"/opt/shared/logo.gif"_s}));
    ASSERT_TRUE(list.Save());
    EXPECT_EQ(project.Get("demo/demo_res.lst"), example.replace("\n", "\r\n"));
}

} // namespace
