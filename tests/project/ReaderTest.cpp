#include "ProjectContext.h"
#include "TestProject.h"

using namespace Qt::StringLiterals;

namespace
{

CResFolder &FolderOf(CResDoc &doc, quint32 kind, qint32 index = -1)
{
    return *doc.root.FindFolder(kind, index, 2);
}

const CFileRes &FileIn(const CResFolder &folder, const char *name)
{
    const CBaseRes *res = folder.FindResource(NarrowText(name));
    EXPECT_NE(res, nullptr) << name;
    return static_cast<const CFileRes &>(*res);
}

} // namespace

TEST(ProjectReader, PutsEachResourceIntoItsFolder)
{
    TestProject project(
        "<?xml version=\"1.0\"?>\n"
        "<APP id=\"APP_anything\">\n"
        "<FILE id=\"ID_TUNE\" type=\"Push\">.\\SOUND\\tune.MP3</FILE>\n"
        "<FILE id=\"ID_CLIP\" type=\"Push\">clip.avi</FILE>\n"
        "<FILE id=\"ID_PICTURE\" type=\"push\">\"logo.png\"</FILE>\n"
        "<FILE id=\"ID_DATA\" type=\"Push\">my \"own\" data</FILE>\n"
        "<IMAGE id=\"ID_ALL\" type=\"Push\">logo.png</IMAGE>\n"
        "<RESOLUTION width=\"320\" height=\"240\" class=\"image\"><IMAGE id=\"ID_ONE\"/></RESOLUTION>\n"
        "<RESOLUTION width=\"176\" height=\"220\" class=\"layout, image\"><IMAGE id=\"ID_ONE\">logo.png</IMAGE>"
        "</RESOLUTION></APP>");
    for (const char *file :
         {"demo/sound/Tune.mp3", "demo/clip.avi", "demo/logo.png", "demo/my \"own\" data", "demo/\"logo.png\""})
        project.folder.Put(file, "x");
    EXPECT_EQ(project.MessagesOfOpening(), "");
    CResDoc &doc = *project.Open();
    EXPECT_EQ(NamesIn(FolderOf(doc, KIND_AUDIO)), "ID_TUNE");
    EXPECT_EQ(NamesIn(FolderOf(doc, KIND_VIDEO)), "ID_CLIP");
    EXPECT_EQ(NamesIn(FolderOf(doc, KIND_BINARY)), "ID_PICTURE ID_DATA");
    EXPECT_EQ(NamesIn(FolderOf(doc, KIND_RESO_IMAGES)), "ID_ALL");
    EXPECT_EQ(NamesIn(FolderOf(doc, KIND_RESO_IMAGES, 0)), "ID_ONE");
    EXPECT_EQ(NamesIn(FolderOf(doc, KIND_RESO_IMAGES, 2)), "ID_ONE");
    EXPECT_EQ(FolderOf(doc, KIND_RESO_IMAGES, 0).resources.First()->Id()->scope, 0);

    const auto pushKind = [&](quint32 kind, const char *name) {
        const IDRecord *id = FileIn(FolderOf(doc, kind), name).Id();
        return id->push ? id->pushKind : -1;
    };
    EXPECT_EQ(pushKind(KIND_AUDIO, "ID_TUNE"), PUSH_AUDIO);
    EXPECT_EQ(pushKind(KIND_VIDEO, "ID_CLIP"), PUSH_VIDEO);
    EXPECT_EQ(pushKind(KIND_BINARY, "ID_DATA"), PUSH_BINARY);
    EXPECT_EQ(pushKind(KIND_BINARY, "ID_PICTURE"), -1) << "small letters are no Push";
    EXPECT_EQ(pushKind(KIND_RESO_IMAGES, "ID_ALL"), PUSH_IMAGE);
    EXPECT_EQ(FileIn(FolderOf(doc, KIND_BINARY), "ID_PICTURE").path, "logo.png");
    EXPECT_EQ(FileIn(FolderOf(doc, KIND_BINARY), "ID_DATA").path, "my \"own\" data");
    EXPECT_EQ(FileIn(FolderOf(doc, KIND_RESO_IMAGES, 2), "ID_ONE").path, "");
    EXPECT_FALSE(doc.IsModified());
}

TEST(ProjectReader, SaysWhatItReadsAndHowManyFaultsItFound)
{
    TestProject project;
    project.Open();
    EXPECT_EQ(project.TakeOutput(),
              "Loading resource from \"res\\demo.res.xml\"...\r\n[demo] open - 0 error(s), 0 warning(s)\r\n");
}

