// SPDX-License-Identifier: MIT
#include "ProjectContext.h"
#include "TestProject.h"

using namespace Qt::StringLiterals;

TEST(ProjectWriter, WritesTheExactListAndReadsItBack)
{
    TestProject project(
        "<APP><STRING>res\\ref_list_demo.txt</STRING><IMAGE id=\"ID_ALL\" type=\"Push\">a&amp;b &lt;1>.png</IMAGE>"
        "<RESOLUTION width=\"320\" height=\"240\" class=\"image\"/>"
        "<RESOLUTION width=\"176\" height=\"220\" class=\"image\"><IMAGE id=\"ID_ONE\"/></RESOLUTION>"
        "<FILE id=\"ID_DATA\">.\\data.bin</FILE><FILE id=\"ID_TUNE\" type=\"push\">tune.wav</FILE></APP>");
    project.folder.Put("demo/res/ref_list_demo.txt", TestProject::StringTable({"ID_HELLO"}));
    for (int round = 0; round < 2; ++round) {
        CResDoc *const doc = project.Open();
        ASSERT_NE(doc, nullptr) << project.TakeOutput().constData();
        (void)project.TakeOutput();
        EXPECT_TRUE(doc->DoFileSave());
        EXPECT_EQ(project.TakeOutput(), "[demo] save - 0 error(s), 0 warning(s)\r\n");
        EXPECT_EQ(project.folder.Get("demo/res/demo.res.xml"),
                  "<APP id=\"APP_demo\">\n"
                  "    <FILE id=\"ID_TUNE\" type=\"Normal\">tune.wav</FILE>\n"
                  "    <FILE id=\"ID_DATA\" type=\"Normal\">.\\data.bin</FILE>\n"
                  "    <RESOLUTION width=\"176\" height=\"220\" class=\"image\">\n"
                  "        <IMAGE id=\"ID_ONE\" type=\"Normal\"></IMAGE>\n"
                  "    </RESOLUTION>\n"
                  "    <RESOLUTION width=\"240\" height=\"320\" class=\"image\" />\n"
                  "    <RESOLUTION width=\"320\" height=\"240\" class=\"image\" />\n"
                  "    <IMAGE id=\"ID_ALL\" type=\"Push\">a&amp;b &lt;1&gt;.png</IMAGE>\n"
                  "    <STRING>res\\ref_list_demo.txt</STRING>\n"
                  "</APP>\n");
        EXPECT_EQ(project.folder.Get("demo/res/ref_list_demo.txt"), TestProject::StringTable({"ID_HELLO"}));
        EXPECT_EQ(project.folder.Names("demo/res"), QStringList({u"demo.res.xml"_s, u"ref_list_demo.txt"_s}));
        project.documents.CloseAll();
    }
}

TEST(ProjectWriter, MovesTheStringFileToTheTrashWithoutStrings)
{
    TestProject project("<APP><STRING>res\\ref_list_demo.txt</STRING></APP>");
    project.folder.MakeFolder("share");
    qputenv("XDG_DATA_HOME", project.folder.Path("share").toUtf8());
    project.folder.Put("demo/res/ref_list_demo.txt", TestProject::StringTable({"ID_HELLO"}));
    CResDoc *const doc = project.Open();
    ASSERT_NE(doc, nullptr) << project.TakeOutput().constData();
    CResFolder &strings = *doc->root.FindFolder(KIND_STRINGS, 1);
    while (strings.subfolders.size() > 1)
        strings.DeleteFolder(strings.subfolders.back().get());
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_TRUE(project.folder.Has("demo/res/ref_list_demo.txt")) << "a description is content";

    strings.subfolders.front()->Clear();
    QFile::remove(project.folder.Path("demo/res/demo.res.xml"));
    project.folder.MakeFolder("demo/res/demo.res.xml");
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_TRUE(project.folder.Has("demo/res/ref_list_demo.txt")) << "a save that fails loses nothing";
    QDir().rmdir(project.folder.Path("demo/res/demo.res.xml"));
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_FALSE(project.folder.Has("demo/res/ref_list_demo.txt"));
    EXPECT_TRUE(project.folder.Has("share/Trash/files/ref_list_demo.txt"));
    EXPECT_FALSE(project.folder.Get("demo/res/demo.res.xml").contains("STRING"));
    qunsetenv("XDG_DATA_HOME");
}

