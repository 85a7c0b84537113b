// SPDX-License-Identifier: MIT
#include "CLayoutRes.h"
#include "PackCodes.h"
#include "PackProject.h"

using testing::HasSubstr;

namespace
{

/// A project with layouts for the resolution that is packed, and a converter that writes its arguments to args and runs
/// the script `tool`; the output folder is $4.
struct LayoutProject : PackProject
{
    explicit LayoutProject(const QByteArray &tool, const QByteArray &settings = {}) : PackProject(settings)
    {
        PutTool("printf '%s\\n' \"$@\" >> args\n" + tool, "bin/zul_xml_conv.exe");
        folder.Put("res/Screens.xml", "<TarvoXML/>");
        file->path = ".\\res\\screens.xml";
        info.imageconvert = 0;
    }

    void AddLayout(const QByteArray &id, quint32 value, CResFolder *to = nullptr)
    {
        IDRecord *record = ids.Allocate(id, 1);
        record->value = value;
        AddFolder(to ? *to : screens, KIND_LAYOUT, 1).AddResource(CLayoutRes::CreateEmpty(record, file, catalogue));
        record->Release();
    }

    [[nodiscard]] QByteArray Arguments() const { return folder.Get("args").replace(Narrow(""), "@"); }

    ClassCatalogue catalogue;
    LayoutFileRef file = std::make_shared<LayoutFileObject>(env, ids, 1);
    CResFolder &layouts = AddFolder(root, KIND_LAYOUTS);
    CResFolder &screens = AddFolder(layouts, KIND_RESO_LAYOUTS, 1);
};

} // namespace

TEST(LayoutPhase, ConvertsAndPacksEachLayoutOfTheResolution)
{
    LayoutProject project("for id in ID_B ID_A; do printf \"layout $id\" > \"$4/$id.bin\"; done",
                          "[Path]\nexport_xml=classes.xml\n");
    project.folder.Put("bin/classes.xml", "<catalogue/>");
    project.AddLayout("ID_B", 7);
    project.AddLayout("ID_A", 0);
    project.AddLayout("ID_ELSEWHERE", 9, &project.AddFolder(project.layouts, KIND_RESO_LAYOUTS, 2));
    std::vector<QByteArray> inputs;
    ASSERT_EQ(project.Pack(PACK_TO_TARGET, &inputs), 0) << project.output.constData();
    EXPECT_THAT(project.output.constData(),
                HasSubstr("\r\nconstruct layout resource...\r\n.\\res\\screens.xml\r\n  ID_B"
                          "\r\n[error] Illegal resource id value :\"ID_A\" with value \"0\"\r\n  ID_A"
                          "\r\nconstruct layout resource done\r\n"));
    const QByteArray arguments = "-i\n@/res/Screens.xml\n-o\n@/res/tmp\n-x\n@/bin/classes.xml\n-t\n@/ResID\n"
                                 "-h\n@/ResID/ResID.h\n-p\n-e\n-E\n@/bin/convert_i_2_h/convert_i_2_h.exe\n";
    EXPECT_EQ(project.Arguments(), arguments + arguments) << "once for each output";
    EXPECT_THAT(inputs, testing::IsSupersetOf({project.Narrow("res/Screens.xml"), project.Narrow("bin/classes.xml")}));
    const auto payload = PayloadBuilder()
                             .Entry("AppLogo.img", ToBytes("program's logo"))
                             .Item(7, ToBytes("layout ID_B"))
                             .Item(0, ToBytes("layout ID_A"))
                             .Build();
    EXPECT_EQ(ToBytes(project.folder.Get("arm/app.res")), payload);
}

