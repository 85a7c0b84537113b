// SPDX-License-Identifier: MIT
#include "ImageConversion.h"
#include "PackCodes.h"
#include "PackProject.h"
#include "RunTool.h"
#include "ScratchFolder.h"

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

namespace
{

/// Converts a picture as a phase does. Returns the result, and sets `size` to that of the file to pack.
int Convert(PackProject &project, const QString &source, qint64 *size = nullptr)
{
    ScratchFolder scratch{QByteArray()};
    PictureConverters converters(project.env, {}, scratch);
    ImageConversion conversion(project.env, source.toUtf8(), scratch, converters);
    const int code = conversion.Finish();
    if (size && code == 0) {
        EXPECT_EQ(access(qPrintable(source + u".tmp"_s), W_OK), 0) << "it is made writable";
        *size = conversion.Take().size;
    }
    return code;
}

} // namespace

TEST(ImageConversion, RunsTheToolInItsFolderAndRemovesItsFiles)
{
    PackProject project;
    for (const char *name : {"my picture.png", "my picture.ABM", "my picture.BMPA"})
        project.folder.Put(name, "");
    project.PutTool("pwd > args; printf '%s\\n' \"$@\" >> args; touch temp_image\n"
                    "test -d Debug && printf 123456789 > \"$4\" && chmod 444 \"$4\"");
    qint64 size = 0;
    EXPECT_EQ(Convert(project, project.folder.Path("my picture.png"), &size), 0);
    EXPECT_EQ(size, 9);
    EXPECT_EQ(QDir::currentPath(), project.folder.Path()) << "the current folder of this program is the old one";
    EXPECT_EQ(project.folder.Get("bin/args").replace(project.Narrow(""), "@"),
              "@/bin\n-f\n-i\n@/my picture.png\n@/my picture.png.tmp\n");
    for (const char *name : {"bin/temp_image", "my picture.ABM", "my picture.BMPA", "my picture.png.tmp"})
        EXPECT_FALSE(project.folder.Has(name)) << name;
    EXPECT_EQ(project.TakeOutput(), "\r\nNeed image convert, convert... ");
}

TEST(ImageConversion, LeavesNoTargetIfTheToolFailsCrashesOrIsMissing)
{
    PackProject project;
    const QString source = project.folder.Path("a.png");
    const std::string target = source.toStdString() + ".tmp";
    const std::string begin = "\r\nNeed image convert, convert... ";
    const std::string end = "\r\n[error] Convert image fail.";
    const std::string noTarget = "\r\n[error] Cannot open file for read: " + target;
    const std::string tooShort = "\r\n[error] Convert fail, got illegal file size: " + target + ", <= 8 ";
    for (const auto &[body, code, said] : {std::tuple("", CONVERT_NO_TARGET, noTarget),
                                           {"exit 1", CONVERT_NO_TARGET, noTarget},
                                           {"kill -SEGV $$", CONVERT_NO_TARGET, noTarget},
                                           {"printf 12345678 > \"$4\"", CONVERT_TARGET_SHORT, tooShort}}) {
        if (*body)
            project.PutTool(body);
        EXPECT_EQ(Convert(project, source), code) << body;
        EXPECT_EQ(project.TakeOutput().toStdString(), begin + said + end) << body;
    }
    EXPECT_TRUE(project.trace.startsWith("CreateProcess failed (2)\n"));
    EXPECT_EQ(Convert(project, u"/a \"b\".png"_s), CONVERT_NO_TARGET);
    EXPECT_EQ(project.TakeOutput().toStdString(),
              begin + "\r\n[error] A name with a double quote can't be handed to the converter: /a \"b\".png" + end);
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
