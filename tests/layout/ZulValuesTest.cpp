// SPDX-License-Identifier: MIT
#include "TestCatalogue.h"

#include <rapidcheck.h>

#include <array>
#include <cstdio>
#include <numeric>

namespace
{

/// A value of a type, with its own attribute.
struct Value
{
    explicit Value(const NarrowText &type, const NarrowText &text = {})
        : object(CreateType(catalogue, {}, type)), base(static_cast<CZulBase &>(*object))
    {
        base.attr = &record;
        base.SetText(text);
    }
    NarrowText After(const NarrowText &text)
    {
        base.SetText(text);
        return base.GetText();
    }

    ClassCatalogue catalogue;
    std::unique_ptr<CZulType> object;
    CZulBase &base;
    AttributeRecord record;
};

bool IsValid(const NarrowText &type, const NarrowText &text)
{
    return Value(type).base.IsValid(text);
}

/// Returns texts that are almost values: parts of formats, and numbers at the limits of the ranges.
rc::Gen<QByteArray> NearlyValues()
{
    using Texts = std::vector<std::string>;
    const auto piece = rc::gen::weightedOneOf<std::string>(
        {{6, rc::gen::element<std::string>("(", ")", ",", ", ", " ", "RGB(", "#", "-", "+", ".", "s", "ms", "S", "\t",
                                           "x", "0x", "e")},
         {4, rc::gen::map(rc::gen::inRange(-300, 3000), [](int number) { return std::to_string(number); })},
         {2, rc::gen::element<std::string>("2147483647", "2147483648", "-2147483648", "-2147483649", "4294967296",
                                           "9223372036854775807", "9223372036854775808", "-99999999999999999999",
                                           "2147483", "2147484", "0", "00", "nan", "1e39", "FF", "8a")}});
    // A complete value with one part replaced gets further in the parser than random parts.
    const auto whole = rc::gen::apply(
        [](Texts pieces, size_t place, const std::string &other, int replacements) {
            for (int i = 0; i < replacements; ++i)
                pieces[(place >> (8 * i)) % pieces.size()] = other;
            return pieces;
        },
        rc::gen::element(Texts{"(", "1", ",", "2", ")"}, Texts{"(", "1", ", ", "2.5", ")"},
                         Texts{"(", "1", ",", "2", ",", "3", ",", "4", ")"},
                         Texts{"RGB(", "1", ",", "2", ",", "3", ")"}, Texts{"#", "12", "8a", "FF", "07"},
                         Texts{"#", "1", "a", "-7"}, Texts{"2", "", "s"}, Texts{"-", "17", ".", "25"}),
        rc::gen::arbitrary<size_t>(), piece, rc::gen::inRange(0, 3));
    return rc::gen::map(rc::gen::oneOf(rc::gen::container<Texts>(piece), whole), [](const Texts &pieces) {
        return QByteArray::fromStdString(std::accumulate(pieces.begin(), pieces.end(), std::string()));
    });
}

} // namespace

TEST(ZulValues, AcceptedTextsParseToThePrintedValue)
{
    for (const NarrowText type : {"ZulBool", "ZulFloat", "ZulS32", "ZulU32", "ZulMsec", "ZulColor", "ZulPoint",
                                  "ZulFPoint", "ZulSize", "ZulRect", "ZulResId"}) {
        EXPECT_TRUE(rc::check(type.toStdString(), [&type] {
            const QByteArray text = *NearlyValues();
            Value value(type, text);
            RC_ASSERT(type == "ZulColor" || value.record.value == text);
            if (!value.base.IsValid(text) || (type == "ZulMsec" && text.contains('-')))
                RC_SUCCEED("not a text of the type, or a time before the beginning");
            NarrowText shown = value.base.GetText();
            if (type == "ZulFPoint")
                shown = '(' + shown + ')';
            RC_ASSERT(value.base.IsValid(shown) || shown.contains("nan") || shown.contains("inf"));
            RC_ASSERT(Value(type).After(shown) == value.base.GetText());
            // The stored text reads back as the same value.
            const Value second(type, value.record.value);
            RC_ASSERT(second.base.GetText() == value.base.GetText());
            RC_ASSERT(second.record.value == value.record.value);
        })) << type.constData();
    }
}

/// The results are those of scanf of the C library, where its standard defines them.
TEST(ZulValues, ParsesLikeScanf)
{
    EXPECT_TRUE(rc::check([] {
        const QByteArray text = *NearlyValues();

        std::array<int, 4> n{7, 7, 7, 7};
        std::sscanf(text.constData(), "(%d,%d,%d,%d)", &n[0], &n[1], &n[2], &n[3]);
        RC_ASSERT(Value("ZulRect", "(7,7,7,7)").After(text) ==
                  QString::asprintf("(%d, %d, %d, %d)", n[0], n[1], n[2], n[3]).toLatin1());

        std::array<long long, 2> wide{};
        char rest[512] = "";
        const auto fits = [](long long number) { return number == qint32(number); };
        const int found = std::sscanf(text.constData(), "(%lld,%lld%511[^)])", &wide[0], &wide[1], rest);
        RC_ASSERT(IsValid("ZulPoint", text) == (found == 2 && fits(wide[0]) && fits(wide[1])));

        int time = 7;
        const bool hasUnit = std::sscanf(text.constData(), "%d%511s", &time, rest) == 2;
        const bool isSeconds = hasUnit && (QByteArrayView(rest) == "s" || QByteArrayView(rest) == "S");
        RC_ASSERT(Value("ZulMsec", "7").After(text) ==
                  Value("ZulMsec").After(QByteArray::number(quint32(time) * (isSeconds ? 1000 : 1))));

        int fields = std::sscanf(text.constData(), "#%02x%02x%02x%02x", reinterpret_cast<unsigned *>(&n[0]),
                                 reinterpret_cast<unsigned *>(&n[1]), reinterpret_cast<unsigned *>(&n[2]),
                                 reinterpret_cast<unsigned *>(&n[3]));
        if (fields < 3)
            fields = std::sscanf(text.constData(), "RGB(%d, %d, %d)", &n[0], &n[1], &n[2]);
        QByteArray stored;
        for (int i = 0; fields >= 3 && i < fields; ++i)
            stored += QByteArray(1, char(n[size_t(i)])).toHex().toUpper();
        RC_ASSERT(Value("ZulColor", text).record.value == (fields < 3 ? "" : '#' + stored));
    }));
}

