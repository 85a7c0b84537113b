#include "SamplePictures.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

using testing::ElementsAre;
using testing::HasSubstr;

namespace
{

ByteVector SmallBmp()
{
    return MakeBmp({.width = 1, .height = 1, .data = {255, 255, 255, 0}});
}

/// A picture of so many pixels, most of them beyond any limit of a test.
ByteVector LargeGif(int size)
{
    return MakeGif(size, size, {{1, 2, 3}, {4, 5, 6}},
                   {{.width = 1, .height = 1, .index = [](int, int) { return 0; }}});
}

} // namespace

TEST(Converter, AnythingButItsOneCommandLineGivesTheUsageAndStatus1)
{
    const std::vector<std::vector<std::string>> wrong{
        {}, {"--help"}, {"-f", "-i", "a"}, {"-i", "-f", "a", "b"}, {"-f", "-i", "a", "b", "c"}, {"-f", "x", "a", "b"}};
    for (const std::vector<std::string> &arguments : wrong) {
        const RunResult run = RunConverter(arguments);
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.standardOutput, "");
        EXPECT_EQ(run.standardError,
                  "usage: qrk_resgenerator.exe -f -i SOURCE TARGET (SOURCE: a bmp, gif, jpg or png picture; "
                  "TARGET: the device's picture, replaced)\n");
    }
}

TEST(Converter, TheFirstBytesTellTheKindWhateverTheName)
{
    const TestFolder folder;
    const std::string source = folder.Write("a.png", SmallBmp());
    EXPECT_EQ(RunConverter({"-f", "-i", source, folder.Path("out")}).status, 0);
    EXPECT_THAT(ExpectRefused({'n', 'o', 'n', 'e', '\n'}),
                HasSubstr("file of 5 bytes that begins with 6e 6f 6e 65 0a, wanted a bmp, gif, jpg or png picture"));
    EXPECT_THAT(ExpectRefused({}), HasSubstr("empty file"));
}

TEST(Converter, NamesWithBlanksAndForeignBytesWorkAndNothingElseIsLeft)
{
    const TestFolder folder;
    const std::string source = folder.Write("my \xE5\xA4\xA9 \xFF.bmp", SmallBmp());
    const std::string target = folder.Path(" out \xFE.tmp ");
    EXPECT_EQ(RunConverter({"-f", "-i", source, target}).status, 0);
    EXPECT_TRUE(ReadBytes(target));
    EXPECT_EQ(folder.Names().size(), 2U);
}

TEST(Converter, AReadOnlyTargetIsReplacedAndALinkIsNotFollowed)
{
    const TestFolder folder;
    const std::string source = folder.Write("a.bmp", SmallBmp());
    const std::string precious = folder.Write("precious", {1, 2, 3});
    const std::string target = folder.Write("out", {9});
    chmod(target.c_str(), 0400);
    EXPECT_EQ(RunConverter({"-f", "-i", source, target}).status, 0);
    EXPECT_TRUE(TakeApart(ReadBytes(target).value()));

    const std::string link = folder.Path("link");
    std::filesystem::create_symlink(precious, link);
    EXPECT_EQ(RunConverter({"-f", "-i", source, link}).status, 0);
    EXPECT_TRUE(std::filesystem::is_regular_file(std::filesystem::symlink_status(link)));
    EXPECT_EQ(ReadBytes(precious), (ByteVector{1, 2, 3}));
}

TEST(Converter, AMissingSourceStillRemovesTheStaleTarget)
{
    const TestFolder folder;
    const std::string target = folder.Write("out", {9});
    const RunResult run = RunConverter({"-f", "-i", folder.Path("none.png"), target});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.standardError, HasSubstr("none.png: cannot open it: No such file or directory\n"));
    EXPECT_TRUE(folder.Names().empty());
}

TEST(Converter, TheSourceIsNeverTakenForAStaleTarget)
{
    const TestFolder folder;
    const std::string source = folder.Write("a.bmp", SmallBmp());
    for (const std::string &target : {source, folder.Path("./a.bmp")}) {
        const RunResult run = RunConverter({"-f", "-i", source, target});
        EXPECT_EQ(run.status, 1);
        EXPECT_THAT(run.standardError, HasSubstr("is the source itself"));
        EXPECT_EQ(ReadBytes(source), SmallBmp());
    }
}

