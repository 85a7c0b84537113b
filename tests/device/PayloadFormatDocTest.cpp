#include "PayloadBuilder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

TEST(PayloadFormatDoc, ItsExampleIsThePayloadItDescribes)
{
    // Lines of an offset, a colon and pairs of hex digits.
    std::ifstream document(MORVANITE_DOCS "/payload-format.md");
    std::string bytes;
    for (std::string line; std::getline(document, line);) {
        std::istringstream words(line);
        std::string word;
        if (!(words >> word) || word.size() != 5 || word.back() != ':')
            continue;
        EXPECT_EQ(std::stoul(word, nullptr, 16), bytes.size()) << line;
        while (words >> word && word.size() == 2)
            bytes += static_cast<char>(std::stoul(word, nullptr, 16));
    }
    const std::string sound("\0\0\0\0\0\0\0\0SOUND", 13);
    EXPECT_EQ(bytes,
              PayloadBuilder().Entry("AppLogo.img", "0123456789").Language(0, {{2, u"Hi"}}).Item(1, sound).Build());
}
