// SPDX-License-Identifier: MIT
#include "CheckedProject.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace
{

constexpr char CATALOGUE[] = R"(<catalogue version="1">
    <class name="Window">
        <member name="pos" type="ZulPoint" />
        <member name="size" type="ZulSize" />
        <member name="anchor" type="ZulFPoint" />
        <member name="count" type="ZulS32" />
        <member name="src" type="ZulImageSrc" />
    </class>
</catalogue>
)";

/// A project with one layout file, for 240x320, that has these components in lines of their own, from line 3.
struct LayoutProject : CheckedProject
{
    explicit LayoutProject(const QByteArrayList &components)
        : CheckedProject("<APP id=\"APP_demo\">\n    <RESOLUTION width=\"240\" height=\"320\" class=\"layout\">\n"
                         "        <LAYOUT>res\\main.xml</LAYOUT>\n    </RESOLUTION>\n</APP>\n",
                         "[Layout]\nfolders=1\ncatalogue=catalogue.xml\n")
    {
        folder.Put("bin/catalogue.xml", CATALOGUE);
        folder.Put("demo/res/main.xml",
                   "<TarvoXML>\n<Layout id=\"ID_MAIN\">\n" + components.join('\n') + "\n</Layout>\n</TarvoXML>\n");
    }
};

} // namespace

TEST(LayoutRules, TheFindingsOfLayoutsCheck)
{
    LayoutProject project({R"(<Window name="fine" count="1" />)", R"(<Door />)", R"(<Window colour="1" />)",
                           R"(<Window count="many" />)", R"(<Window src="@ID_NONE" />)", R"(<Window name="fine" />)"});
    EXPECT_THAT(project.Findings({"layout-class"}), ElementsAre(StartsWith("main.xml:4 ID_MAIN: ")));
    EXPECT_THAT(project.Findings({"layout-property"}), ElementsAre(StartsWith("main.xml:5 ID_MAIN: ")));
    EXPECT_THAT(project.Findings({"layout-value"}), ElementsAre(StartsWith("main.xml:6 ID_MAIN: ")));
    EXPECT_THAT(project.Findings({"layout-reference"}), ElementsAre(StartsWith("main.xml:7 ID_MAIN: ")));
    EXPECT_THAT(project.Findings({"layout-name"}), ElementsAre(StartsWith("main.xml:8 ID_MAIN: ")));
    project.screens = {{320, 240}};
    EXPECT_THAT(project.Findings({"layout-class", "layout-name"}), IsEmpty()) << "the other screen isn't checked";
}

TEST(LayoutRules, AFileThatDoesNotLoadIsReportedOnce)
{
    LayoutProject project({R"(<Window)"});
    EXPECT_THAT(project.RulesThatFire(), ElementsAre("element-dropped"));
    project.folder.Put("demo/res/main.xml", "<TarvoXML>\n<Layout id=\"ID_MAIN\" />\n<Layout />\n</TarvoXML>\n");
    EXPECT_THAT(project.RulesThatFire(), ElementsAre("element-dropped"));
}

TEST(LayoutRules, ComponentsBeyondTheirScreen)
{
    LayoutProject project({R"x(<Window name="full" pos="(0, 0)" size="(240, 320)" anchor="(0, 0)" />)x",
                           R"x(<Window name="wide" pos="(0, 0)" size="(241, 10)" anchor="(0, 0)">)x",
                           R"x(<Window name="inner" pos="(250, 0)" size="(10, 10)" anchor="(0, 0)" /></Window>)x",
                           R"x(<Window name="moved" pos="(0, 0)" size="(10, 10)" anchor="(0.5, 0)" />)x",
                           R"x(<Window name="empty" pos="(900, 900)" size="(0, 0)" anchor="(0, 0)" />)x"});
    EXPECT_THAT(
        project.Findings({"layout-outside"}),
        ElementsAre("main.xml:4 ID_MAIN: the component \"wide\" is from 0,0 to 241,10, and the screen has 240x320",
                    HasSubstr("main.xml:6 ID_MAIN: the component \"moved\" is from -5,0")));
}