TEST(ZulValues, ChecksTextsByTheRulesOfTheirType)
{
    const struct
    {
        NarrowText type;
        std::vector<NarrowText> valid, wrong;
    } types[] = {
        {"ZulBool", {"ZUL_TRUE", "ZulFalse"}, {"True", ""}},
        {"ZulS32",
         {"0", "+5", "-2147483648", "0000000000000000000000002147483647"},
         {"", "+", "5 ", " 5", "2147483648", "99999999999999999999", "1e3", "0x1"}},
        {"ZulU32", {"2147483647"}, {"", "2147483648", "-1", "+1", "99999999999999999999"}},
        {"ZulFloat", {"5.", "+0.5", "-12", "0"}, {"", ".5", "-.5", "1e3", "+", "1.2.3", "--1", "1,5"}},
        {"ZulMsec",
         {"2s", "2000ms", "2 S", "999 mS", "abc", "", "2147483s"},
         {"2m", "2147484s", "2147483648", "2sec", "1.5s"}},
        {"ZulColor",
         {"#12345", "#80ff8040", "RGB(1,2,3)", "RGB( 1, 2, 3"},
         {"#1234", "RGB(1,2)", "rgb(1,2,3)", "#GG0000", "", "RGB(256,0,0)", "RGB(-1,0,0)", "RGB(1,2,3 4)"}},
        {"ZulPoint",
         {"(1,2)", "(1,2", "( 1, 2)", "(1,2)behind", "(-2147483648,2147483647)"},
         {"(1,2 3)", "1,2", " (1,2)", "(1 ,2)", "(1)", "(2147483648,0)", "(1,2 )", ""}},
        {"ZulSize", {"(1,2)", "(1,2"}, {"(1)", "(1,2,3)"}},
        {"ZulRect", {"(1, 2, 3, 4"}, {"(1,2,3)", "(1,2,3,4,5)"}},
        {"ZulFPoint", {"(.5,1e2"}, {"(0.5,1 2)", "(0.5;1)"}},
    };
    for (const auto &[type, valid, wrong] : types) {
        for (const NarrowText &text : valid)
            EXPECT_TRUE(IsValid(type, text)) << type.constData() << ' ' << text.constData();
        for (const NarrowText &text : wrong)
            EXPECT_FALSE(IsValid(type, text)) << type.constData() << ' ' << text.constData();
    }
}

TEST(ZulValues, StoresAndShowsAnyTextAsItsValue)
{
    const struct
    {
        const char *type, *text, *shown;
        const char *stored = nullptr; ///< if it isn't the text
    } values[] = {
        {"ZulBool", "ZUL_TRUE", "true"},
        {"ZulBool", "yes", "false"},
        {"ZulU32", "4294967297x", "1"},
        {"ZulU32", "-1", "4294967295"},
        {"ZulFloat", "1.50", "1.5"},
        {"ZulFloat", "100", "100"},
        {"ZulFloat", "-0.015625", "-0.015625"},
        {"ZulFloat", "1e39", "inf"},
        {"ZulFloat", "0.0000001", "0"},
        {"ZulMsec", "2s", "2s"},
        {"ZulMsec", "2000ms", "2s"},
        {"ZulMsec", "2 S", "2s"},
        {"ZulMsec", "2500", "2500ms"},
        {"ZulMsec", "999 mS", "999ms"},
        {"ZulMsec", "abc", "0ms"},
        {"ZulPoint", "(1,2", "(1, 2)"},
        {"ZulFPoint", "(0.5, 1)", "0.5,1"},
        {"ZulFPoint", "0.5,1", "0,0"},
        {"ZulColor", "#12345", "RGB(18, 52, 5)", "#123405"},
        {"ZulColor", "#80ff8040", "RGB(255, 128, 64)", "#80FF8040"},
        {"ZulColor", "RGB( 1, 2, 3", "RGB(1, 2, 3)", "#010203"},
        {"ZulColor", "#1234", "RGB(0, 0, 0)", ""},
        {"ZulColor", "RGB(1,x,3)", "RGB(0, 0, 0)", ""},
        {"ZulColor", "rgb(1,2,3)", "RGB(0, 0, 0)", ""},
    };
    for (const auto &[type, text, shown, stored] : values) {
        EXPECT_EQ(Value(type).After(text), shown) << type << ' ' << text;
        EXPECT_EQ(Value(type, text).record.value, stored ? stored : text) << type << ' ' << text;
    }
    for (const auto &[text, alpha] : {std::pair("#12345", 0), {"#80ff8040", 0x80}, {"RGB(1,2,3)", 0}, {"#1234", 255}})
        EXPECT_EQ(static_cast<const CZulColor &>(Value("ZulColor", text).base).alpha, alpha) << text;
    // Members after the error keep their values.
    EXPECT_EQ(Value("ZulMsec", "7ms").After("later"), "7ms");
    EXPECT_EQ(Value("ZulPoint", "(1,2)").After("(9,x)"), "(9, 2)");
}