TEST(LayoutPhase, UsesNoResultOfAnEarlierRunAndFailsOnAMissingOne)
{
    LayoutProject project("printf new > \"$4/ID_A.bin\"",
                          "[Path]\nlayout_temp=made\\x\n[ResID]\nlayout_include_table=none\n");
    project.AddLayout("ID_A", 1);
    project.AddLayout("ID_B", 2);
    project.folder.Put("made/ID_B.bin", "old");
    EXPECT_EQ(project.Pack(), PACK_FILE_INFO);
    EXPECT_THAT(project.output.replace(project.Narrow(""), "@").constData(),
                HasSubstr("\r\n  ID_A\r\n  ID_B\r\n[error] Get file information fail: @/made/ID_B.bin"
                          "\r\n[error] construct layout resource error, result=-1013"));
    EXPECT_THAT(project.Arguments().constData(), HasSubstr("-o\n@/made\n"));
    EXPECT_THAT(project.Arguments().constData(), HasSubstr("-t\n@\n"));

    project.PutTool("printf x > \"$4/ID_A.bin\"; mkdir -p \"$4/ID_B.bin\"", "bin/zul_xml_conv.exe");
    EXPECT_EQ(project.Pack(), PACK_FILE_OPEN);
    EXPECT_THAT(project.output.constData(), HasSubstr("[error] Could not open file while read resource data : "));
    EXPECT_EQ(project.Pack(), PACK_FILE_INFO) << "a folder is in the place of the result, and stays";
}

TEST(LayoutPhase, ANameWithAPathDeletesNothing)
{
    LayoutProject project("");
    project.folder.Put("precious.bin", "mine");
    project.AddLayout("..\\../precious", 1);
    project.AddLayout("../../precious", 2);
    EXPECT_EQ(project.Pack(), PACK_FILE_INFO);
    EXPECT_TRUE(project.folder.Has("precious.bin"));
    EXPECT_FALSE(project.folder.Has("args"));
}

TEST(LayoutPhase, DoesNotWriteThroughALinkWithAnotherSpelling)
{
    // The converter of this system writes to an existing file whose name differs only in case.
    LayoutProject project("cd \"$4\"; printf new > $(ls | grep -ix id_a.bin || echo ID_A.bin)");
    project.AddLayout("ID_A", 1);
    project.folder.MakeFolder("res/tmp");
    project.folder.Put("mine", "mine");
    ASSERT_EQ(symlink("../../mine", "res/tmp/id_a.BIN"), 0);
    ASSERT_EQ(symlink("../../nothing", "res/tmp/Id_A.bin"), 0);
    EXPECT_EQ(project.Pack(), 0) << project.output.constData();
    EXPECT_EQ(project.folder.Get("mine"), "mine");
    EXPECT_EQ(project.folder.Names("res/tmp"), QStringList({QStringLiteral("ID_A.bin")}));
}

TEST(LayoutPhase, WritesNoTablesThroughALink)
{
    LayoutProject project("echo evil > \"$8/LayoutID.h\"");
    project.folder.Put("demo/screens.xml",
                       "<TarvoXML><Layout id=\"ID_D279A4D9_BC6C_420b_9EC7_CE2FA9F8415D\"/></TarvoXML>");
    ASSERT_EQ(project.file->Load("demo/screens.xml"), 0);
    project.AddLayout("ID_A", 1);
    project.folder.MakeFolder("ResID");
    const TempFolder elsewhere;
    elsewhere.Put("mine", "mine");
    ASSERT_EQ(symlink(elsewhere.Path("mine").toUtf8().constData(), "ResID/layoutid.H"), 0);
    EXPECT_EQ(project.Pack(), PACK_FILE_INFO);
    EXPECT_FALSE(project.folder.Has("args"));
    EXPECT_THAT(project.TakeExplained().constData(), HasSubstr("/layoutid.H\" is not written because a symbolic link"));
}

TEST(LayoutPhase, RefusesNumbersThatDifferFromTheHeader)
{
    LayoutProject project("for id in ID_A; do printf x > \"$4/$id.bin\"; done");
    project.AddLayout("ID_A", 7);
    for (const auto &[header, message] : {std::pair("#define ID_A    7\r\n", ""),
                                          {"#define ID_A    6\r\n", "\r\n[error] ID_A has the number 7, in "},
                                          {"#define ID_B    7\r\n", "ResID.h it has none: save the project"}}) {
        project.folder.Put("ResID/ResID.h", header);
        EXPECT_EQ(project.Pack(PACK_TO_TARGET), *message ? PACK_FILE_INFO : 0) << header;
        EXPECT_THAT(project.output.constData(), HasSubstr(message));
    }
}
