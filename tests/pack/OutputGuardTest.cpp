// SPDX-License-Identifier: MIT
#include "PackCodes.h"
#include "PackProject.h"

using testing::HasSubstr;

TEST(OutputGuard, RefusesEveryFileOfTheProjectUnderAnyName)
{
    PackProject project("[Path]\nzul_xml_enum_i=LayoutID.i\n");
    const char *const own[] = {
        "config.xml",       "demo.vcproj",          "preview.lst", "demo_res.lst", "ResID/ResID.h",
        "ResID/LayoutID.i", "ResID/uix_rp_x_def.h", "other.png",   "stock.png",    "tune.mid",
        "Wide.tga",         "listed.bin",           "AppLogo.img"};
    for (const char *file : own)
        project.folder.Put(file, "the user's own " + QByteArray(file));
    project.folder.Put("demo_res.lst", "listed.bin\n");
    project.info.projectFiles = QStringList(project.folder.Path("config.xml"));
    CResFolder &component = project.AddFolder(project.AddFolder(project.root, KIND_CPIMAGES), KIND_COMPONENT);
    component.title = QStringLiteral("x");
    project.AddFile(component, "stock.png", 1);
    project.AddFile(project.AddFolder(project.images, KIND_RESO_IMAGES, 2), ".\\OTHER.png", 2);
    project.AddFile(project.audio, "tune.mid", 3);
    project.AddFile(project.wideImages, "wide.tga", 4);
    for (const char *file : own) {
        const QByteArray before = project.folder.Get(file);
        ASSERT_TRUE(symlink(project.Narrow(file).constData(), "soft") == 0 && link(file, "hard") == 0);
        for (const char *name : {file, "soft", "hard", "app.out"}) {
            const bool isSideFile = strcmp(name, "app.out") == 0; // the side file would replace it
            ASSERT_TRUE(!isSideFile || rename("soft", "arm/app.res") == 0);
            project.info.outputfilename = project.Narrow(name);
            EXPECT_EQ(project.Pack(), PACK_SAME_FILE) << file;
            EXPECT_EQ(project.folder.Get(file), before);
            EXPECT_THAT(project.TakeExplained().toStdString(),
                        testing::AllOf(HasSubstr(file), HasSubstr(" of the project\n")));
            EXPECT_FALSE(project.folder.Has("app.out"));
        }
        ASSERT_TRUE(unlink("hard") == 0 && unlink("arm/app.res") == 0);
    }
    EXPECT_EQ(project.Pack(), 0) << project.output.constData();
    EXPECT_EQ(project.Pack(), 0) << "outputs of an earlier pack are not files of the project";
}
