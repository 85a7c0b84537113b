// SPDX-License-Identifier: MIT
#include "TestProject.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace
{

/// Returns the first code block of a documentation page that has that language as its mark.
QByteArray Example(const char *page, const QString &language)
{
    QFile file(QStringLiteral(MORVANITE_DOCS "/formats/%1.md").arg(QString::fromUtf8(page)));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << page;
    const QString text = QString::fromUtf8(file.readAll());
    const QRegularExpression block(u"```"_s + language + u"\\n(.*?)```"_s,
                                   QRegularExpression::DotMatchesEverythingOption);
    const auto match = block.match(text);
    EXPECT_TRUE(match.hasMatch()) << page;
    return match.captured(1).toUtf8();
}

/// Opens a project, which must have no errors, and saves it.
void OpenAndSave(TestProject &project)
{
    CResDoc *const doc = project.Open();
    ASSERT_NE(doc, nullptr) << project.TakeOutput().constData();
    EXPECT_EQ(project.env->ErrorCount, 0);
    EXPECT_TRUE(doc->DoFileSave());
}

} // namespace

TEST(FormatPages, ExampleProjectOpensAndIsSavedUnchanged)
{
    const QByteArray list = Example("project-files", u"xml res"_s);
    TestProject project(list);
    project.folder.Put("demo/config.xml", Example("project-files", u"xml config"_s));
    project.folder.Put("demo/res/ref_list_demo.txt", TestProject::StringTable({"ID_HELLO"}));
    OpenAndSave(project);
    EXPECT_EQ(project.folder.Get("demo/res/demo.res.xml"), list);
    EXPECT_EQ(project.folder.Get("demo/ResID/ResID.h").replace("\r\n", "\n"), Example("headers", u"c"_s));

    const QByteArray layouts = Example("project-files", u"xml layout"_s);
    TestProject withLayouts(
        "<APP><RESOLUTION width=\"240\" height=\"320\" class=\"layout\"><LAYOUT>res\\layout_demo_240x320.xml</LAYOUT>"
        "</RESOLUTION></APP>",
        "[Layout]\nfolders=1\n");
    withLayouts.folder.Put("demo/res/layout_demo_240x320.xml", layouts);
    OpenAndSave(withLayouts);
    EXPECT_EQ(withLayouts.folder.Get("demo/res/layout_demo_240x320.xml"), layouts);
}

TEST(FormatPages, ExampleSettingsAreRead)
{
    const TempFolder folder;
    folder.Put("Morvanite.ini", Example("settings", u"ini settings"_s));
    folder.Put("sizes.ini", Example("settings", u"ini resolutions"_s));
    folder.Put("tuvik.ini", Example("settings", u"ini languages"_s));
    const Environment env(folder.Path());
    EXPECT_EQ(env.settings.String("Path", "main_xml"), u"res"_s);
    EXPECT_EQ(env.LanguageNumber(u"Deutsch"_s), 7);
    ProcessTables tables;
    tables.LoadOnce(env);
    EXPECT_EQ(tables.resolutions.IndexOf(240, 320), 1);
    EXPECT_EQ(tables.resourceTypes.size(), 2);

    folder.Put("demo/morvanite.ini", Example("settings", u"ini project"_s));
    Settings settings = env.settings;
    QStringList ignored;
    EXPECT_EQ(settings.UseProject(folder.Path("demo/morvanite.ini"), ignored), 0);
    EXPECT_EQ(ignored, QStringList()) << "a key without effect";
    EXPECT_EQ(settings.String("Text", "code_page"), u"936"_s);
    EXPECT_EQ(settings.Int("Layout", "folders", 0), 1);
}
