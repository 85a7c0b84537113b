// SPDX-License-Identifier: MIT
#include "ProjectContext.h"
#include "TestProject.h"

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace
{

/// Returns a line for each resource of the files and images: kind of its folder in hexadecimal, index of its
/// resolution, name, kind of push, path.
QByteArrayList Resources(const CResFolder &folder)
{
    QByteArrayList lines;
    for (const CBaseRes *res : folder.resources) {
        const IDRecord &id = *res->Id();
        lines.append(QByteArray::number(folder.kind, 16) + ' ' + QByteArray::number(id.scope) + ' ' + id.name + ' ' +
                     (id.push ? QByteArray::number(id.pushKind) : "normal") + ' ' +
                     static_cast<const CFileRes *>(res)->path);
    }
    for (const auto &subfolder : folder.subfolders)
        lines += Resources(*subfolder);
    return lines;
}

} // namespace

TEST(ProjectReader, AddsEachResourceToItsFolder)
{
    TestProject project(
        "<?xml version=\"1.0\"?><APP id=\"APP_anything\">"
        "<FILE id=\"ID_TUNE\" type=\"Push\">.\\SOUND\\tune.MP3</FILE>"
        "<FILE id=\"ID_CLIP\" type=\"Push\">clip.avi</FILE>"
        "<FILE id=\"ID_PICTURE\" type=\"push\">\"logo.png\"</FILE>"
        "<FILE id=\"ID_DATA\" type=\"Push\">my \"own\" data</FILE>"
        "<IMAGE id=\"ID_ALL\" type=\"Push\">logo.png</IMAGE>"
        "<RESOLUTION width=\"320\" height=\"240\" class=\"image\"><IMAGE id=\"ID_ONE\"/></RESOLUTION>"
        "<RESOLUTION width=\"176\" height=\"220\" class=\"layout, image\"><IMAGE id=\"ID_ONE\">logo.png</IMAGE>"
        "</RESOLUTION></APP>\n<other/>");
    for (const char *file :
         {"demo/sound/Tune.mp3", "demo/clip.avi", "demo/logo.png", "demo/my \"own\" data", "demo/\"logo.png\""})
        project.folder.Put(file, "x");
    EXPECT_EQ(project.MessagesOfOpening(), "");
    EXPECT_EQ(
        Resources(project.Open()->root),
        QByteArrayList({"1 -1 ID_TUNE 1 .\\SOUND\\tune.MP3", "2 -1 ID_CLIP 2 clip.avi",
                        "4 -1 ID_PICTURE normal logo.png", "4 -1 ID_DATA 3 my \"own\" data",
                        "10008 0 ID_ONE normal logo.png", "10008 2 ID_ONE normal ", "10008 -1 ID_ALL 4 logo.png"}));
    EXPECT_FALSE(project.Open()->IsModified());
}

TEST(ProjectReader, ReportsEachFaultWithMessageNumberAndLineAndReadsTheRest)
{
    const QByteArray longName(65, 'N');
    TestProject project("<APP>\n<FILE/>\n<IMAGE>x</IMAGE>\n<FILE id=\"1BAD\">missing</FILE>\n"
                        "<FILE id=\"ID_F\">missing</FILE><IMAGE id=\"" +
                        longName +
                        "\"/>\n<FILE id=\"ID_F\"/>\n<IMAGE id=\"ID_F\">also missing</IMAGE>\n"
                        "<RESOLUTION height=\"1\"/><RESOLUTION width=\"5\"/><RESOLUTION width=\"5\" height=\"0\"/>\n"
                        "<RESOLUTION width=\"65776\" height=\"65856\" class=\"image\"><IMAGE/></RESOLUTION>\n"
                        "<RESOLUTION width=\"176\" height=\"220\" class=\"layout\">\n<IMAGE id=\"A\"/></RESOLUTION>\n"
                        "<RESOLUTION width=\"240\" height=\"320\" class=\"an image\"><IMAGE id=\"ID_F\"/><FILE/>"
                        "</RESOLUTION>\n"
                        "<STRING/>\n<COMPONENT/><COMPONENT id=\"%s%n\"><NONSENSE/></COMPONENT>\n<file/>\n</APP>");
    EXPECT_EQ(project.MessagesOfOpening().replace(longName, "LONG"),
              "Error 1: invalid file tag (Line 3).\r\n"
              "Error 2: invalid image tag (Line 4).\r\n"
              "Error 3: invalid ID format - [1BAD] (Line 5).\r\n"
              "Warning 1: file not found - [ID_F] (Line 6).\r\n"
              "Error 4: invalid ID format - [LONG] (Line 6).\r\n"
              "Error 5: failed to load file [ID_F].\r\n"
              "Warning 2: file not found - [ID_F] (Line 8).\r\n"
              "Error 6: failed to load image [ID_F].\r\n"
              "Error 7: invalid resolution tag (Line 9).\r\n"
              "Error 8: invalid resolution tag (Line 9).\r\n"
              "Error 9: invalid resolution tag (Line 9).\r\n"
              "Warning 3: unsupported resolution (65776x65856) discarded.\r\n"
              "Warning 4: unknown XML tag [IMAGE] discarded (Line 12).\r\n"
              "Error 10: failed to load image [ID_F].\r\n"
              "Warning 5: unknown XML tag [FILE] discarded (Line 13).\r\n"
              "Warning 6: ref_list not found (Line 14).\r\n"
              "Error 11: invalid component tag (Line 15).\r\n"
              "Warning 7: unknow component [%s%n] discarded.\r\n"
              "Warning 8: unknown XML tag [file] discarded (Line 16).\r\n");
    EXPECT_EQ(Resources(project.Open()->root), QByteArrayList({"4 -1 1BAD normal missing", "4 -1 ID_F normal missing",
                                                               "10008 -1 " + longName + " normal "}));
    EXPECT_EQ(project.env->ErrorCount, 11);
    EXPECT_EQ(project.env->WarningCount, 8);
    EXPECT_EQ(project.env->DroppedCount, 17);
    EXPECT_FALSE(project.Open()->IsModified());
}

