// SPDX-License-Identifier: MIT
#include "OpeningCheck.h"
#include "ConflictMarkers.h"
#include "TestProject.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace
{

/// Returns line and marker of each marker found.
QByteArray Markers(const TestProject &project, const QByteArray &content)
{
    project.folder.Put("merged", content);
    QByteArray text;
    for (const ConflictMarker &found : FindConflictMarkers(project.folder.Path("merged")))
        text += QByteArray::number(found.line) + found.marker.toLatin1() + ' ';
    return text;
}

QByteArray Utf16(const QString &text)
{
    return QByteArray("\xFF\xFE", 2) + QByteArray(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
}

/// Returns the reasons, with paths relative to the project's folder.
std::vector<std::string> Reasons(TestProject &project)
{
    project.documents.CloseAll();
    CResDoc *const doc = project.Open();
    const OpeningCheck check(*project.env, project.tables, project.Path(), doc);
    std::vector<std::string> texts;
    for (const Finding &reason : check.AllReasons())
        texts.push_back(FindingText(reason).remove(project.folder.Path("demo/")).toStdString());
    return texts;
}

} // namespace

TEST(ConflictMarkers, AreFoundAtLineStartsIn8BitAndUtf16Text)
{
    const TestProject project;
    EXPECT_EQ(Markers(project, "<<<<<<< HEAD\na\r\n=======\r\nb\n>>>>>>> x"), "1<<<<<<< 3======= 5>>>>>>> ");
    EXPECT_EQ(Markers(project, "\xEF\xBB\xBF<<<<<<< HEAD\n||||||| base\n======="), "1<<<<<<< 2||||||| 3======= ");
    EXPECT_EQ(Markers(project, Utf16(u"<<<<<<< HEAD\r\n\u0A0A\u0A00\n======= \r\n>>>>>>> x\r\n"_s)),
              "1<<<<<<< 3======= 4>>>>>>> ");
    EXPECT_EQ(Markers(project, Utf16(u"a\r\nb\r"_s) + "\n<<<<<<< HEAD\n" + QByteArray(1, '\0')), "2<<<<<<< ")
        << "single bytes behind the first half of a line feed";
    EXPECT_EQ(Markers(project, "========\n <<<<<<< x\n<<<<<<<\n<<<<<<x \n>>>>>>>x\n<!-- ======= -->\n<<<<<< <"), "");
    EXPECT_EQ(Markers(project, ""), "");
    EXPECT_TRUE(FindConflictMarkers(project.folder.Path("nowhere")).empty());
}

TEST(ConflictMarkers, AreFoundAcrossReadBuffers)
{
    const TestProject project;
    for (int before = 256 * 1024 - 20; before < 256 * 1024 + 4; ++before) {
        const QByteArray line(before - 1, 'a');
        EXPECT_EQ(Markers(project, line + "\n<<<<<<< x\n"), "2<<<<<<< ") << before;
        EXPECT_EQ(Markers(project, Utf16(QString(before / 2 - 2, u'a') + u"\n=======\r\n"_s)), "2======= ") << before;
    }
}

TEST(OpeningCheck, ReportsEverythingLeftOutWithFileAndLine)
{
    TestProject project("<APP>\n"
                        "<FILE/>\n"
                        "<FILE id=\"1BAD\"/>\n"
                        "<IMAGE/>\n"
                        "<IMAGE id=\"ID_A\"/><IMAGE id=\"ID_A\"/>\n"
                        "<SOUND/>\n"
                        "<RESOLUTION class=\"image\"/>\n"
                        "<RESOLUTION width=\"9\" height=\"9\"><IMAGE id=\"ID_B\"/></RESOLUTION>\n"
                        "<RESOLUTION width=\"176\" height=\"220\" class=\"image\">\n<LAYOUT>l</LAYOUT></RESOLUTION>\n"
                        "<COMPONENT/>\n"
                        "<COMPONENT id=\"x\"/>\n"
                        "<STRING/>\n"
                        "<STRING>res\\ref_list_demo.txt</STRING>\n</APP>");
    project.folder.Put("demo/res/ref_list_demo.txt", TestProject::StringTable({"ID_S", "1BAD"}));
    constexpr char NO_ID[] =
        "\"1BAD\" is not a valid ID: an ID has 1 to 64 letters, digits and \"_\", and doesn't begin with a digit";
    EXPECT_EQ(
        Reasons(project),
        (std::vector<std::string>{
            "res/demo.res.xml:2: <FILE> is left out: it has no attribute \"id\"",
            std::string("res/demo.res.xml:3: ") + NO_ID,
            "res/demo.res.xml:4: <IMAGE> is left out: it has no attribute \"id\"",
            "res/demo.res.xml:5: <IMAGE> is left out: another resource has the ID ID_A",
            "res/demo.res.xml:6: <SOUND> is left out: an element of that name is not known here",
            "res/demo.res.xml:7: <RESOLUTION> is left out: its width and height must be above 0",
            "res/demo.res.xml:8: <RESOLUTION> is left out: the list of screen sizes doesn't contain 9x9",
            "res/demo.res.xml:10: <LAYOUT> is left out: the settings turn layouts off (section Layout, key folders)",
            "res/demo.res.xml:11: <COMPONENT> is left out: it has no attribute \"id\"",
            "res/demo.res.xml:12: <COMPONENT> is left out: there is no component \"x\"",
            "res/demo.res.xml:13: <STRING> is left out: it does not name a file",
            std::string("res/ref_list_demo.txt:4: ") + NO_ID,
            "res/ref_list_demo.txt:4: the row of 1BAD with all its texts is left out: a resource of another kind has "
            "that ID"}));
    EXPECT_EQ(project.env->DroppedCount, 12) << "the content of an element counts too";
    project.folder.Put("demo/res/demo.res.xml", "<APP><IMAGE id=\"ID_A\">missing</IMAGE></APP>");
    EXPECT_THAT(Reasons(project), testing::IsEmpty());
    EXPECT_EQ(project.env->DroppedCount, 0) << "a file that isn't there is kept in the list";
}

TEST(OpeningCheck, ReportsMarkersInABrokenProjectAndMissingSizes)
{
    TestProject project("<APP>\n<<<<<<< HEAD\n</APP>");
    EXPECT_THAT(Reasons(project), testing::ElementsAre(testing::HasSubstr("res/demo.res.xml:2: the line begins with"),
                                                       testing::HasSubstr("can't be opened")));
    project.folder.Put("demo/res/demo.res.xml", "<APP/>");
    const OpeningCheck check(*project.env, project.tables, project.Path(), project.Open());
    EXPECT_FALSE(check.UnlistedResolution(240, 320));
    EXPECT_TRUE(check.UnlistedResolution(240, 32)->text.contains(u"doesn't contain 240x32"));
    EXPECT_TRUE(check.UnlistedResolution(240, 32)->file.endsWith(u"bin/sizes.ini"));

    TestProject without;
    without.folder.Put("bin/sizes.ini", "[Resolutions]\n240x320\n");
    EXPECT_THAT(Reasons(without), testing::ElementsAre(testing::HasSubstr("this file has no section Resolution")));
}

TEST(OpeningCheck, ReportsWhyALayoutFileIsNotLoadedCompletely)
{
    TestProject project("<APP><RESOLUTION width=\"240\" height=\"320\" class=\"layout\"><LAYOUT>res\\l.xml</LAYOUT>"
                        "</RESOLUTION></APP>",
                        "[Layout]\nfolders=1\n");
    for (const auto &[content, reason] : {
             std::pair<QByteArray, const char *>("<TarvoXML>\n<Layout id=\"ID_A\">\n</TarvoXML>",
                                                 ":3: the layout file is not well-formed XML"),
             {"<TarvoXML>\n<Layout id=\"ID_A\"/>\n<Layout/></TarvoXML>", ":3: this <Layout> has no attribute \"id\""},
             {"<TarvoXML>\n<Layout id=\"ID_A\"/>\n<Screen/></TarvoXML>", ":3: only <Layout> is allowed in <TarvoXML>"},
             {"<Layout/>", ": the outermost element of a layout file must be <TarvoXML>"},
             {"<TarvoXML><Layout id=\"ID_A\"/>\n<Layout id=\"ID_A\"/></TarvoXML>",
              ":2: another resource has the ID of this layout"},
         }) {
        project.folder.Put("demo/res/l.xml", content);
        EXPECT_THAT(Reasons(project), testing::ElementsAre(testing::StartsWith(std::string("res/l.xml") + reason)));
        EXPECT_EQ(project.env->DroppedCount, 1);
    }
    QFile::remove(project.folder.Path("demo/res/l.xml"));
    EXPECT_THAT(Reasons(project),
                testing::ElementsAre(testing::StartsWith("res/l.xml: the layout file can't be opened")));
    project.folder.Put("demo/res/demo.res.xml",
                       "<APP><RESOLUTION width=\"240\" height=\"320\" class=\"layout\"><LAYOUT/></RESOLUTION></APP>");
    EXPECT_THAT(Reasons(project),
                testing::ElementsAre(testing::HasSubstr("<LAYOUT> is left out: it does not name a file")));
}
