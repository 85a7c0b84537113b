#include "TestCatalogue.h"

#include <rapidcheck.h>

#include <array>
#include <cstdio>

namespace
{

/// A value with an attribute of its own.
template <typename T> struct Stored : T
{
    template <typename... Arguments>
    explicit Stored(Arguments &&...arguments) : T(std::forward<Arguments>(arguments)...)
    {
        this->attr = &record;
    }
    QByteArray After(const QByteArray &text)
    {
        this->SetText(text);
        return this->GetText();
    }
    AttributeRecord record;
};

/// Texts that are nearly values: pieces of formats and numbers at the ends of the ranges.
rc::Gen<std::string> NearlyValues()
{
    const auto piece = rc::gen::weightedOneOf<std::string>(
        {{6, rc::gen::element<std::string>("(", ")", ",", ", ", " ", "RGB(", "#", "-", "+", ".", "s", "ms", "S", "\t",
                                           "x", "0x", "e")},
         {4, rc::gen::map(rc::gen::inRange(-300, 3000), [](int number) { return std::to_string(number); })},
         {2, rc::gen::element<std::string>("2147483647", "2147483648", "-2147483648", "-2147483649", "4294967296",
                                           "9223372036854775807", "9223372036854775808", "-99999999999999999999",
                                           "2147483", "2147484", "0", "00", "nan", "1e39", "FF", "8a")}});
    const auto loose = rc::gen::map(rc::gen::container<std::vector<std::string>>(piece), [](const auto &pieces) {
        std::string text;
        for (const std::string &one : pieces)
            text += one;
        return text;
    });
    // A whole value with one piece in the place of another reaches further.
    const auto whole = rc::gen::map(
        rc::gen::tuple(
            rc::gen::element<std::vector<std::string>>(
                std::vector<std::string>{"(", "1", ",", "2", ")"}, std::vector<std::string>{"(", "1", ", ", "2.5", ")"},
                std::vector<std::string>{"(", "1", ",", "2", ",", "3", ",", "4", ")"},
                std::vector<std::string>{"RGB(", "1", ",", "2", ",", "3", ")"},
                std::vector<std::string>{"#", "12", "8a", "FF", "07"}, std::vector<std::string>{"#", "1", "a", "-7"},
                std::vector<std::string>{"2", "", "s"}, std::vector<std::string>{"-", "17", ".", "25"}),
            rc::gen::arbitrary<size_t>(), piece, rc::gen::inRange(0, 3)),
        [](const auto &parts) {
            auto [pieces, place, other, replacements] = parts;
            for (int i = 0; i < replacements; ++i)
                pieces[(place >> (8 * i)) % pieces.size()] = other;
            std::string text;
            for (const std::string &one : pieces)
                text += one;
            return text;
        });
    return rc::gen::oneOf(loose, whole);
}

template <typename T> void AcceptsWhatItPrints(const std::string &name)
{
    EXPECT_TRUE(rc::check(name, [] {
        const QByteArray text = QByteArray::fromStdString(*NearlyValues());
        Stored<T> value;
        const bool valid = value.IsValid(text);
        value.SetText(text);
        const bool normalises = std::is_same_v<T, CZulColor>;
        RC_ASSERT(normalises || value.record.value == text);
        if (!valid || (std::is_same_v<T, CZulMsec> && text.contains('-')))
            RC_SUCCEED("not a text of the type, or a time before the beginning");
        QByteArray shown = value.GetText();
        if (std::is_same_v<T, CZulFPoint>)
            shown = '(' + shown + ')';
        RC_ASSERT(value.IsValid(shown) || shown.contains("nan") || shown.contains("inf"));
        Stored<T> second;
        second.SetText(shown);
        RC_ASSERT(second.GetText() == value.GetText());
        // What was stored reads back as the same value.
        Stored<T> third;
        third.SetText(QByteArray(value.record.value));
        RC_ASSERT(third.GetText() == value.GetText());
        RC_ASSERT(third.record.value == value.record.value);
    }));
}

} // namespace

TEST(ZulValues, WhatIsAcceptedParsesToWhatIsPrinted)
{
    AcceptsWhatItPrints<CZulBool>("bool");
    AcceptsWhatItPrints<CZulFloat>("float");
    AcceptsWhatItPrints<CZulS32>("s32");
    AcceptsWhatItPrints<CZulU32>("u32");
    AcceptsWhatItPrints<CZulMsec>("msec");
    AcceptsWhatItPrints<CZulColor>("color");
    AcceptsWhatItPrints<CZulPoint>("point");
    AcceptsWhatItPrints<CZulFPoint>("fpoint");
    AcceptsWhatItPrints<CZulSize>("size");
    AcceptsWhatItPrints<CZulRect>("rect");
    AcceptsWhatItPrints<CZulResId>("reference");
}

