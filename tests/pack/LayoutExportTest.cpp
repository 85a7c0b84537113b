// SPDX-License-Identifier: MIT
#include "LayoutExport.h"
#include "PackProject.h"

namespace
{

struct LayoutExport : PackProject
{
    explicit LayoutExport(const QByteArray &settings) : PackProject("[Path]\n" + settings)
    {
        PutTool("printf '%s\\n' \"$@\" > \"$4/args\"", "bin/zul_xml_conv.exe");
        for (const char *input : {"bin/layouts", "bin/classes.xml", "bin/sub/classes.xml"})
            folder.Put(input, "");
        folder.Put("ResID/enum.i", "enumerations");
        folder.Put("ResID/enum.i.old", "older enumerations");
        folder.Put(LEFT_OVER, "x");
        ExportLayoutTables(env, folder.Path());
    }
    static constexpr char LEFT_OVER[] = "bin/ID_D279A4D9_BC6C_420b_9EC7_CE2FA9F8415D.bin";
};

} // namespace

TEST(ExportLayoutTables, MovesTheTablesAsideRunsTheToolAndRemovesItsTemporaryFile)
{
    LayoutExport project("export_layout=layouts\nexport_xml=sub\\classes.xml\nexport_h=out.h\nzul_xml_enum_i=enum.i\n"
                         "zul_xml_table_i=.\n");
    EXPECT_EQ(project.folder.Get("bin/args").replace(project.Narrow(""), "@"),
              "-i\n@/bin/layouts\n-o\n@/bin\n-x\n@/bin/sub/classes.xml\n-t\n@/ResID\n-h\n@/bin/out.h\n-p\n-e\n-E\n"
              "@/bin/convert_i_2_h/convert_i_2_h.exe\n");
    EXPECT_EQ(project.folder.Names("ResID"), QStringList({QStringLiteral("enum.i.old")})) << "and never the folder";
    EXPECT_EQ(project.folder.Get("ResID/enum.i.old"), "enumerations");
    EXPECT_FALSE(project.folder.Has(project.LEFT_OVER));
}

TEST(ExportLayoutTables, CountsTablesThatCannotBeMadeAsFailures)
{
    LayoutExport project("export_layout=layouts\nexport_xml=classes.xml\n");
    ASSERT_EQ(unlink("bin/zul_xml_conv.exe"), 0);
    ExportLayoutTables(project.env, project.folder.Path());
    project.PutTool("exit 3", "bin/zul_xml_conv.exe");
    ExportLayoutTables(project.env, project.folder.Path());
    EXPECT_EQ(project.env.FailureCount, 1) << "only the files of a tool that ran count";

    LayoutExport without("export_layout=layouts\nexport_xml=none.xml\n");
    EXPECT_EQ(without.env.FailureCount, 1);
    EXPECT_TRUE(without.TakeExplained().contains(
        "/bin/none.xml, which the key export_layout or export_xml names, does not exist"));
}

TEST(ExportLayoutTables, DoesNothingWithoutLayoutsToExport)
{
    for (const char *settings : {"", "export_layout=layouts\nzul_xml_enum_i=enum.i\n", "export_xml=classes.xml\n"}) {
        LayoutExport project(settings);
        EXPECT_TRUE(!project.folder.Has("bin/args") && project.folder.Has("ResID/enum.i")) << settings;
    }
}

TEST(ExportLayoutTables, WritesNothingThroughALinkOutOfTheProjectInAnySpelling)
{
    for (const auto &[link, to] : {std::pair("demo/ResID", "elsewhere"),
                                   {"demo/ResID/ZUL_XML_TABLE.I", "mine"},
                                   {"demo/ResID/layoutid.h", "mine"},
                                   {"demo/ResID/ENUM.I", "mine"}}) {
        SCOPED_TRACE(link);
        LayoutExport project("export_layout=layouts\nexport_xml=classes.xml\nzul_xml_enum_i=enum.i\n");
        project.folder.MakeFolder("elsewhere");
        project.folder.Put("mine", "mine");
        QDir().mkpath(QFileInfo(project.folder.Path(link)).path());
        ASSERT_EQ(symlink(project.Narrow(to).constData(), link), 0);
        ASSERT_EQ(unlink("bin/args"), 0);
        (void)project.TakeExplained();
        ExportLayoutTables(project.env, project.folder.Path("demo"));
        EXPECT_FALSE(project.folder.Has("bin/args"));
        EXPECT_TRUE(project.TakeExplained().contains(QByteArray("/") + to));
        EXPECT_EQ(project.env.FailureCount, 1);
    }
}

TEST(ExportLayoutTables, AQuoteInASettingStaysInItsArgument)
{
    LayoutExport project("export_layout=layouts\nexport_xml=a\" -E .\\evil.sh -t x\n");
    EXPECT_TRUE(project.folder.Get("bin/args").contains("/bin/a\" -E ./evil.sh -t x\n-t\n"))
        << project.folder.Get("bin/args").constData();
}