TEST(Converter, PlacesThatHoldNoFileAreRefused)
{
    const TestFolder folder;
    const std::string source = folder.Write("a.bmp", SmallBmp());
    const std::string inner = folder.Path("folder");
    const std::string pipe = folder.Path("pipe");
    std::filesystem::create_directory(inner);
    mkfifo(pipe.c_str(), 0600);
    const std::vector<std::string> names = folder.Names();
    EXPECT_THAT(RunConverter({"-f", "-i", source, inner}).standardError, HasSubstr("folder: not a regular file"));
    EXPECT_THAT(RunConverter({"-f", "-i", source, pipe}).standardError, HasSubstr("pipe: not a regular file"));
    EXPECT_THAT(RunConverter({"-f", "-i", inner, folder.Path("o")}).standardError,
                HasSubstr("folder: not a regular file"));
    EXPECT_THAT(RunConverter({"-f", "-i", pipe, folder.Path("o")}).standardError,
                HasSubstr("pipe: not a regular file"));
    EXPECT_THAT(RunConverter({"-f", "-i", source, folder.Path("no/o")}).standardError,
                HasSubstr("no/o: cannot create it: No such file or directory\n"));
    EXPECT_EQ(folder.Names(), names);
}

TEST(Converter, ALineBreakInANameDoesNotMakeTwoLines)
{
    const RunResult run = RunConverter({"-f", "-i", "/none\nerror: \x1B[31m", "/none/out"});
    EXPECT_EQ(run.standardError,
              "qrk_resgenerator.exe: /none?error: ?[31m: cannot open it: No such file or directory\n");
}

TEST(Converter, AFullDiskAtAnyByteLeavesNoTarget)
{
    const TestFolder folder;
    const std::string source = folder.Write("a.bmp", SmallBmp());
    const std::string target = folder.Path("out");
    for (std::uint64_t room = 1; room < 28; ++room) {
        const RunResult run = RunConverter({"-f", "-i", source, target}, {.fileSize = room});
        EXPECT_TRUE(run.hasExited);
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.standardError, "qrk_resgenerator.exe: " + target + ": cannot write it: File too large\n");
        EXPECT_THAT(folder.Names(), ElementsAre("a.bmp"));
    }
    EXPECT_EQ(RunConverter({"-f", "-i", source, target}, {.fileSize = 28}).status, 0);
}

TEST(Converter, TooLittleMemoryIsAnErrorLine)
{
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the sanitizer itself needs more than any limit";
#endif
    const TestFolder folder;
    const std::string source = folder.Write("a.gif", LargeGif(7000));
    const RunResult run = RunConverter({"-f", "-i", source, folder.Path("out")}, {.memory = 64 << 20});
    EXPECT_TRUE(run.hasExited);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.standardError, "qrk_resgenerator.exe: " + source +
                                     ": picture of 7000 x 7000 pixels, for which there is not enough memory\n");
    EXPECT_THAT(folder.Names(), ElementsAre("a.gif"));
}

TEST(Converter, ExactlySixtyFourMegapixelsAreConverted)
{
    const TestFolder folder;
    const std::string source = folder.Write("a.gif", LargeGif(8000));
    const RunResult run = RunConverter({"-f", "-i", source, folder.Path("out")});
    EXPECT_EQ(run.standardError, "");
    EXPECT_EQ(std::filesystem::file_size(folder.Path("out")), 24U + 4U * 64'000'000U);
}

TEST(Converter, TheSamePictureGivesTheSameBytes)
{
    const TestFolder folder;
    const std::string source = folder.Write("a.gif", LargeGif(20));
    ASSERT_EQ(RunConverter({"-f", "-i", source, folder.Path("one")}).status, 0);
    ASSERT_EQ(RunConverter({"-f", "-i", source, folder.Path("two")}).status, 0);
    EXPECT_EQ(ReadBytes(folder.Path("one")), ReadBytes(folder.Path("two")));
}
