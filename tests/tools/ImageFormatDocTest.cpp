#include "SamplePictures.h"

#include <gtest/gtest.h>
#include <png.h>
#include <sstream>

namespace
{

/// The bytes of the document's example: in each line of the block named "example" two digits a byte, up to a '#'.
ByteVector ExampleBytes(const std::string &document, const std::string &name)
{
    ByteVector bytes;
    std::istringstream lines(document);
    bool isInside = false;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("```")) {
            isInside = line == "```" + name;
            continue;
        }
        std::istringstream words(line.substr(0, line.find('#')));
        for (std::string word; isInside && words >> word;)
            bytes.push_back(static_cast<std::uint8_t>(std::stoul(word, nullptr, 16)));
    }
    return bytes;
}

ByteVector ConvertedBytes(const ByteVector &file)
{
    const TestFolder folder;
    const std::string source = folder.Write("picture", file);
    EXPECT_EQ(RunConverter({"-f", "-i", source, folder.Path("out")}).status, 0);
    return ReadBytes(folder.Path("out")).value_or(ByteVector{});
}

} // namespace

TEST(ImageFormatDocument, ItsExamplesAreWhatTheConverterWrites)
{
    const auto text = ReadBytes(MORVANITE_DOCS "/image-format.md");
    ASSERT_TRUE(text);
    const std::string document(text->begin(), text->end());

    const ByteVector opaque =
        MakePng({.width = 3,
                 .height = 2,
                 .type = PNG_COLOR_TYPE_RGB,
                 .rows = {{255, 0, 0, 0, 255, 0, 0, 0, 255}, {255, 255, 255, 128, 128, 128, 0, 0, 0}}});
    EXPECT_EQ(ConvertedBytes(opaque), ExampleBytes(document, "example-rgb565"));

    const ByteVector transparent = MakePng(
        {.width = 2, .height = 1, .type = PNG_COLOR_TYPE_RGB_ALPHA, .rows = {{255, 128, 0, 255, 16, 32, 48, 64}}});
    EXPECT_EQ(ConvertedBytes(transparent), ExampleBytes(document, "example-argb8888"));
}
