// SPDX-License-Identifier: MIT
#include "NameOrder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>

using namespace Qt::StringLiterals;

namespace
{

/// Returns a short text of various characters, so that texts are often equal, equal except for case, or prefixes.
QString SomeText(std::mt19937 &random)
{
    static const QString CHARACTERS =
        u"aAbB_-. 01279\u00e4\u00df\u0131\u0301\u0634\u4e2d\uff11"_s + QChar(0xD800) + QChar(0xDC00) + QChar(0);
    QString text;
    for (size_t left = random() % 6; left > 0; --left)
        text += CHARACTERS[qsizetype(random() % size_t(CHARACTERS.size()))];
    return text;
}

} // namespace

TEST(NameOrder, IsNaturalInEveryLocale)
{
    const NameOrder order;
    const std::vector<QString> names{u""_s,      u"_x"_s,        u"2"_s,     u"10"_s,   u"Bar"_s,
                                     u"bar2"_s,  u"b\u00e4r2"_s, u"BAR10"_s, u"str2"_s, u"STR0010"_s,
                                     u"STR10"_s, u"str10"_s,     u"\u4e2d"_s};
    for (size_t a = 0; a < names.size(); ++a) {
        for (size_t b = 0; b < names.size(); ++b) {
            const int result = order.Compare(names[a], names[b]);
            EXPECT_EQ((result > 0) - (result < 0), (a > b) - (a < b))
                << qPrintable(names[a]) << " and " << qPrintable(names[b]);
        }
    }
}

TEST(NameOrder, SortsAsItCompares)
{
    const NameOrder order;
    std::mt19937 random(5);
    std::vector<QString> texts;
    for (int n = 0; n < 2000; ++n)
        texts.push_back(SomeText(random));
    texts[7] = QString(100000, u'x'); // its sort key exceeds the prepared buffer
    for (const int direction : {1, -1}) {
        std::vector<int> plain(texts.size());
        std::iota(plain.begin(), plain.end(), 0);
        std::stable_sort(plain.begin(), plain.end(), [&](int a, int b) {
            return order.Compare(texts[size_t(a)], texts[size_t(b)]) * direction < 0;
        });
        EXPECT_EQ(order.Sorted(
                      int(texts.size()), [&](int n) { return texts[size_t(n)]; }, direction),
                  plain);
    }
}