TEST(ProjectWriter, KeepsTheListValidForAPathThatIsNotText)
{
    TestProject project("<APP><FILE id=\"A\">\"cut\xc7\"</FILE><FILE id=\"B\">\xcd\xbc.bin</FILE><FILE "
                        "id=\"C\">x&quot;\xe4&amp;</FILE></APP>");
    EXPECT_TRUE(project.Open()->DoFileSave());
    project.documents.CloseAll();
    CResDoc *const again = project.Open();
    ASSERT_NE(again, nullptr) << project.TakeOutput().constData();
    EXPECT_EQ(NamesIn(*again->root.FindFolder(KIND_BINARY, 2)), "A B C");
    EXPECT_TRUE(project.folder.Get("demo/res/demo.res.xml").contains(">\xcd\xbc.bin</FILE>"))
        << "in another code page, and kept";
}

TEST(ProjectWriter, WritesFilesToThePathsOfTheirKeys)
{
    TestProject project("<APP/>", "main_xml=lists\\\nheader_output=gen\n[ResID]\nmain_header=ids.h\n");
    project.folder.Put("demo/lists/demo.res.xml", "<APP><FILE id=\"A\"/></APP>");
    EXPECT_TRUE(project.Open()->DoFileSave());
    EXPECT_TRUE(project.folder.Get("demo/lists/demo.res.xml").contains("<FILE id=\"A\" type=\"Normal\"></FILE>"));
    EXPECT_EQ(project.folder.Get("demo/res/demo.res.xml"), "<APP/>");
    EXPECT_TRUE(project.folder.Get("demo/gen/ids.h").contains("#if !defined _GEN_IDS_H_\r\n"));
}

TEST(ProjectWriter, WritesTheImagesOfAComponentThatTheListUses)
{
    TestProject project;
    CResDoc &doc = *project.Open();
    auto component = doc.CreateFolder(KIND_COMPONENT, -1);
    component->title = u"Clock"_s;
    for (const char *name : {"ID_HAND", "ID_FACE", "ID_REST"}) {
        auto image = doc.CreateFileRes(name, ANY_RESOLUTION);
        image->path = image->defaultPath = "stock.png";
        component->AddResource(std::move(image));
    }
    doc.root.AddFolder(std::move(component));
    project.folder.Put(
        "demo/res/demo.res.xml",
        "<APP>\n<COMPONENT id=\"Clock\">\n<IMAGE id=\"ID_HAND\">\"own.png\"</IMAGE>"
        "<IMAGE id=\"ID_FACE\">STOCK.PNG</IMAGE><IMAGE/><IMAGE id=\"ID_NONE\"/><FILE/></COMPONENT></APP>");
    (void)project.TakeOutput();
    EXPECT_EQ(ReadProject(project.Path(), doc), 0);
    EXPECT_TRUE(doc.IsModified());
    const QByteArray output = project.TakeOutput();
    EXPECT_TRUE(output.contains("...\r\nError 1: invalid component image tag (Line 4).\r\n"
                                "Warning 1: unknown component image [ID_NONE] discarded.\r\n"
                                "Warning 2: unknown XML tag [FILE] discarded (Line 4).\r\n[demo]"))
        << output.constData();
    EXPECT_TRUE(doc.DoFileSave());
    EXPECT_TRUE(project.folder.Get("demo/res/demo.res.xml")
                    .contains("    <COMPONENT id=\"Clock\">\n"
                              "        <IMAGE id=\"ID_HAND\">own.png</IMAGE>\n"
                              "        <IMAGE id=\"ID_FACE\"></IMAGE>\n"
                              "    </COMPONENT>\n"));
}
