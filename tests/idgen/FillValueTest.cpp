#include "IDGen.h"

#include "PoolBuilder.h"

#include <random>

namespace
{

class FillValue : public testing::Test
{
protected:
    int Run() { return IDGen::FillValue(*model.TestProgram::env, &model.ids); }

    TestModel model;
    PoolBuilder ids{model};
};

} // namespace

TEST_F(FillValue, NumbersFollowTheBytesOfTheNames)
{
    EXPECT_EQ(Run(), 0);
    ids.Normal("ID_b").Normal("ID_").Normal("ID_B").Normal("ID").Normal("ID__").Normal("ID_\xc3\xa9").Normal("ID_B1");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ids.Values(), "ID_b=6 ID_=2 ID_B=3 ID=1 ID__=5 ID_\xc3\xa9=7 ID_B1=4");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ids.Values(), "ID_b=6 ID_=2 ID_B=3 ID=1 ID__=5 ID_\xc3\xa9=7 ID_B1=4");
}

TEST_F(FillValue, LongNamesWithALongCommonBeginningAreSortedToTheirEnd)
{
    const NarrowText same(55, 'N');
    std::vector<NarrowText> names;
    for (int i = 0; i < 300; ++i)
        names.push_back(same + NarrowText::number(i));
    std::shuffle(names.begin(), names.end(), std::mt19937(5));
    for (const NarrowText &name : names)
        ids.Normal(name);
    ASSERT_EQ(Run(), 0);
    std::sort(names.begin(), names.end());
    for (size_t i = 0; i < names.size(); ++i)
        EXPECT_EQ(model.ids.FindName(names[i])->value, i + 1) << names[i].constData();
}

TEST_F(FillValue, EachClassHasItsOwnRange)
{
    ids.Normal("N").Push("A", PUSH_AUDIO).Push("V", PUSH_VIDEO).Push("B", PUSH_BINARY).Push("I", PUSH_IMAGE);
    ids.Push("S", PUSH_STRING).Push("X", 6).Push("A2", PUSH_AUDIO).Normal("N2");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ids.Values(), "N=1 A=100000 V=101000 B=102000 I=103000 S=104000 X=109000 A2=100001 N2=2");
}

TEST_F(FillValue, APushIdWithoutAClassKeepsTheValueItHad)
{
    ids.Push("A", PUSH_NONE).Push("B", 7).Push("C", -1).Normal("D");
    model.ids.FindName("A")->value = 77;
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ids.Values(), "A=77 B=0 C=0 D=1");
}

TEST_F(FillValue, OneNameInSeveralResolutionsHasOneNumberThatItsFirstRecordDecides)
{
    ids.Normal("B", 0).Push("A", PUSH_IMAGE, 1).Normal("A", 0).Normal("C").Push("B", PUSH_IMAGE, 1);
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ids.Values(), "B=1 A=103000 A=103000 C=2 B=1");
    ids.Push("D", PUSH_NONE, 0).Normal("D", 1);
    model.ids.FindName("D")->value = 5;
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ids.Values(), "B=1 A=103000 A=103000 C=2 B=1 D=5 D=5");
}

TEST_F(FillValue, WithoutAPoolThereIsNothingToNumber)
{
    EXPECT_EQ(IDGen::FillValue(*model.TestProgram::env, nullptr), -1);
}

namespace
{

struct Range
{
    int pushKind;
    int count;
    quint32 last;
    const char *message;
};

class FillValueRange : public FillValue, public testing::WithParamInterface<Range>
{
};

} // namespace

TEST_P(FillValueRange, HoldsAsManyAsItHasAndNotOneMore)
{
    const Range range = GetParam();
    QByteArray trace;
    model.TestProgram::env->trace = [&](QStringView text) { trace += text.toUtf8() + '\n'; };
    const auto add = [&](int i) {
        const NarrowText name = "N" + NarrowText::number(i).rightJustified(6, '0');
        if (range.pushKind == 0)
            ids.Normal(name);
        else
            ids.Push(name, range.pushKind);
    };
    for (int i = 0; i < range.count; ++i)
        add(i);
    ids.Push("Z", PUSH_VIDEO == range.pushKind ? PUSH_AUDIO : PUSH_VIDEO);
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(model.ids.FindName("N" + NarrowText::number(range.count - 1).rightJustified(6, '0'))->value, range.last);
    EXPECT_NE(model.ids.FindName("Z")->value, 0U);

    model.ids.FindName("Z")->value = 4711;
    model.ids.FindName("N000000")->value = 0;
    add(range.count);
    EXPECT_EQ(Run(), -2);
    EXPECT_TRUE(trace.contains(range.message)) << trace.right(100).constData();
    EXPECT_NE(model.ids.FindName("N000000")->value, 0U) << "what was numbered by then keeps its number";
    EXPECT_EQ(model.ids.FindName("Z")->value, 4711U) << "and what came behind isn't touched";
}

INSTANTIATE_TEST_SUITE_P(All, FillValueRange,
                         testing::Values(Range{0, 99999, 99999, "non-push ID cannot larger than99999\n"},
                                         Range{PUSH_AUDIO, 1000, 100999, "push audio ID cannot larger than100999\n"},
                                         Range{PUSH_VIDEO, 1000, 101999, "101999\n"},
                                         Range{PUSH_BINARY, 1000, 102999, "102999\n"},
                                         Range{PUSH_IMAGE, 1000, 103999, "103999\n"},
                                         Range{PUSH_STRING, 5000, 108999, "108999\n"},
                                         Range{6, 1000, 109999, "109999\n"}));
