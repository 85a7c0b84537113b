// SPDX-License-Identifier: MIT
#include "Utf16.h"

#include <QString>

#include <gtest/gtest.h>

TEST(Utf16, IsConvertedAsQtDoes)
{
    std::u32string all;
    for (char32_t c = 0; c <= 0x10FFFF; ++c) {
        if (c < 0xD800 || c > 0xDFFF)
            all += c;
    }
    const QString text = QString::fromStdU32String(all);
    EXPECT_TRUE(Utf8Of(text.toStdU16String()) == text.toStdString());
    EXPECT_TRUE(Utf16Of(text.toStdString()) == text.toStdU16String());
    for (const auto halves : {u"\xD83D", u"\xDD14", u"a\xD83Dz", u"\xDD14\xD83D", u"\xD83D\xD83D\xDD14"})
        EXPECT_EQ(Utf8Of(halves), QString::fromUtf16(halves).toStdString());
}

TEST(Utf16, HasAReplacementForEachByteThatIsNoCharacter)
{
    EXPECT_EQ(Utf16Of("a\x80z"), u"a\uFFFDz");
    EXPECT_EQ(Utf16Of("\xC0\x80\xE4\xB8"), u"\uFFFD\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(Utf16Of("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD") << "half of a pair";
}
