// SPDX-License-Identifier: MIT
#include "ProjectConfig.h"
#include "ProjectContext.h"
#include "TestProject.h"

using namespace Qt::StringLiterals;

namespace
{

/// Returns the tree below a folder: kind in hexadecimal, index and title of each.
QString Tree(const CResFolder &folder)
{
    QString text;
    for (const auto &sub : folder.subfolders)
        text += QString::asprintf("(%x %d ", sub->kind, sub->index) + sub->title + Tree(*sub) + u')';
    return text;
}

} // namespace

TEST(FolderTree, HasTheFixedFoldersOfAProject)
{
    TestProject project;
    CResDoc &doc = *project.Open();
    EXPECT_EQ(Tree(doc.root), u"(7 -1 Files(1 -1 Audio)(2 -1 Video)(4 -1 Binary))"
                              "(8 -1 Images(30008 0 176x220)(10008 1 240x320)(30008 2 320x240)(10008 -1 Default))"
                              "(20 -1 Strings)"_s);
    EXPECT_EQ(doc.name, u"demo"_s);
    EXPECT_EQ(project.tables.projectPath, project.Path());

    project.documents.CloseAll();
    project.folder.Put("demo/config.xml", TestProject::Config("20", "999", "1"));
    EXPECT_TRUE(Tree(project.Open()->root).contains(u"(30008 0 176x220)(30008 1 240x320)(30008 2 320x240)"_s))
        << "an unknown screen leaves every resolution out of use";
}

TEST(ProjectConfig, IsRefusedIfMissingBrokenOrOld)
{
    TestProject project;
    for (const QByteArray &bad : {TestProject::Config("19", "240", "320"), QByteArray("<config>"), QByteArray(),
                                  QByteArray("<config/>"), TestProject::Config("-99999999999", "1", "1")}) {
        project.folder.Put("demo/config.xml", bad);
        EXPECT_EQ(project.Open(), nullptr) << bad.constData();
    }
    QFile::remove(project.folder.Path("demo/config.xml"));
    EXPECT_EQ(project.Open(), nullptr);
    EXPECT_EQ(project.TakeOutput(), "") << "it has no message of its own";
    EXPECT_EQ(project.user.boxes, QStringList(6, project.Path() + u" could not be opened. The output explains why."_s));
    project.command = 3;
    EXPECT_EQ(project.Open(), nullptr);
    EXPECT_EQ(project.TakeOutput(), "\r\n### error 7 ###\r\n");
    EXPECT_EQ(project.user.boxes.size(), 6) << "a command shows no box";
}

TEST(ProjectConfig, IsReadFromThePathOfItsKeyWithAnySurroundings)
{
    TestProject project("<APP/>", "proj_cfg=..\\IDE\\Settings.XML\n");
    const auto read = [&](const QByteArray &text) {
        project.folder.Put("ide/settings.xml", text);
        ProjectConfig config;
        ReadConfig(*project.env, project.Path(), config);
        return QString::asprintf("%dx%d %d %d", config.width, config.height, config.zepVersion, config.tarvoChecked);
    };
    EXPECT_EQ(read("<?xml version=\"1.0\"?><!-- by the IDE --><anything><other><Width>1</Width></other>"
                   "<resolution><Height> 320px</Height><x/><Width>240</Width><Width>7</Width></resolution>"
                   "<zxa><tarvo>CHECKED</tarvo><zepversion>21</zepversion></zxa>"
                   "<resolution><Width>9</Width></resolution></anything>"),
              u"240x320 21 1"_s);
    EXPECT_EQ(
        read("<c><zxa><tarvo>unchecked</tarvo></zxa><resolution><Width>99999999999</Width></resolution></c>").left(12),
        u"2147483647x0"_s);
}

TEST(LayoutResolution, ComesFromTheElementWhoseFirstChildNamesTheFile)
{
    TestProject project;
    CResDoc &doc = *project.Open();
    project.folder.Put(
        "demo/res/demo.res.xml",
        "<APP><RESOLUTION width=\"176\" height=\"220\" class=\"image\"><LAYOUT>a.xml</LAYOUT></RESOLUTION>"
        "<RESOLUTION width=\"176\" height=\"220\" class=\"layout\"><IMAGE/><LAYOUT>a.xml</LAYOUT></RESOLUTION>"
        "<RESOLUTION width=\"320\" height=\"240\" class=\"layout\"><LAYOUT>a.xml</LAYOUT></RESOLUTION>"
        "<RESOLUTION width=\"3\" height=\"4\" class=\"layout\"><LAYOUT>b.xml</LAYOUT></RESOLUTION>"
        "<RESOLUTION class=\"layout\"><LAYOUT/></RESOLUTION></APP>");
    EXPECT_EQ(FindLayoutResolution(project.Path(), u"a.xml"_s, doc), 2);
    EXPECT_EQ(FindLayoutResolution(project.Path(), u"A.xml"_s, doc), -1);
    EXPECT_EQ(FindLayoutResolution(project.Path(), u"b.xml"_s, doc), -1) << "this screen is unknown";
    project.folder.Put("demo/res/demo.res.xml", "<APP>");
    EXPECT_EQ(FindLayoutResolution(project.Path(), u"a.xml"_s, doc), -1);
}
