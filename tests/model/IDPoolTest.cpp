// SPDX-License-Identifier: MIT
#include "Resources.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <random>

namespace
{

/// A simple model of the pool: a list that is searched from the front, where the sentinel is.
struct PlainPool : std::vector<IDRecord *>
{
    [[nodiscard]] IDRecord *Find(const NarrowText &name, std::optional<int> scope) const
    {
        for (IDRecord *record : *this) {
            if (record->name == name && (!scope || record->scope == *scope))
                return record;
        }
        return nullptr;
    }
    [[nodiscard]] bool IsTaken(const NarrowText &name, int scope) const
    {
        return Find(name, scope == -1 ? std::nullopt : std::optional(scope)) || Find(name, -1);
    }
};

void ExpectEqual(IDPool &pool, const PlainPool &plain)
{
    const IDRecord *record = &pool.sentinel;
    for (const IDRecord *expected : plain) {
        ASSERT_EQ(record, expected);
        EXPECT_EQ(record->next->prev, record);
        EXPECT_EQ(pool.FindName(record->name), plain.Find(record->name, {}));
        EXPECT_EQ(pool.Find(record->name, record->scope), plain.Find(record->name, record->scope));
        record = record->next;
    }
    EXPECT_EQ(record, &pool.sentinel);
}

} // namespace

TEST(IDPool, MatchesAPlainListOverThousandsOfRandomSteps)
{
    std::mt19937 random(1);
    const auto pick = [&](size_t count) { return size_t(random() % count); };
    for (unsigned names = 2; names <= 40; names += 2) {
        IDPool pool;
        PlainPool plain{{&pool.sentinel}};
        for (int step = 0; step < 400; ++step) {
            const NarrowText name = pick(20) == 0 ? NarrowText() : "ID_" + NarrowText::number(int(pick(names)));
            const auto scope = qint16(int(pick(4)) - 1);
            const size_t what = pick(10);
            IDRecord *const old = plain[pick(plain.size())];
            if (what < 5) {
                const bool taken = pool.unique && plain.IsTaken(name, scope);
                IDRecord *made = pool.Allocate(name, scope);
                ASSERT_EQ(made == nullptr, taken);
                if (made)
                    plain.push_back(made);
            } else if (what < 8 && old != &pool.sentinel) {
                const bool may = old->name == name || !plain.IsTaken(name, old->scope);
                const NarrowText expected = may ? name : old->name;
                ASSERT_EQ(old->Rename(pool, name), may);
                ASSERT_EQ(old->name, expected);
            } else if (old != &pool.sentinel) {
                old->AddRef();
                old->Release(); // one reference remains, so the record remains
                ASSERT_NO_FATAL_FAILURE(ExpectEqual(pool, plain));
                old->Release();
                std::erase(plain, old);
            }
            if (step % 100 == 0)
                pool.Reserve(pick(200));
            pool.unique = step % 50 != 0;
            ASSERT_NO_FATAL_FAILURE(ExpectEqual(pool, plain));
        }
        std::for_each(plain.begin() + 1, plain.end(), [](IDRecord *record) { record->Release(); });
        EXPECT_TRUE(pool.IsEmpty());
    }
}

TEST(IDPool, ARecordThatOutlivesItsPoolCanStillBeReleased)
{
    CFileRes res;
    {
        IDPool pool;
        res.SetId(pool.Allocate("ID_A", 0));
        res.Id()->Release();
    }
    EXPECT_EQ(res.Id()->name, "ID_A");
}
