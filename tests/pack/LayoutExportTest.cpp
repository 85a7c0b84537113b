#include "LayoutExport.h"
#include "LayoutCommand.h"
#include "PackProject.h"

using namespace Qt::StringLiterals;

namespace
{

TEST(LayoutCommand, HasItsOptionsInOneOrder)
{
    LayoutCommand command{u"tool"_s, u"in"_s, u"out"_s, u"x m l"_s, u"t"_s, u"h"_s, true, u"sub"_s};
    EXPECT_EQ(command.CommandLine(), u"tool -i \"in\" -o \"out\" -x \"x m l\" -t \"t\" -h \"h\" -p  -e -E \"sub\"");
    command.p = false;
    EXPECT_EQ(command.CommandLine(), u"tool -i \"in\" -o \"out\" -x \"x m l\" -t \"t\" -h \"h\" -e -E \"sub\"");
}

class LayoutExportTest : public testing::Test
{
protected:
    LayoutExportTest()
    {
        project.PutTool("bin/zul_xml_conv.exe", "printf '%s\\n' \"$@\" > \"$4/args\"");
        EXPECT_TRUE(CreateFolderOnDisk(project.Path("demo/ResID")));
        project.Put("demo/ResID/enum.i", "enumerations");
        project.Put("demo/ResID/enum.i.old", "older enumerations");
    }
    void Export(const QByteArray &settings)
    {
        project.Put("bin/Morvanite.ini", "[Path]\n" + settings);
        project.Reset();
        ExportLayoutTables(*project.env, project.Path("demo"));
    }
    PackProject project;
};

TEST_F(LayoutExportTest, MovesTheTablesAsideRunsTheToolAndDropsItsLeftOver)
{
    const char *leftOver = "bin/ID_D279A4D9_BC6C_420b_9EC7_CE2FA9F8415D.bin";
    project.Put(leftOver, "x");
    Export("export_layout=layouts\nexport_xml=sub\\classes.xml\nexport_h=out.h\nzul_xml_enum_i=enum.i\nzul_xml_table_i="
           "gone.i\n");
    const QByteArray bin = project.Narrow("bin");
    EXPECT_EQ(project.Get("bin/args"), "-i\n" + bin + "/layouts\n-o\n" + bin + "\n-x\n" + bin +
                                           "/sub/classes.xml\n-t\n" + project.Narrow("demo/ResID") + "\n-h\n" + bin +
                                           "/out.h\n-p\n-e\n-E\n" + bin + "/convert_i_2_h/convert_i_2_h.exe\n");
    EXPECT_FALSE(project.Has("demo/ResID/enum.i"));
    EXPECT_EQ(project.Get("demo/ResID/enum.i.old"), "enumerations");
    EXPECT_FALSE(project.Has(leftOver));
}

TEST_F(LayoutExportTest, NeverMovesTheFolderOfTheHeaders)
{
    Export("export_layout=layouts\nexport_xml=classes.xml\nzul_xml_enum_i=\nzul_xml_table_i=.\n");
    EXPECT_TRUE(project.Has("bin/args"));
    EXPECT_TRUE(project.Has("demo/ResID/enum.i"));
}

TEST_F(LayoutExportTest, DoesNothingWhereThereIsNothingToExport)
{
    for (const char *settings : {"", "export_layout=layouts\nzul_xml_enum_i=enum.i\n", "export_xml=classes.xml\n"}) {
        Export(settings);
        EXPECT_FALSE(project.Has("bin/args")) << settings;
        EXPECT_TRUE(project.Has("demo/ResID/enum.i")) << settings;
    }
}

} // namespace
