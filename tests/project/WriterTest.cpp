#include "ProjectContext.h"
#include "TestProject.h"

using namespace Qt::StringLiterals;

TEST(ProjectWriter, AnEmptyProjectKeepsItsResolution)
{
    TestProject project;
    CResDoc &doc = *project.Open();
    (void)project.TakeOutput();
    EXPECT_TRUE(doc.DoFileSave());
    EXPECT_EQ(project.folder.Get("demo/res/demo.res.xml"),
              "<APP id=\"APP_demo\">\n"
              "    <RESOLUTION width=\"240\" height=\"320\" class=\"image\" />\n"
              "</APP>\n");
    EXPECT_EQ(project.TakeOutput(), "[demo] save - 0 error(s), 0 warning(s)\r\n");
    EXPECT_FALSE(project.folder.Has("demo/res/ref_list_demo.txt"));
    EXPECT_TRUE(project.folder.Has("demo/ResID/ResID.h"));
}

TEST(ProjectWriter, TheListIsThisToTheByteAndComesBackTheSame)
{
    TestProject project(
        "<APP><STRING>res\\ref_list_demo.txt</STRING><IMAGE id=\"ID_ALL\" type=\"Push\">a&amp;b &lt;1>.png</IMAGE>"
        "<RESOLUTION width=\"320\" height=\"240\" class=\"image\"/>"
        "<RESOLUTION width=\"176\" height=\"220\" class=\"image\"><IMAGE id=\"ID_ONE\"/></RESOLUTION>"
        "<FILE id=\"ID_DATA\">.\\data.bin</FILE><FILE id=\"ID_TUNE\" type=\"push\">tune.wav</FILE></APP>");
    project.folder.Put("demo/res/ref_list_demo.txt", TestProject::StringTable({"ID_HELLO"}));
    const QByteArray expected = "<APP id=\"APP_demo\">\n"
                                "    <FILE id=\"ID_TUNE\" type=\"Normal\">tune.wav</FILE>\n"
                                "    <FILE id=\"ID_DATA\" type=\"Normal\">.\\data.bin</FILE>\n"
                                "    <RESOLUTION width=\"176\" height=\"220\" class=\"image\">\n"
                                "        <IMAGE id=\"ID_ONE\" type=\"Normal\"></IMAGE>\n"
                                "    </RESOLUTION>\n"
                                "    <RESOLUTION width=\"240\" height=\"320\" class=\"image\" />\n"
                                "    <RESOLUTION width=\"320\" height=\"240\" class=\"image\" />\n"
                                "    <IMAGE id=\"ID_ALL\" type=\"Push\">a&amp;b &lt;1&gt;.png</IMAGE>\n"
                                "    <STRING>res\\ref_list_demo.txt</STRING>\n"
                                "</APP>\n";
    for (int round = 0; round < 2; ++round) {
        CResDoc *const doc = project.Open();
        ASSERT_NE(doc, nullptr) << project.TakeOutput().constData();
        EXPECT_TRUE(doc->DoFileSave());
        EXPECT_EQ(project.folder.Get("demo/res/demo.res.xml"), expected);
        EXPECT_EQ(project.folder.Get("demo/res/ref_list_demo.txt"), TestProject::StringTable({"ID_HELLO"}));
        EXPECT_EQ(project.folder.Names("demo/res"), QStringList({u"demo.res.xml"_s, u"ref_list_demo.txt"_s}));
        project.documents.CloseAll();
    }
}

