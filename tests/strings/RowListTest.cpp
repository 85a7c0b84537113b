// SPDX-License-Identifier: MIT
#include "RowList.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

TEST(RowList, MatchesAVectorAcrossBlockBoundaries)
{
    std::mt19937 random(3);
    std::vector<CStringRes *> plain;
    RowList list;
    for (size_t step = 1; step <= 20000; ++step) {
        const size_t at = random() % (plain.size() + 1);
        if (random() % 5 < (step < 15000 ? 4 : 1) || plain.empty()) {
            auto *head = reinterpret_cast<CStringRes *>(step); // never dereferenced
            plain.insert(plain.begin() + ptrdiff_t(at), head);
            list.Insert(int(at), head);
        } else {
            list.Remove(int(at)); // does nothing at the end
            if (at < plain.size())
                plain.erase(plain.begin() + ptrdiff_t(at));
        }
        ASSERT_EQ(list.Count(), int(plain.size()));
    }
    const auto expectSame = [&] {
        for (size_t at = 0; at < plain.size(); ++at) {
            ASSERT_EQ(list.At(int(at)), plain[at]);
            ASSERT_EQ(list.Find(plain[at]), int(at));
        }
    };
    expectSame();
    CStringRes *const gone = plain.back();
    plain.pop_back();
    std::shuffle(plain.begin(), plain.end(), random);
    list.Assign(plain);
    expectSame();
    EXPECT_EQ(list.Find(gone), -1);
    EXPECT_EQ(list.At(-1), nullptr);
    EXPECT_EQ(list.At(list.Count()), nullptr);
    EXPECT_EQ(list.Find(nullptr), -1);
}
