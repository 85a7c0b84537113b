#include "IDPool.h"

#include "Resources.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <random>
#include <vector>

namespace
{

/// What a pool has to do, in the plainest way: a list that is searched from its front.
struct PlainPool
{
    struct Record
    {
        NarrowText name;
        int scope;
        IDRecord *real;
    };
    std::vector<Record> records{{{}, -16, nullptr}}; // the sentinel counts

    [[nodiscard]] std::optional<Record> Find(const NarrowText &name, std::optional<int> scope) const
    {
        for (const Record &record : records) {
            if (record.name == name && (!scope || record.scope == *scope))
                return record;
        }
        return std::nullopt;
    }
    [[nodiscard]] bool IsTaken(const NarrowText &name, int scope) const
    {
        return (scope == -1 && Find(name, {})) || Find(name, scope) || Find(name, -1);
    }
};

void ExpectEqual(IDPool &pool, const PlainPool &plain)
{
    const IDRecord *record = &pool.sentinel;
    for (size_t i = 1; i < plain.records.size(); ++i) {
        EXPECT_EQ(record->next->prev, record);
        record = record->next;
        ASSERT_EQ(record, plain.records[i].real) << "at place " << i;
        EXPECT_EQ(record->name, plain.records[i].name);
        const auto first = plain.Find(record->name, {});
        EXPECT_EQ(pool.FindName(record->name), first->real ? first->real : &pool.sentinel);
        EXPECT_EQ(pool.Find(record->name, record->scope), plain.Find(record->name, record->scope)->real);
    }
    EXPECT_EQ(record->next, &pool.sentinel);
    EXPECT_EQ(pool.sentinel.prev, record);
}

} // namespace

TEST(IDPool, DoesWhatAPlainListDoesThroughThousandsOfSteps)
{
    for (unsigned seed = 1; seed <= 20; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        const auto pick = [&](size_t count) { return size_t(random() % count); };
        IDPool pool;
        PlainPool plain;
        for (int step = 0; step < 400; ++step) {
            const NarrowText name = pick(20) == 0 ? NarrowText() : "ID_" + NarrowText::number(int(pick(12)));
            const auto scope = qint16(int(pick(4)) - 1);
            const size_t what = pick(10);
            if (what < 5) {
                const bool taken = pool.unique && plain.IsTaken(name, scope);
                IDRecord *made = pool.Allocate(name, scope);
                ASSERT_EQ(made == nullptr, taken);
                if (made)
                    plain.records.push_back({name, scope, made});
            } else if (what < 8 && plain.records.size() > 1) {
                auto &victim = plain.records[1 + pick(plain.records.size() - 1)];
                const bool may = victim.name == name || !plain.IsTaken(name, victim.scope);
                ASSERT_EQ(victim.real->Rename(pool, name), may);
                if (may)
                    victim.name = name;
            } else if (plain.records.size() > 1) {
                const auto at = plain.records.begin() + ptrdiff_t(1 + pick(plain.records.size() - 1));
                at->real->AddRef();
                at->real->Release(); // one holder is left: it stays
                at->real->Release();
                plain.records.erase(at);
            }
            pool.unique = step % 50 != 0;
            ASSERT_NO_FATAL_FAILURE(ExpectEqual(pool, plain));
        }
        for (size_t i = 1; i < plain.records.size(); ++i)
            plain.records[i].real->Release();
        EXPECT_TRUE(pool.IsEmpty());
    }
}

TEST(IDPool, ANameMayStandOncePerResolutionOrOnceForAll)
{
    IDPool pool;
    IDRecord *first = pool.Allocate("ID_A", 0);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->refs, 1);
    EXPECT_EQ(first->value, 0U);
    EXPECT_FALSE(first->push);
    IDRecord *second = pool.Allocate("ID_A", 1);
    EXPECT_NE(second, nullptr);
    EXPECT_EQ(pool.Allocate("ID_A", 1), nullptr);
    EXPECT_EQ(pool.Allocate("ID_A", ANY_RESOLUTION), nullptr);
    IDRecord *everywhere = pool.Allocate("ID_B", ANY_RESOLUTION);
    EXPECT_EQ(pool.Allocate("ID_B", 0), nullptr);
    EXPECT_FALSE(everywhere->Rename(pool, "ID_A"));
    EXPECT_FALSE(second->Rename(pool, "ID_B"));
    EXPECT_TRUE(pool.HasSeveral("ID_A"));
    EXPECT_FALSE(pool.HasSeveral("ID_B"));
    for (IDRecord *record : {first, second, everywhere})
        record->Release();
}

TEST(IDPool, TheSentinelTakesTheEmptyNameForAllResolutionsOnly)
{
    IDPool pool;
    EXPECT_EQ(pool.FindName(""), &pool.sentinel);
    EXPECT_EQ(pool.Allocate("", ANY_RESOLUTION), nullptr);
    IDRecord *nameless = pool.Allocate("", 0);
    ASSERT_NE(nameless, nullptr);
    EXPECT_EQ(pool.Find("", 0), nameless);
    EXPECT_EQ(pool.Find("", -16), &pool.sentinel);
    nameless->Release();
}

TEST(IDPool, ARecordThatOutlivesItsPoolCanStillBeReleased)
{
    CFileRes res;
    {
        IDPool pool;
        IDRecord *record = pool.Allocate("ID_A", 0);
        res.SetId(record);
        record->Release();
    }
    EXPECT_EQ(res.Id()->name, "ID_A");
}