TEST(ProjectWriter, WithoutStringsTheOldStringFileGoesToTheTrash)
{
    TestProject project("<APP><STRING>res\\ref_list_demo.txt</STRING></APP>");
    project.folder.MakeFolder("share");
    qputenv("XDG_DATA_HOME", project.folder.Path("share").toUtf8());
    project.folder.Put("demo/res/ref_list_demo.txt", TestProject::StringTable({"ID_HELLO"}));
    CResDoc *const doc = project.Open();
    ASSERT_NE(doc, nullptr) << project.TakeOutput().constData();
    CResFolder &strings = *doc->root.FindFolder(KIND_STRINGS, 1);
    ASSERT_EQ(strings.subfolders.size(), 3U);

    // A row that has only a description, or only a language, is something to store.
    doc->root.FindFolder(KIND_LANGUAGE, 0, 2)->Clear();
    strings.DeleteFolder(doc->root.FindFolder(KIND_LANGUAGE, 0, 2));
    strings.DeleteFolder(doc->root.FindFolder(KIND_LANGUAGE, 1, 2));
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_TRUE(project.folder.Has("demo/res/ref_list_demo.txt"));

    strings.subfolders.front()->Clear();
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_FALSE(project.folder.Has("demo/res/ref_list_demo.txt"));
    EXPECT_TRUE(project.folder.Has("share/Trash/files/ref_list_demo.txt"));
    EXPECT_FALSE(project.folder.Get("demo/res/demo.res.xml").contains("STRING"));
    qunsetenv("XDG_DATA_HOME");
}

TEST(ProjectWriter, APathThatIsNoTextDoesNotSpoilTheList)
{
    TestProject project("<APP><FILE id=\"A\">\"cut\xc7\"</FILE><FILE id=\"B\">\xcd\xbc.bin</FILE><FILE "
                        "id=\"C\">x&quot;\xe4&amp;</FILE></APP>");
    CResDoc *const doc = project.Open();
    ASSERT_NE(doc, nullptr);
    EXPECT_TRUE(doc->DoFileSave());
    project.documents.CloseAll();
    CResDoc *const again = project.Open();
    ASSERT_NE(again, nullptr) << project.TakeOutput().constData();
    EXPECT_EQ(NamesIn(*again->root.FindFolder(KIND_BINARY, 2)), "A B C");
    EXPECT_TRUE(project.folder.Get("demo/res/demo.res.xml").contains(">\xcd\xbc.bin</FILE>"))
        << "of another code page, and kept";
}

TEST(ProjectWriter, TheFilesLieWhereTheirKeysSay)
{
    TestProject project("<APP/>", "main_xml=lists\\\nheader_output=gen\n[ResID]\nmain_header=ids.h\n");
    project.folder.Put("demo/lists/demo.res.xml", "<APP><FILE id=\"A\"/></APP>");
    CResDoc *const doc = project.Open();
    ASSERT_NE(doc, nullptr);
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_TRUE(project.folder.Get("demo/lists/demo.res.xml").contains("<FILE id=\"A\" type=\"Normal\"></FILE>"));
    EXPECT_EQ(project.folder.Get("demo/res/demo.res.xml"), "<APP/>");
    EXPECT_TRUE(project.folder.Get("demo/gen/ids.h").contains("#if !defined _GEN_IDS_H_\r\n"));
}

TEST(ProjectWriter, WritesTheImagesOfAComponentThatAreInUse)
{
    TestProject project;
    CResDoc &doc = *project.Open();
    auto component = doc.CreateFolder(KIND_COMPONENT, -1);
    component->title = u"Clock"_s;
    for (const auto &[name, path, inUse] :
         {std::tuple("ID_HAND", "own.png", true), std::tuple("ID_FACE", "STOCK.PNG", true),
          std::tuple("ID_REST", "own.png", false)}) {
        auto image = doc.CreateFileRes(name, ANY_RESOLUTION);
        image->path = path;
        image->defaultPath = "stock.png";
        image->inUse = inUse;
        component->AddResource(std::move(image));
    }
    doc.root.AddFolder(std::move(component));
    EXPECT_TRUE(doc.DoFileSave());
    EXPECT_TRUE(project.folder.Get("demo/res/demo.res.xml")
                    .contains("    <COMPONENT id=\"Clock\">\n"
                              "        <IMAGE id=\"ID_HAND\">own.png</IMAGE>\n"
                              "        <IMAGE id=\"ID_FACE\"></IMAGE>\n"
                              "    </COMPONENT>\n"));
}
