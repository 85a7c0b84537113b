#include "ProjectConfig.h"
#include "TestProject.h"

using namespace Qt::StringLiterals;

namespace
{

/// The tree below a folder: kind in hexadecimal, index and title of each.
QString Tree(const CResFolder &folder)
{
    QString text;
    for (const auto &sub : folder.subfolders) {
        text += QString::asprintf("(%x %d ", sub->kind, sub->index) + sub->title + Tree(*sub) + u')';
    }
    return text;
}

ProjectConfig ConfigOf(const TestProject &project)
{
    ProjectConfig config;
    ReadConfig(*project.env, project.Path(), config);
    return config;
}

} // namespace

TEST(FolderTree, OfAProjectIsAlwaysThisOne)
{
    TestProject project;
    CResDoc *const doc = project.Open();
    ASSERT_NE(doc, nullptr);
    EXPECT_EQ(Tree(doc->root), u"(7 -1 Files(1 -1 Audio)(2 -1 Video)(4 -1 Binary))"
                               "(8 -1 Images(30008 0 176x220)(10008 1 240x320)(30008 2 320x240)(10008 -1 Default))"
                               "(20 -1 Strings)"_s);
    EXPECT_EQ(doc->root.kind, quint32(KIND_ROOT));
    EXPECT_EQ(doc->name, u"demo"_s);
    EXPECT_EQ(project.tables.projectPath, project.Path());
    EXPECT_EQ(doc->root.observer, nullptr);
    EXPECT_EQ(doc->root.subfolders[0]->observer, nullptr);
    EXPECT_NE(doc->root.subfolders[1]->observer, nullptr);
    EXPECT_NE(doc->root.subfolders[2]->observer, nullptr);
}

TEST(FolderTree, AnUnknownScreenLeavesEveryResolutionOutOfUse)
{
    TestProject project;
    project.folder.Put("demo/config.xml", TestProject::Config("20", "999", "1"));
    CResDoc *const doc = project.Open();
    ASSERT_NE(doc, nullptr);
    EXPECT_TRUE(Tree(*doc->root.subfolders[1]).startsWith(u"(30008 0 176x220)(30008 1 240x320)(30008 2 "_s));
}

TEST(FolderTree, AMissingBrokenOrOldConfigurationDoesNotOpen)
{
    TestProject project;
    for (const QByteArray &bad : {TestProject::Config("19", "240", "320"), QByteArray("<config>"), QByteArray(),
                                  QByteArray("<config/>"), TestProject::Config("-99999999999", "1", "1")}) {
        project.folder.Put("demo/config.xml", bad);
        EXPECT_EQ(project.Open(), nullptr) << bad.constData();
        EXPECT_EQ(project.TakeOutput(), "") << "it has no message of its own";
    }
    QFile::remove(project.folder.Path("demo/config.xml"));
    EXPECT_EQ(project.Open(), nullptr);
    EXPECT_EQ(project.user.boxes.size(), 6);
    EXPECT_TRUE(project.user.boxes.last().contains(project.Path()));

    project.command = 3;
    EXPECT_EQ(project.Open(), nullptr);
    EXPECT_EQ(project.TakeOutput(), "\r\n### error 7 ###\r\n");
    EXPECT_EQ(project.user.boxes.size(), 6) << "a command shows no box";
}

TEST(ProjectConfig, IsReadWhateverStandsAroundIt)
{
    TestProject project;
    project.folder.Put("demo/config.xml",
                       "<?xml version=\"1.0\"?><!-- by the IDE --><anything><other><Width>1</Width></other>"
                       "<resolution><Height> 320px</Height><x/><Width>240</Width><Width>7</Width></resolution>"
                       "<zxa><tarvo>CHECKED</tarvo><zepversion>21</zepversion></zxa>"
                       "<resolution><Width>9</Width></resolution></anything>");
    const ProjectConfig config = ConfigOf(project);
    EXPECT_EQ(config.width, 240);
    EXPECT_EQ(config.height, 320);
    EXPECT_EQ(config.zepVersion, 21);
    EXPECT_TRUE(config.tarvoChecked);

    project.folder.Put("demo/config.xml",
                       "<c><zxa><tarvo>unchecked</tarvo></zxa><resolution><Width>99999999999</Width></resolution></c>");
    EXPECT_FALSE(ConfigOf(project).tarvoChecked);
    EXPECT_EQ(ConfigOf(project).width, 2147483647);
    EXPECT_EQ(ConfigOf(project).height, 0);
}

TEST(ProjectConfig, LiesWhereItsKeySays)
{
    TestProject project("<APP/>", "proj_cfg=..\\IDE\\Settings.XML\n");
    EXPECT_EQ(project.Open(), nullptr);
    project.folder.Put("ide/settings.xml", TestProject::Config("20", "1", "2"));
    EXPECT_NE(project.Open(), nullptr);
    EXPECT_EQ(ConfigOf(project).height, 2);
}
