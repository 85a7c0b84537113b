// SPDX-License-Identifier: MIT
#include "IDGen.h"

#include "PoolBuilder.h"

#include <algorithm>
#include <random>
#include <set>

struct FillValue : testing::Test
{
    int Run() { return IDGen::FillValue(model.env, &model.ids); }

    TestModel model;
    PoolBuilder ids{model};
};

TEST_F(FillValue, NumbersNamesInByteOrder)
{
    std::mt19937 random(5);
    const auto text = [&random](size_t size) {
        std::string made;
        while (made.size() < size)
            made += "Bb_\xc3"[random() % 4];
        return made;
    };
    const std::string common = text(100);
    std::set<std::string> sorted; // names with common beginnings of any length, and names that continue others
    while (sorted.size() < 1000)
        sorted.insert('N' + common.substr(0, random() % 100) + text(random() % 4));
    std::vector<std::string> names(sorted.begin(), sorted.end());
    std::shuffle(names.begin(), names.end(), random);
    for (const std::string &name : names)
        ids.Normal(NarrowText::fromStdString(name));
    for (int again = 0; again < 2; ++again) {
        ASSERT_EQ(Run(), 0);
        quint32 value = 0;
        for (const std::string &name : sorted)
            ASSERT_EQ(model.ids.FindName(NarrowText::fromStdString(name))->value, ++value) << name;
    }
}

TEST_F(FillValue, UsesTheRangeOfTheClassOfTheFirstRecord)
{
    ids.Normal("N").Push("A", PUSH_AUDIO).Push("V", PUSH_VIDEO).Push("B", PUSH_BINARY).Push("I", PUSH_IMAGE);
    ids.Push("S", PUSH_STRING).Push("X", 6).Push("A2", PUSH_AUDIO).Push("P0", PUSH_NONE).Push("P7", 7).Push("P-", -1);
    ids.Normal("R", 0).Push("R", PUSH_IMAGE, 1).Push("T", PUSH_NONE, 0).Normal("T", 1);
    model.ids.FindName("P0")->value = 77;
    model.ids.FindName("T")->value = 5;
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ids.Values(), "N=1 A=100000 V=101000 B=102000 I=103000 S=104000 X=109000 A2=100001 P0=77 P7=0 P-=0 "
                            "R=2 R=2 T=5 T=5")
        << "an ID without a class keeps its number";
}

TEST(FillValueRange, FillsItsRangeAndFailsOnOneMore)
{
    const struct
    {
        int pushKind;
        quint32 first, last;
        const char *message;
    } ranges[] = {{0, 1, 99999, "non-push ID cannot larger than99999"},
                  {PUSH_AUDIO, 100000, 100999, "push audio ID cannot larger than100999"},
                  {PUSH_VIDEO, 101000, 101999, "push video ID cannot larger than101999"},
                  {PUSH_BINARY, 102000, 102999, "push binary ID cannot larger than102999"},
                  {PUSH_IMAGE, 103000, 103999, "push image ID cannot larger than103999"},
                  {PUSH_STRING, 104000, 108999, "push string ID cannot larger than108999"},
                  {6, 109000, 109999, "push other ID cannot larger than109999"}};
    for (const auto &[kind, first, last, message] : ranges) {
        TestModel model;
        QString why;
        model.env.explain = [&why](const QString &text) { why = text; };
        PoolBuilder ids{model};
        for (quint32 value = first; value <= last + 1; ++value) {
            EXPECT_TRUE(value <= last || IDGen::FillValue(model.env, &model.ids) == 0) << message;
            const NarrowText name = "N" + NarrowText::number(1'000'000 + value);
            kind == 0 ? ids.Normal(name) : ids.Push(name, kind);
        }
        model.ids.sentinel.next->value = 0;
        EXPECT_EQ(IDGen::FillValue(model.env, &model.ids), -2);
        EXPECT_TRUE(model.trace.endsWith(message)) << model.trace.right(100).constData();
        const std::string end =
            "last number is " + std::to_string(last) + ", and \"N" + std::to_string(1'000'000 + last + 1);
        EXPECT_NE(why.toStdString().find(end), std::string::npos) << why.toStdString();
        EXPECT_EQ(ids.holders.front()->Id()->value, first) << "IDs numbered before keep their numbers";
        EXPECT_EQ(ids.holders[last - first]->Id()->value, last);
    }
}
