// SPDX-License-Identifier: MIT
#include "PackCodes.h"
#include "PackProject.h"

TEST(ScratchFolder, HoldsAllConvertedPicturesAndSourceFoldersStayUnchanged)
{
    PackProject project;
    for (const char *file : {"res/a.png", "res/a.png.tmp", "res/a.ABM", "res/a.BMPA", "res/b.jpg"})
        project.folder.Put(file, "the user's own " + QByteArray(file));
    project.folder.Put("preview.lst", ".\\res\\a.png\n");
    project.folder.MakeFolder("build");
    ASSERT_EQ(symlink("none", "bin/Debug"), 0); // no folder can be made there, as in a read-only program folder
    project.PutTool("basename \"$4\" >> ../names; { printf converted; cat \"$3\"; } > \"$4\"");
    project.AddFile(project.wideImages, "res\\a.png", 1);
    project.AddFile(project.wideImages, "res\\b.jpg", 2);
    project.info.imageconvert = 1;
    project.info.temp = project.folder.Path("build/temp");
    const QStringList before = project.folder.Names("res");
    struct stat unchanged, now;
    ASSERT_EQ(stat("res", &unchanged), 0);
    ASSERT_EQ(project.Pack(), 0) << project.output.constData();
    ASSERT_EQ(stat("res", &now), 0);
    EXPECT_EQ(now.st_mtim.tv_nsec, unchanged.st_mtim.tv_nsec) << "not even for a moment";
    EXPECT_EQ(project.folder.Names("res"), before);
    EXPECT_EQ(project.folder.Get("names"),
              ".picture-1.tmp\n.picture-2.tmp\n.picture-3.tmp\n.picture-4.tmp\n.picture-5.tmp\n.picture-6.tmp\n")
        << "in both runs of the phases";
    EXPECT_EQ(project.folder.Names("build/temp"), QStringList());
    EXPECT_TRUE(project.folder.Get("arm/app.res").contains("convertedthe user's own res/b.jpg"));

    project.PutTool("printf short > \"$4\"");
    EXPECT_EQ(project.Pack(), PACK_NOT_THERE);
    EXPECT_EQ(project.folder.Names("build/temp"), QStringList());
}

TEST(ScratchFolder, IsReportedBeforeTheWorkIfItCannotBeUsed)
{
    PackProject project;
    for (const auto &[folder, reason] : {std::pair("none/temp", "/none/temp: No such file or directory"),
                                         {"app.axf", "/app.axf: Not a directory"},
                                         {"a\"b", "a name with a double quote"}}) {
        project.info.temp = project.folder.Path(folder);
        EXPECT_EQ(project.Pack(), PACK_TEMP_FOLDER);
        EXPECT_EQ(project.output, "\r\npack resource started\r\n");
        EXPECT_THAT(project.TakeExplained().toStdString(), testing::HasSubstr(reason));
        EXPECT_FALSE(project.folder.Has("app.out"));
    }
}
