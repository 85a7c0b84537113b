#include "ImageConversion.h"
#include "PackCodes.h"
#include "PackProject.h"
#include "RunTool.h"

#include <gmock/gmock.h>

#include <fcntl.h>

using namespace Qt::StringLiterals;

namespace
{

TEST(NeedImageConvert, GoesByTheExtensionOfTheName)
{
    for (const char *path : {"a.bmp", ".\\res\\a.JPG", "/x.y/a.b.Png", "c:\\a.gif"})
        EXPECT_TRUE(NeedImageConvert(QString::fromUtf8(path))) << path;
    for (const char *path : {"a.jpeg", "a.tga", "png", "a.", "", "/x.png/a", ".\\x.png\\a"})
        EXPECT_FALSE(NeedImageConvert(QString::fromUtf8(path))) << path;
}

class ConvertImageTest : public testing::Test
{
protected:
    ConvertImageTest() { project.Put("demo/my picture.png", "pixels"); }
    int Convert()
    {
        const int code = ConvertImage(*project.env, project.Path("demo/my picture.png"), project.Path("demo/target"));
        EXPECT_EQ(CurrentFolder(), project.Path("demo")) << "the old working folder is back";
        return code;
    }
    PackProject project;
};

TEST_F(ConvertImageTest, RunsTheToolInItsFolderAndTidiesUpBehindIt)
{
    project.Put("demo/my picture.ABM", "left over");
    project.Put("demo/my picture.BMPA", "left over");
    project.PutConverter("pwd > args; printf '%s\\n' \"$@\" >> args; touch temp_image\n"
                         "test -d Debug && printf 123456789 > \"$4\" && chmod 444 \"$4\"");
    EXPECT_EQ(Convert(), 0) << project.output.constData();
    EXPECT_EQ(project.Get("bin/args"), project.Narrow("bin") + "\n-f\n-i\n" + project.Narrow("demo/my picture.png") +
                                           "\n" + project.Narrow("demo/target") + "\n");
    EXPECT_EQ(project.Mode("demo/target"), 0644);
    EXPECT_FALSE(project.Has("bin/temp_image"));
    EXPECT_FALSE(project.Has("demo/my picture.ABM"));
    EXPECT_FALSE(project.Has("demo/my picture.BMPA"));
    EXPECT_EQ(project.output, "");
}

TEST_F(ConvertImageTest, AToolThatFailsCrashesOrIsMissingLeavesNoTarget)
{
    const QByteArray line = "\r\n[error] Cannot open file for read: " + project.Narrow("demo/target");
    EXPECT_EQ(Convert(), CONVERT_NO_TARGET);
    EXPECT_THAT(project.trace.toStdString(), testing::HasSubstr("CreateProcess failed (2)\n"));
    EXPECT_EQ(project.output, line);
    for (const char *body : {"exit 1", "kill -SEGV $$"}) {
        project.output.clear();
        project.PutConverter(body);
        EXPECT_EQ(Convert(), CONVERT_NO_TARGET) << body;
        EXPECT_EQ(project.output, line);
    }
}

TEST_F(ConvertImageTest, EightBytesAreNoImage)
{
    project.PutConverter("printf 12345678 > \"$4\"");
    EXPECT_EQ(Convert(), CONVERT_TARGET_SHORT);
    EXPECT_EQ(project.output,
              "\r\n[error] Convert fail, got illegal file size: " + project.Narrow("demo/target") + ", <= 8 ");
}

TEST(SplitCommandLine, BlanksDivideOutsideQuotes)
{
    using Words = std::vector<QByteArray>;
    EXPECT_EQ(SplitCommandLine(u"tool -i \"a b\"  \"\" x\"y z\"\\\"w "), (Words{"tool", "-i", "a b", "", "xy z\\w "}));
    EXPECT_EQ(SplitCommandLine(u"  "), Words{});
    EXPECT_EQ(SplitCommandLine(u"\"my tool\" 1"), (Words{"my tool", "1"}));
}

TEST(RunTool, FindsAProgramInAFolderWithABlank)
{
    PackProject project;
    ASSERT_TRUE(CreateFolderOnDisk(project.Path("my tools")));
    project.PutTool("my tools/Tool.exe", "echo \"$1\" > said");
    EXPECT_EQ(RunTool(*project.env, project.Path("my tools") + u"\\tool.exe \"two words\""_s), 0);
    EXPECT_EQ(project.Get("demo/said"), "two words\n");
}

TEST(RunTool, GivesTheToolNothingToReadAndNoneOfOurFiles)
{
    PackProject project;
    project.PutTool("bin/tool", "wc -c > read; ls /proc/self/fd > files; echo dropped");
    project.Put("demo/ours", "");
    const int ours = open("ours", O_RDONLY); // deliberately inheritable
    ASSERT_GE(ours, 0);
    ASSERT_EQ(dup2(ours, 200), 200);
    EXPECT_EQ(RunTool(*project.env, project.Path("bin/tool")), 0);
    close(200);
    close(ours);
    EXPECT_EQ(project.Get("demo/read").trimmed(), "0");
    EXPECT_FALSE(project.Get("demo/files").contains("200"));
}

TEST(RunTool, WaitsThroughSignalsAndFlushesTheLogFirst)
{
    PackProject project;
    bool flushed = false;
    project.env->flushOutput = [&] { flushed = true; };
    struct sigaction action = {};
    action.sa_handler = [](int) {}; // without SA_RESTART
    struct sigaction before;
    ASSERT_EQ(sigaction(SIGUSR1, &action, &before), 0);
    project.PutTool("bin/tool", "kill -USR1 $PPID; kill -USR1 $PPID; echo done > result");
    EXPECT_EQ(RunTool(*project.env, project.Path("bin/tool")), 0);
    sigaction(SIGUSR1, &before, nullptr);
    EXPECT_EQ(project.Get("demo/result"), "done\n");
    EXPECT_TRUE(flushed);
}

TEST(RunTool, SaysWhyAToolCannotBeStarted)
{
    PackProject project;
    project.Put("bin/data", "no program");
    EXPECT_EQ(RunTool(*project.env, project.Path("bin/data")), TOOL_NOT_STARTED);
    EXPECT_EQ(project.trace, "CreateProcess failed (13)\n");
    EXPECT_EQ(RunTool(*project.env, QString()), TOOL_NOT_STARTED);
}

} // namespace
