// SPDX-License-Identifier: MIT
#include "ImageConversion.h"
#include "PackCodes.h"
#include "PackProject.h"
#include "RunTool.h"

#include <csignal>
#include <fcntl.h>

using namespace Qt::StringLiterals;

TEST(NeedImageConvert, DependsOnTheExtension)
{
    for (const char *path : {"a.bmp", ".\\res\\a.JPG", "/x.y/a.b.Png", "c:\\a.gif"})
        EXPECT_TRUE(NeedImageConvert(QString::fromUtf8(path))) << path;
    for (const char *path : {"a.jpeg", "a.tga", "png", "a.", "", "/x.png/a", ".\\x.png\\a"})
        EXPECT_FALSE(NeedImageConvert(QString::fromUtf8(path))) << path;
}

TEST(ConvertImage, RunsTheToolInItsFolderAndRemovesItsFiles)
{
    PackProject project;
    for (const char *name : {"my picture.png", "my picture.ABM", "my picture.BMPA"})
        project.folder.Put(name, "");
    project.PutTool("pwd > args; printf '%s\\n' \"$@\" >> args; touch temp_image\n"
                    "test -d Debug && printf 123456789 > \"$4\" && chmod 444 \"$4\"");
    EXPECT_EQ(ConvertImage(project.env, project.folder.Path("my picture.png"), project.folder.Path("target")), 0);
    EXPECT_EQ(QDir::currentPath(), project.folder.Path()) << "the old current folder is restored";
    EXPECT_EQ(project.folder.Get("bin/args").replace(project.Narrow(""), "@"),
              "@/bin\n-f\n-i\n@/my picture.png\n@/target\n");
    EXPECT_EQ(project.Mode("target"), 0644);
    for (const char *name : {"bin/temp_image", "my picture.ABM", "my picture.BMPA"})
        EXPECT_FALSE(project.folder.Has(name)) << name;
    EXPECT_EQ(project.TakeOutput(), "");
}

TEST(ConvertImage, LeavesNoTargetIfTheToolFailsCrashesOrIsMissing)
{
    PackProject project;
    const QString target = project.folder.Path("target");
    const std::string noTarget = "\r\n[error] Cannot open file for read: " + target.toStdString();
    const std::string tooShort = "\r\n[error] Convert fail, got illegal file size: " + target.toStdString() + ", <= 8 ";
    for (const auto &[body, code, said] : {std::tuple("", CONVERT_NO_TARGET, noTarget),
                                           {"exit 1", CONVERT_NO_TARGET, noTarget},
                                           {"kill -SEGV $$", CONVERT_NO_TARGET, noTarget},
                                           {"printf 12345678 > \"$4\"", CONVERT_TARGET_SHORT, tooShort}}) {
        if (*body)
            project.PutTool(body);
        EXPECT_EQ(ConvertImage(project.env, u"a.png"_s, target), code) << body;
        EXPECT_EQ(project.TakeOutput().toStdString(), said) << body;
        EXPECT_EQ(project.trace, "CreateProcess failed (2)\n");
    }
    EXPECT_EQ(ConvertImage(project.env, u"a \"b\".png"_s, target), CONVERT_NO_TARGET);
    EXPECT_EQ(project.TakeOutput(),
              "\r\n[error] A name with a double quote can't be handed to the converter: a \"b\".png");
}

TEST(RunTool, StartsTheToolWithoutInputOrOpenFilesAndWaitsForItsEnd)
{
    PackProject project;
    project.folder.MakeFolder("my tools");
    project.PutTool("echo \"$1\" > said; wc -c >> said; ls /proc/self/fd > files; echo dropped\n"
                    "kill -USR1 $PPID; kill -USR1 $PPID; sleep 0.2; echo done >> said",
                    "my tools/Tool.exe");
    const int ours = open("app.axf", O_RDONLY); // inheritable on purpose
    ASSERT_EQ(dup2(ours, 200), 200);
    struct sigaction action = {};
    action.sa_handler = [](int) {}; // without SA_RESTART
    struct sigaction before;
    ASSERT_EQ(sigaction(SIGUSR1, &action, &before), 0);
    bool flushed = false;
    project.env.flushOutput = [&] { flushed = true; };
    int turns = 0;
    project.env.whileWaiting = [&] { ++turns; };
    EXPECT_EQ(RunTool(project.env, {project.folder.Path("my tools") + u"\\tool.exe"_s, u"\"two\" words"_s}), 0);
    sigaction(SIGUSR1, &before, nullptr);
    close(200);
    close(ours);
    EXPECT_EQ(project.folder.Get("said"), "\"two\" words\n0\ndone\n");
    EXPECT_FALSE(project.folder.Get("files").contains("200"));
    EXPECT_TRUE(flushed && turns > 0);

    for (const QStringList &command : {QStringList{project.folder.Path("app.axf")}, QStringList()})
        EXPECT_EQ(RunTool(project.env, command), TOOL_NOT_STARTED);
    EXPECT_EQ(project.trace, "CreateProcess failed (13)\nCreateProcess failed (2)\n");
}