TEST(ProjectReader, RefusesFilesThatAreNotResourceLists)
{
    TestProject project;
    const auto expect = [&](const QByteArray &message) {
        (void)project.TakeOutput();
        EXPECT_EQ(project.Open(), nullptr);
        EXPECT_EQ(project.TakeOutput(), "Loading resource from \"res\\demo.res.xml\"...\r\n" + message +
                                            "[demo] open - 1 error(s), 0 warning(s)\r\n");
        EXPECT_TRUE(project.monitor.watched.empty());
    };
    const QByteArray wrong = "Error 1: invalid resource format \"res\\demo.res.xml\".\r\n";
    for (const auto &[text, message] :
         {std::pair<QByteArray, QByteArray>("<APP>\n<FILE>\n</APP>",
                                            "Fatal error: invalid resource format (Line 4).\r\n"),
          {"", "Fatal error: invalid resource format (Line 1).\r\n"},
          {"<APPS/><APP/>", wrong},
          {"<!-- nothing -->", wrong}}) {
        project.folder.Put("demo/res/demo.res.xml", text);
        expect(message);
    }
    QFile::remove(project.folder.Path("demo/res/demo.res.xml"));
    expect("Fatal error: invalid resource format (Line 1).\r\n");
    project.folder.Put("demo/res/demo.res.xml", "<APP>\n<STRING>\"res\\no\"ne.txt\"</STRING><NONSENSE/>\n</APP>");
    expect("Error 1: failed to open file \"res\\none.txt\".\r\n");
}

TEST(ProjectReader, OpensAndSavesAProjectInAChineseCodePage)
{
    TestProject project("<APP>\n<FILE id=\"ID_A\">.\\\xcd\xbc.bin</FILE><FILE id=\"\xcd\xbc\"/>\n</APP>",
                        "[Text]\ncode_page=936\n");
    project.folder.Put("demo/图.bin", "x");
    EXPECT_EQ(project.MessagesOfOpening(), "Error 1: invalid ID format - [图] (Line 3).\r\n");
    EXPECT_TRUE(project.Open()->DoFileSave());
    EXPECT_TRUE(project.folder.Get("demo/res/demo.res.xml").contains(">.\\\xcd\xbc.bin</FILE>"));
}

TEST(ProjectReader, RefusesEveryTruncatedList)
{
    const QByteArray whole =
        "<?xml version=\"1.0\"?><!-- c --><APP id=\"APP_demo\"><FILE id=\"ID_A\" type='Push'>\xe4\xb8\xad.wav</FILE>"
        "<IMAGE id=\"B\"><![CDATA[x]]></IMAGE></APP>";
    TestProject project;
    const auto opens = [&](const QByteArray &list) {
        project.folder.Put("demo/res/demo.res.xml", list);
        const bool opened = project.Open() != nullptr;
        project.documents.CloseAll();
        return opened;
    };
    for (qsizetype size = 0; size < whole.size(); ++size)
        EXPECT_FALSE(opens(whole.first(size))) << size;
    EXPECT_TRUE(opens(whole));
}

TEST(ProjectReader, DoesNotHangOnPipesAndFoldersInsteadOfFiles)
{
    for (const char *name : {"demo/res/demo.res.xml", "demo/config.xml", "demo/res/ref_list_demo.txt", "demo/file"}) {
        for (const bool pipe : {true, false}) {
            TestProject project("<APP><FILE id=\"A\">file</FILE><STRING>res\\ref_list_demo.txt</STRING></APP>");
            project.folder.Put("demo/res/ref_list_demo.txt", TestProject::StringTable({"ID_HELLO"}));
            QFile::remove(project.folder.Path(name));
            if (pipe)
                ASSERT_EQ(mkfifo(project.folder.Path(name).toUtf8().constData(), 0600), 0);
            else
                project.folder.MakeFolder(name);
            EXPECT_EQ(project.Open() != nullptr, qstrcmp(name, "demo/file") == 0) << name;
        }
    }
}
