// SPDX-License-Identifier: MIT
#include "morvanite_device.hpp"

#include "PayloadBuilder.h"
#include "ReadEverything.h"

#include <gtest/gtest.h>

TEST(DeviceCpp, FindsAndWalksWhatThePayloadHas)
{
    const ExactBytes memory(PayloadBuilder()
                                .Entry("AppLogo.img", "icon")
                                .Language(2, {{7, u"H\u00E9"}, {9, u""}})
                                .Item(5, "five")
                                .Item(3, "three...")
                                .Build());
    morvanite::payload payload;
    EXPECT_FALSE(payload.find(5)) << "it isn't open";
    EXPECT_FALSE(morvanite::language().find(7)) << "it isn't open";
    EXPECT_EQ(payload.open(memory.Data(), memory.Size(), 4), MORVANITE_DAMAGED) << "wrong base";
    ASSERT_EQ(payload.open(memory.Data(), memory.Size()), MORVANITE_OK);
    std::uint32_t order[3];
    EXPECT_EQ(payload.make_index(order), MORVANITE_OK);

    const auto five = payload.find(5);
    ASSERT_TRUE(five);
    EXPECT_EQ(std::string(five->data().begin(), five->data().end()), "five");
    EXPECT_EQ(payload.find(4).result(), MORVANITE_NOT_FOUND);
    EXPECT_EQ(payload.find_entry("AppLogo.img")->data().size(), 4U);
    std::uint32_t cursor = 0;
    EXPECT_STREQ(payload.next_entry(cursor)->name(), "AppLogo.img");
    std::vector<std::uint32_t> keys;
    for (const auto item : payload)
        keys.push_back(item ? item->key() : 0);
    EXPECT_EQ(keys, (std::vector<std::uint32_t>{0xFFFF0002, 5, 3}));

    morvanite::language language;
    EXPECT_EQ(language.open(payload, 1), MORVANITE_NOT_FOUND);
    EXPECT_EQ(language.open(*five), MORVANITE_NOT_FOUND) << "it is no language";
    ASSERT_EQ(language.open(payload, 2), MORVANITE_OK);
    std::u16string text;
    for (const char16_t unit : *language.find(7))
        text += unit;
    EXPECT_EQ(text, u"H\u00E9");
    char buffer[16];
    EXPECT_EQ(payload.find_text(2, 7)->utf8(buffer), 3U);
    EXPECT_STREQ(buffer, "H\u00E9");
    std::vector<std::uint32_t> ids;
    for (const auto string : language)
        ids.push_back(string->id());
    EXPECT_EQ(ids, (std::vector<std::uint32_t>{7, 9}));
    EXPECT_TRUE(language.at(1)->empty());
}
