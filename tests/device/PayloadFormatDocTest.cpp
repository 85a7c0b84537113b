#include "morvanite_device.h"

#include "PayloadBuilder.h"
#include "ReadEverything.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace
{

/// The bytes of the hex dump in docs/payload-format.md: lines of an offset, a colon and pairs of hex digits.
PayloadBuilder::Bytes BytesOfTheDocument()
{
    std::ifstream document(MORVANITE_DOCS "/payload-format.md");
    PayloadBuilder::Bytes bytes;
    for (std::string line; std::getline(document, line);) {
        std::istringstream words(line);
        std::string word;
        if (!(words >> word) || word.size() != 5 || word.back() != ':')
            continue;
        EXPECT_EQ(std::stoul(word, nullptr, 16), bytes.size()) << line;
        while (words >> word && word.size() == 2)
            bytes.push_back(static_cast<std::uint8_t>(std::stoul(word, nullptr, 16)));
    }
    return bytes;
}

} // namespace

TEST(PayloadFormatDoc, ItsExampleIsThePayloadItDescribes)
{
    const PayloadBuilder::Bytes icon{'0', '1', '2', '3', '4', '5', '6', '7', '8', '9'};
    const PayloadBuilder::Bytes sound{0, 0, 0, 0, 0, 0, 0, 0, 'S', 'O', 'U', 'N', 'D'};
    EXPECT_EQ(BytesOfTheDocument(),
              PayloadBuilder().Entry("AppLogo.img", icon).Language(0, {{2, u"Hi"}}).Item(1, sound).Build());
}

TEST(PayloadFormatDoc, TheReaderReadsItsExample)
{
    const ExactBytes memory(BytesOfTheDocument());
    morvanite_payload payload;
    ASSERT_EQ(morvanite_open(&payload, memory.Data(), memory.Size(), 0), MORVANITE_OK);
    morvanite_entry icon;
    ASSERT_EQ(morvanite_find_entry(&payload, "AppLogo.img", &icon), MORVANITE_OK);
    EXPECT_EQ(icon.data - memory.Data(), 48);
    EXPECT_EQ(icon.size, 10U);
    morvanite_item sound;
    ASSERT_EQ(morvanite_find_item(&payload, 1, &sound), MORVANITE_OK);
    EXPECT_EQ(sound.data - memory.Data(), 112);
    EXPECT_EQ(sound.size, 16U);
    morvanite_string text;
    ASSERT_EQ(morvanite_find_text(&payload, 0, 2, &text), MORVANITE_OK);
    EXPECT_EQ(text.units - memory.Data(), 104);
    char utf8[8];
    EXPECT_EQ(morvanite_string_utf8(&text, utf8, sizeof utf8), 2U);
    EXPECT_STREQ(utf8, "Hi");
}
