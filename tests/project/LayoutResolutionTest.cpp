#include "ProjectContext.h"
#include "TestProject.h"

using namespace Qt::StringLiterals;

TEST(LayoutResolution, IsThatOfTheElementWhoseFirstChildNamesTheFile)
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
    EXPECT_EQ(FindLayoutResolution(project.Path(), u"b.xml"_s, doc), -1) << "no such screen is known";
    project.folder.Put("demo/res/demo.res.xml", "<APP>");
    EXPECT_EQ(FindLayoutResolution(project.Path(), u"a.xml"_s, doc), -1);
}