TEST(ProjectReader, EachFaultHasItsMessageNumberAndLine)
{
    const QByteArray longName(65, 'N');
    TestProject project(
        "<APP>\n"
        "<FILE/>\n"
        "<IMAGE>x</IMAGE>\n"
        "<FILE id=\"1BAD\">missing</FILE>\n"
        "<FILE id=\"ID_F\">missing</FILE><IMAGE id=\"" +
        longName +
        "\"/>\n"
        "<FILE id=\"ID_F\"/>\n"
        "<IMAGE id=\"ID_F\">also missing</IMAGE>\n"
        "<RESOLUTION height=\"1\"/><RESOLUTION width=\"5\"/><RESOLUTION width=\"5\" "
        "height=\"0\"><IMAGE/></RESOLUTION>\n"
        "<RESOLUTION width=\"5\" height=\"6\" class=\"image\"><IMAGE/></RESOLUTION>\n"
        "<RESOLUTION width=\"176\" height=\"220\" class=\"layout\">\n<LAYOUT>x</LAYOUT><IMAGE id=\"A\"/></RESOLUTION>\n"
        "<RESOLUTION width=\"240\" height=\"320\" class=\"an image\"><IMAGE id=\"ID_F\"/><FILE "
        "id=\"B\"/></RESOLUTION>\n"
        "<STRING/>\n"
        "<COMPONENT/>\n"
        "<COMPONENT id=\"Clock\"><NONSENSE/></COMPONENT>\n"
        "<file id=\"C\"/><LAYOUT/>\n"
        "</APP>");
    EXPECT_EQ(project.MessagesOfOpening(), "Error 1: invalid file tag (Line 3).\r\n"
                                           "Error 2: invalid image tag (Line 4).\r\n"
                                           "Error 3: invalid ID format - [1BAD] (Line 5).\r\n"
                                           "Warning 1: file not found - [ID_F] (Line 6).\r\n"
                                           "Error 4: invalid ID format - [" +
                                               longName +
                                               "] (Line 6).\r\n"
                                               "Error 5: failed to load file [ID_F].\r\n"
                                               "Warning 2: file not found - [ID_F] (Line 8).\r\n"
                                               "Error 6: failed to load image [ID_F].\r\n"
                                               "Error 7: invalid resolution tag (Line 9).\r\n"
                                               "Error 8: invalid resolution tag (Line 9).\r\n"
                                               "Error 9: invalid resolution tag (Line 9).\r\n"
                                               "Warning 3: unsupported resolution (5x6) discarded.\r\n"
                                               "Warning 4: unknown XML tag [LAYOUT] discarded (Line 12).\r\n"
                                               "Warning 5: unknown XML tag [IMAGE] discarded (Line 12).\r\n"
                                               "Error 10: failed to load image [ID_F].\r\n"
                                               "Warning 6: unknown XML tag [FILE] discarded (Line 13).\r\n"
                                               "Warning 7: ref_list not found (Line 14).\r\n"
                                               "Error 11: invalid component tag (Line 15).\r\n"
                                               "Warning 8: unknow component [Clock] discarded.\r\n"
                                               "Warning 9: unknown XML tag [file] discarded (Line 17).\r\n"
                                               "Warning 10: unknown XML tag [LAYOUT] discarded (Line 17).\r\n");
    CResDoc &doc = *project.Open();
    EXPECT_EQ(project.env->ErrorCount, 11);
    EXPECT_EQ(project.env->WarningCount, 10);
    EXPECT_EQ(NamesIn(FolderOf(doc, KIND_BINARY)), "1BAD ID_F") << "a bad ID and a missing file stay";
    EXPECT_EQ(NamesIn(FolderOf(doc, KIND_RESO_IMAGES)), longName);
    EXPECT_EQ(doc.root.FindFolder(KIND_RESO_IMAGES, 0, 2), nullptr) << "its resolution has no images in the file";
    EXPECT_FALSE(doc.IsModified());
}

TEST(ProjectReader, WhatIsNoListOfResourcesDoesNotOpen)
{
    TestProject project;
    const auto output = [&](const QByteArray &text) {
        project.folder.Put("demo/res/demo.res.xml", text);
        (void)project.TakeOutput();
        EXPECT_EQ(project.Open(), nullptr);
        return project.TakeOutput();
    };
    const QByteArray head = "Loading resource from \"res\\demo.res.xml\"...\r\n";
    const QByteArray tail = "[demo] open - 1 error(s), 0 warning(s)\r\n";
    EXPECT_EQ(output("<APP>\n<FILE>\n</APP>"), head + "Fatal error: invalid resource format (Line 4).\r\n" + tail);
    EXPECT_EQ(output(""), head + "Fatal error: invalid resource format (Line 1).\r\n" + tail);
    EXPECT_EQ(output("<APPS/><APP/>"), head + "Error 1: invalid resource format \"res\\demo.res.xml\".\r\n" + tail);
    EXPECT_EQ(output("<!-- nothing -->"), head + "Error 1: invalid resource format \"res\\demo.res.xml\".\r\n" + tail);
    QFile::remove(project.folder.Path("demo/res/demo.res.xml"));
    EXPECT_EQ(project.Open(), nullptr);
    EXPECT_EQ(project.TakeOutput(), head + "Fatal error: invalid resource format (Line 1).\r\n" + tail);
    EXPECT_TRUE(project.monitor.watched.empty());
    project.folder.Put("demo/res/demo.res.xml", "<APP></APP>\n<other/>");
    EXPECT_NE(project.Open(), nullptr);
}