TEST(ZulValues, ValuesGoThroughTheirText)
{
    EXPECT_TRUE(rc::check([](qint32 a, qint32 b, qint32 c, qint32 d) {
        Stored<CZulRect> rect;
        rect.left = a;
        rect.top = b;
        rect.width = c;
        rect.height = d;
        Stored<CZulRect> rectAgain;
        rectAgain.SetText(rect.GetText());
        RC_ASSERT(std::tie(rectAgain.left, rectAgain.top, rectAgain.width, rectAgain.height) == std::tie(a, b, c, d));
        Stored<CZulMsec> time;
        time.value = quint32(a) & 0x7FFFFFFF;
        Stored<CZulMsec> timeAgain;
        timeAgain.SetText(time.GetText());
        RC_ASSERT(timeAgain.value == time.value);
        Stored<CZulFloat> number;
        number.value = float(a) / 64;
        Stored<CZulFloat> numberAgain;
        numberAgain.SetText(number.GetText());
        RC_ASSERT(numberAgain.value == number.value);
    }));
}

/// The scans are those of the C library, where that says what they do.
TEST(ZulValues, ScansAsScanfDoes)
{
    EXPECT_TRUE(rc::check([] {
        const std::string text = *NearlyValues();
        const QByteArray bytes = QByteArray::fromStdString(text);

        std::array<qint32, 4> numbers{7, 7, 7, 7};
        std::sscanf(text.c_str(), "(%d,%d,%d,%d)", &numbers[0], &numbers[1], &numbers[2], &numbers[3]);
        Stored<CZulRect> rect;
        rect.left = rect.top = rect.width = rect.height = 7;
        rect.SetText(bytes);
        RC_ASSERT((std::array{rect.left, rect.top, rect.width, rect.height}) == numbers);

        std::array<long long, 2> wide{};
        char rest[512];
        const auto fits = [](long long number) { return number == qint32(number); };
        const int found = std::sscanf(text.c_str(), "(%lld,%lld%511[^)])", &wide[0], &wide[1], rest);
        RC_ASSERT(CZulPoint().IsValid(bytes) == (found == 2 && fits(wide[0]) && fits(wide[1])));

        qint32 time = 7;
        rest[0] = 0;
        const int timeFields = std::sscanf(text.c_str(), "%d%511s", &time, rest);
        Stored<CZulMsec> msec;
        msec.value = 7;
        msec.SetText(bytes);
        const bool seconds = timeFields == 2 && (QByteArrayView(rest) == "s" || QByteArrayView(rest) == "S");
        RC_ASSERT(msec.value == quint32(time) * (seconds ? 1000 : 1));

        std::array<unsigned, 4> hex{};
        int fields = std::sscanf(text.c_str(), "#%02x%02x%02x%02x", &hex[0], &hex[1], &hex[2], &hex[3]);
        const bool isHex = fields >= 3;
        if (!isHex) {
            fields = std::sscanf(text.c_str(), "RGB(%d, %d, %d)", &numbers[0], &numbers[1], &numbers[2]);
            std::copy_n(numbers.begin(), 3, hex.begin());
        }
        Stored<CZulColor> color;
        color.SetText(bytes);
        RC_ASSERT(color.record.value.isEmpty() == (fields < 3));
        if (fields == 3)
            RC_ASSERT((std::array{color.alpha, color.red, color.green, color.blue}) ==
                      (std::array{quint8(0), quint8(hex[0]), quint8(hex[1]), quint8(hex[2])}));
        if (fields == 4)
            RC_ASSERT((std::array{color.alpha, color.red, color.green, color.blue}) ==
                      (std::array{quint8(hex[0]), quint8(hex[1]), quint8(hex[2]), quint8(hex[3])}));
    }));
}

TEST(ZulValues, NumbersHaveTheirOwnRules)
{
    for (const char *valid : {"0", "+5", "-2147483648", "0000000000000000000000002147483647"})
        EXPECT_TRUE(CZulS32().IsValid(valid)) << valid;
    for (const char *wrong : {"", "+", "5 ", " 5", "2147483648", "99999999999999999999", "1e3", "0x1"})
        EXPECT_FALSE(CZulS32().IsValid(wrong)) << wrong;
    EXPECT_TRUE(CZulU32().IsValid("2147483647"));
    for (const char *wrong : {"", "2147483648", "-1", "+1", "99999999999999999999"})
        EXPECT_FALSE(CZulU32().IsValid(wrong)) << wrong;
    EXPECT_EQ(Stored<CZulU32>().After("4294967297x"), "1");
    EXPECT_EQ(Stored<CZulU32>().After("-1"), "4294967295");

    for (const char *valid : {"5.", "+0.5", "-12", "0"})
        EXPECT_TRUE(CZulFloat().IsValid(valid)) << valid;
    for (const char *wrong : {"", ".5", "-.5", "1e3", "+", "1.2.3", "--1", "1,5"})
        EXPECT_FALSE(CZulFloat().IsValid(wrong)) << wrong;
    EXPECT_EQ(Stored<CZulFloat>().After("1.50"), "1.5");
    EXPECT_EQ(Stored<CZulFloat>().After("100"), "100");
    EXPECT_EQ(Stored<CZulFloat>().After("1e39"), "inf");
    EXPECT_EQ(Stored<CZulFloat>().After("0.0000001"), "0");

    EXPECT_EQ(Stored<CZulBool>().After("ZUL_TRUE"), "true");
    EXPECT_EQ(Stored<CZulBool>().After("yes"), "false");
    EXPECT_FALSE(CZulBool().IsValid("True"));
}

