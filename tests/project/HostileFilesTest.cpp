#include "TestProject.h"

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace
{

/// Opens a project with that resource list; true when it loads. What counts is that it comes back.
bool Opens(const QByteArray &resources)
{
    TestProject project(resources);
    return project.Open() != nullptr;
}

} // namespace

TEST(HostileProject, DeepWideAndEndlessListsAreRefused)
{
    EXPECT_FALSE(
        Opens("<APP>" + QByteArray("<FILE id=\"A\">").repeated(300) + QByteArray("</FILE>").repeated(300) + "</APP>"));
    QByteArray wide = "<APP><FILE";
    for (int i = 0; i < 100'000; ++i)
        wide += " a" + QByteArray::number(i) + "=\"1\"";
    EXPECT_FALSE(Opens(wide + "/></APP>"));
    EXPECT_FALSE(Opens(QByteArray(100 << 20, '<')));
    EXPECT_FALSE(Opens("<APP>" + QByteArray(20 << 20, ' ')));
    EXPECT_FALSE(Opens(QByteArray(300 << 20, '\n')));
}

TEST(HostileProject, BytesThatAreNoTextAreTakenOrRefusedAndNoMore)
{
    EXPECT_FALSE(Opens(QByteArray("<APP>\0</APP>", 12)));
    EXPECT_FALSE(Opens("<APP><FILE id=\"\xf0\x9f"));
    EXPECT_TRUE(Opens("<APP><FILE id=\"\xff\xfe\">\x80</FILE></APP>"));
    EXPECT_FALSE(Opens("<APP><FILE id=\"A\">\xe4\xb8</FILE></APP>"))
        << "the cut character swallows the end tag's beginning";
    EXPECT_TRUE(Opens("<APP><FILE id=\"A\">&#x0;&#xD800;&#x110000;&unknown;&#;&</FILE></APP>"));
    EXPECT_TRUE(Opens("<APP><RESOLUTION width=\"99999999999999999999\" height=\"-1\"/>"
                      "<RESOLUTION width=\"65776\" height=\"65856\" class=\"image\"><IMAGE id=\"A\"/></RESOLUTION>"
                      "<RESOLUTION width=\"\" height=\"x\"/></APP>"));
    EXPECT_TRUE(Opens("<APP><FILE id=\"%s%n%s%d\">%n%n%n</FILE><%n/></APP>"));
}

TEST(HostileProject, PathsOfAnySortAreAskedForAndNotOpened)
{
    const QByteArray longPath = QByteArray("a\\").repeated(500'000);
    TestProject project("<APP><FILE id=\"A\">" + longPath +
                        "</FILE><FILE id=\"B\">\\\\server\\share\\x</FILE>"
                        "<FILE id=\"C\">C:\\x</FILE><FILE id=\"D\">..\\..\\..\\..\\..\\..\\etc\\passwd</FILE>"
                        "<STRING>" +
                        longPath + "</STRING></APP>");
    EXPECT_EQ(project.Open(), nullptr) << "the string file isn't there";
    EXPECT_TRUE(project.TakeOutput().contains("Warning 1: file not found - [A] (Line 2).\r\n"));
}

TEST(HostileProject, PipesAndFoldersInThePlaceOfFilesDoNotHang)
{
    for (const char *name : {"demo/res/demo.res.xml", "demo/config.xml", "demo/res/ref_list_demo.txt"}) {
        for (const bool pipe : {true, false}) {
            TestProject project("<APP><STRING>res\\ref_list_demo.txt</STRING></APP>");
            const QString path = project.folder.Path(name);
            QFile::remove(path);
            if (pipe)
                ASSERT_EQ(mkfifo(path.toUtf8().constData(), 0600), 0);
            else
                project.folder.MakeFolder(name);
            EXPECT_EQ(project.Open(), nullptr) << name;
        }
    }
    TestProject project("<APP><FILE id=\"A\">pipe</FILE></APP>");
    ASSERT_EQ(mkfifo(project.folder.Path("demo/pipe").toUtf8().constData(), 0600), 0);
    EXPECT_NE(project.Open(), nullptr);
}

TEST(HostileProject, EveryCutOfAListIsTakenOrRefused)
{
    const QByteArray whole =
        "<?xml version=\"1.0\"?><!-- c --><APP id=\"APP_demo\"><FILE id=\"ID_A\" type='Push'>\xe4\xb8\xad.wav</FILE>"
        "<RESOLUTION width=\"240\" height=\"320\" class=\"image\"><IMAGE "
        "id=\"B\"><![CDATA[x]]></IMAGE></RESOLUTION></APP>";
    TestProject project;
    for (qsizetype size = 0; size < whole.size(); ++size) {
        project.folder.Put("demo/res/demo.res.xml", whole.first(size));
        EXPECT_EQ(project.Open(), nullptr) << size;
    }
    project.folder.Put("demo/res/demo.res.xml", whole);
    EXPECT_NE(project.Open(), nullptr);
}