TEST(ProjectReader, TheStringFileIsReadAndItsFailureEndsTheLoad)
{
    TestProject project("<APP>\n<STRING>\"res\\ref_list_\"demo\".txt\"</STRING><NONSENSE/>\n</APP>");
    EXPECT_EQ(project.Open(), nullptr);
    const QByteArray output = project.TakeOutput();
    EXPECT_TRUE(output.contains(
        "\r\nError 1: failed to open file \"res\\ref_list_demo.txt\".\r\n[demo] open - 1 error(s), 0 warning(s)\r\n"))
        << output.constData();

    project.folder.Put("demo/res/ref_list_demo.txt", TestProject::StringTable({"ID_HELLO"}));
    CResDoc *const doc = project.Open();
    ASSERT_NE(doc, nullptr) << project.TakeOutput().constData();
    EXPECT_NE(doc->ids.FindName("ID_HELLO"), nullptr);
    EXPECT_FALSE(doc->IsModified());
    EXPECT_NE(project.monitor.HandleOf(project.folder.Path("demo/res/ref_list_demo.txt")), 0U);
    EXPECT_NE(project.monitor.HandleOf(project.folder.Path("demo/res/demo.res.xml")), 0U);
    const auto typeFlag = [&](const char *file) {
        return project.monitor.flags[project.monitor.HandleOf(project.folder.Path(file))].second;
    };
    EXPECT_EQ(typeFlag("demo/res/ref_list_demo.txt"), &project.flags.strings);
    EXPECT_EQ(typeFlag("demo/res/demo.res.xml"), &project.flags.resources);
    EXPECT_EQ(doc->ProjectFiles(),
              QStringList({project.folder.Path("demo/config.xml"), project.folder.Path("demo/res/demo.res.xml"),
                           project.folder.Path("demo/res/ref_list_demo.txt")}));
}

TEST(ProjectReader, AProjectOfAChineseWindowsOpensInItsCodePage)
{
    TestProject project("<APP>\n<FILE id=\"ID_A\">.\\\xcd\xbc.bin</FILE><FILE id=\"\xcd\xbc\"/>\n</APP>",
                        "[Text]\ncode_page=936\n");
    project.folder.Put("demo/图.bin", "x");
    EXPECT_EQ(project.MessagesOfOpening(), "Error 1: invalid ID format - [图] (Line 3).\r\n");
    CResDoc &doc = *project.Open();
    EXPECT_EQ(FileIn(FolderOf(doc, KIND_BINARY), "ID_A").path, ".\\\xcd\xbc.bin");
    EXPECT_TRUE(doc.DoFileSave());
    EXPECT_TRUE(project.folder.Get("demo/res/demo.res.xml").contains(">.\\\xcd\xbc.bin</FILE>"));
}

TEST(ProjectReader, TheImagesOfAComponentComeIntoUse)
{
    TestProject project;
    CResDoc &doc = *project.Open();
    auto component = doc.CreateFolder(KIND_COMPONENT, -1);
    component->title = u"Clock"_s;
    for (const char *name : {"ID_HAND", "ID_FACE"}) {
        auto image = doc.CreateFileRes(name, ANY_RESOLUTION);
        image->path = image->defaultPath = "stock.png";
        component->AddResource(std::move(image));
    }
    CResFolder &clock = *component;
    doc.root.AddFolder(std::move(component));
    project.folder.Put("demo/res/demo.res.xml", "<APP>\n<COMPONENT id=\"Clock\">\n"
                                                "<IMAGE id=\"ID_HAND\">\"own.png\"</IMAGE>\n"
                                                "<IMAGE/><IMAGE id=\"ID_NONE\"/><FILE/></COMPONENT></APP>");
    (void)project.TakeOutput();
    project.env->ErrorCount = project.env->WarningCount = 0;
    EXPECT_EQ(ReadProject(project.Path(), doc), 0);
    const QByteArray output = project.TakeOutput();
    EXPECT_TRUE(output.contains("...\r\nError 1: invalid component image tag (Line 5).\r\n"
                                "Warning 1: unknown component image [ID_NONE] discarded.\r\n"
                                "Warning 2: unknown XML tag [FILE] discarded (Line 5).\r\n[demo]"))
        << output.constData();
    EXPECT_EQ(FileIn(clock, "ID_HAND").path, "own.png");
    EXPECT_TRUE(FileIn(clock, "ID_HAND").inUse);
    EXPECT_FALSE(FileIn(clock, "ID_FACE").inUse);
    EXPECT_TRUE(doc.IsModified());
}