TEST(ZulValues, TimesHaveUnits)
{
    const std::pair<const char *, const char *> times[] = {{"2s", "2s"},       {"2000ms", "2s"}, {"2 S", "2s"},
                                                           {"2500", "2500ms"}, {"0", "0ms"},     {"999 mS", "999ms"},
                                                           {"abc", "0ms"},     {"", "0ms"}};
    for (const auto &[text, shown] : times) {
        EXPECT_TRUE(CZulMsec().IsValid(text)) << text;
        EXPECT_EQ(Stored<CZulMsec>().After(text), shown);
    }
    EXPECT_TRUE(CZulMsec().IsValid("2147483s"));
    for (const char *wrong : {"2m", "2147484s", "2147483648", "2sec", "1.5s"})
        EXPECT_FALSE(CZulMsec().IsValid(wrong)) << wrong;
    Stored<CZulMsec> kept;
    EXPECT_EQ(kept.After("7ms"), "7ms");
    EXPECT_EQ(kept.After("later"), "7ms");
    EXPECT_EQ(kept.record.value, "later");
}

TEST(ZulValues, ColorsAreStoredInOneForm)
{
    const std::array<const char *, 3> colors[] = {{"#12345", "#123405", "RGB(18, 52, 5)"},
                                                  {"#80ff8040", "#80FF8040", "RGB(255, 128, 64)"},
                                                  {"RGB(1,2,3)", "#010203", "RGB(1, 2, 3)"},
                                                  {"RGB( 1, 2, 3", "#010203", "RGB(1, 2, 3)"}};
    for (const auto &[text, stored, shown] : colors) {
        Stored<CZulColor> color;
        EXPECT_TRUE(color.IsValid(text)) << text;
        EXPECT_EQ(color.After(text), shown);
        EXPECT_EQ(color.record.value, stored);
        EXPECT_EQ(color.alpha, stored[7] ? 0x80 : 0);
    }
    Stored<CZulColor> color;
    for (const char *wrong : {"#1234", "RGB(1,2)", "rgb(1,2,3)", "#GG0000", ""}) {
        EXPECT_FALSE(color.IsValid(wrong)) << wrong;
        EXPECT_EQ(color.After(wrong), "RGB(0, 0, 0)");
        EXPECT_EQ(color.record.value, "");
        EXPECT_EQ(color.alpha, 255);
    }
    for (const char *wrong : {"RGB(256,0,0)", "RGB(-1,0,0)", "RGB(1,2,3 4)"})
        EXPECT_FALSE(color.IsValid(wrong)) << wrong;
}

TEST(ZulValues, PairsAndRectanglesMayLackTheirEnd)
{
    for (const char *valid : {"(1,2)", "(1,2", "( 1, 2)", "(1,2)behind", "(-2147483648,2147483647)"}) {
        EXPECT_TRUE(CZulPoint().IsValid(valid)) << valid;
        EXPECT_TRUE(CZulSize().IsValid(valid)) << valid;
    }
    for (const char *wrong : {"(1,2 3)", "1,2", " (1,2)", "(1 ,2)", "(1)", "(2147483648,0)", "(1,2 )", ""})
        EXPECT_FALSE(CZulPoint().IsValid(wrong)) << wrong;
    EXPECT_EQ(Stored<CZulPoint>().After("(1,2"), "(1, 2)");
    Stored<CZulPoint> point;
    point.SetText("(1,2)");
    EXPECT_EQ(point.After("(9,x)"), "(9, 2)");
    EXPECT_EQ(point.record.value, "(9,x)");
    EXPECT_TRUE(CZulRect().IsValid("(1, 2, 3, 4"));
    EXPECT_FALSE(CZulRect().IsValid("(1,2,3)"));
    EXPECT_FALSE(CZulRect().IsValid("(1,2,3,4,5)"));
    EXPECT_EQ(Stored<CZulFPoint>().After("(0.5, 1)"), "0.5,1");
    EXPECT_EQ(Stored<CZulFPoint>().After("0.5,1"), "0,0");
    EXPECT_TRUE(CZulFPoint().IsValid("(.5,1e2"));
    EXPECT_FALSE(CZulFPoint().IsValid("(0.5,1 2)"));
    EXPECT_FALSE(CZulFPoint().IsValid("(0.5;1)"));
}
