// SPDX-License-Identifier: MIT
#include "LayoutFrames.h"

#include "CLayoutRes.h"
#include "TestCatalogue.h"

#include <rapidcheck.h>

namespace
{

const char DEFINITIONS[] =
    "<structure name='Group'><member name='left' type='ZulS32'/></structure>"
    "<class name='Base'><member name='pos' type='ZulPoint'/><member name='size' type='ZulSize'/>"
    "<member name='anchor' type='ZulFPoint'/><member name='bgColor' type='ZulColor'/></class>"
    "<class name='Panel' base='Base'><member name='borderColor' type='ZulColor'/></class>"
    "<class name='Painted' base='Base'><member name='pos' type='ZulPoint'/><member name='bgColor' "
    "type='ZulColor'/></class>"
    "<class name='Sizeless' base='Base'><member name='pos' type='ZulPoint'/><member name='anchor' "
    "type='ZulFPoint'/></class>"
    "<class name='Other'><member name='pos' type='ZulPoint'/><member name='size' type='ZulSize'/>"
    "<member name='anchor' type='Group'/><member name='bgColor' type='ZulS32'/></class>";

constexpr qint32 MAX = std::numeric_limits<qint32>::max();
constexpr qint32 MIN = std::numeric_limits<qint32>::min();

struct World
{
    World()
    {
        IDRecord *record = pool.Allocate("ID_A", 1);
        layout = CLayoutRes::CreateEmpty(record, std::make_shared<LayoutFileObject>(catalogue.env, pool, 0), catalogue);
        record->Release();
    }

    TestCatalogue catalogue{DEFINITIONS};
    IDPool pool;
    std::unique_ptr<CLayoutRes> layout;
};

NarrowText Pair(qint64 x, qint64 y)
{
    return '(' + QByteArray::number(x) + ',' + QByteArray::number(y) + ')';
}

std::unique_ptr<ComponentObject> RandomComponent(int depth)
{
    const auto number = [] {
        const qint64 near = *rc::gen::inRange(-40, 90);
        return *rc::gen::weightedElement<qint64>({{12, near}, {1, MAX}, {1, MIN}});
    };
    const auto className = *rc::gen::element<std::string>("Panel", "Panel", "Painted", "Sizeless", "Other", "Unknown");
    auto component = Component(QByteArray::fromStdString(className));
    if (*rc::gen::inRange(0, 4) > 0) {
        component->attributes = {{"pos", Pair(number(), number())}, {"size", Pair(number(), number())}};
        const auto anchor = *rc::gen::element<std::string>("(0,0)", "(.5,1)", "(2,-1)");
        component->AddAttribute("anchor", QByteArray::fromStdString(anchor));
    }
    for (int i = depth < 5 ? *rc::gen::inRange(0, 4) : 0; i > 0; --i)
        component->children.push_back(RandomComponent(depth + 1));
    return component;
}

void CheckEntries(const PreviewEntries &entries)
{
    for (const PreviewEntry &entry : entries) {
        PreviewRect rect;
        quint32 background = 0;
        quint32 border = 0;
        RC_ASSERT(GetComponentFrame(entry.component, &rect, &background, &border));
        RC_ASSERT(rect == entry.rect && background == entry.background && border == entry.border);
    }
    const qint32 x = *rc::gen::inRange(-50, 100);
    const qint32 y = *rc::gen::inRange(-50, 100);
    std::vector<const PreviewEntry *> hits; // topmost first
    for (const PreviewEntry &entry : entries) {
        const PreviewRect &r = entry.rect;
        if (r.left <= x && x < r.right && r.top <= y && y < r.bottom)
            hits.insert(hits.begin(), &entry);
    }
    RC_ASSERT(EntryAt(entries, x, y) == (hits.empty() ? nullptr : hits.front()));
    for (size_t i = 0; i < hits.size(); ++i)
        RC_ASSERT(NextEntryAt(entries, x, y, hits[i]->component) == hits[(i + 1) % hits.size()]);
    RC_ASSERT(NextEntryAt(entries, x, y, nullptr) == EntryAt(entries, x, y));
}

} // namespace

TEST(LayoutFrames, ComeFromTheNearestClassThatHasTheProperties)
{
    constexpr quint32 NONE = FRAME_NO_PROPERTY;
    constexpr quint32 UNSET = FRAME_NO_VALUE;
    const struct
    {
        const char *className, *pos, *size, *anchor, *color;
        PreviewRect rect; // for a parent whose corner is at (1000, 2000)
        quint32 background, border;
    } rows[] = {
        {"Panel", "(10,20)", "(100,50)", "(0.5,0.5)", "#010203", {960, 1995, 1060, 2045}, 0x030201, UNSET},
        {"Panel", "(10,20)", "(100,50)", "(2,-1)", "", {910, 2020, 1010, 2070}, 0, UNSET},
        {"Panel", "(0,0)", "(10,10)", "(0.7,nan)", "#80010203", {993, 2000, 1003, 2010}, 0x030201, UNSET},
        {"Panel", "(0,0)", "(-5,-5)", "(0.5,0.5)", nullptr, {1002, 2002, 997, 1997}, UNSET, UNSET},
        {"Panel",
         "(2147483647,-2147483648)",
         "(2147483647,2147483647)",
         "(1,1)",
         nullptr,
         {1000, MIN, MAX, MIN + 2000},
         UNSET,
         UNSET},
        // The class has a position without an anchor beside it, so the position of the base is used, which isn't set.
        {"Painted", "(10,20)", "(100,50)", "(0,0)", "#010203", {1000, 2000, 1100, 2050}, 0x030201, 7},
        {"Sizeless", "(10,20)", "(100,50)", "(0,0)", nullptr, {1000, 2000, 1000, 2000}, UNSET, 7},
        {"Other", "(10,20)", "(100,50)", nullptr, "3", {1000, 2000, 1000, 2000}, NONE, 7},
        {"Unknown", "(10,20)", "(100,50)", "(0,0)", "#010203", {1000, 2000, 1000, 2000}, NONE, 7},
    };
    for (const auto &row : rows) {
        World world;
        auto component = Component(row.className, {{"pos", row.pos}, {"size", row.size}});
        if (row.anchor)
            component->AddAttribute("anchor", row.anchor);
        if (row.color)
            component->AddAttribute("bgColor", row.color);
        auto outer = Component("Panel", {{"pos", "(1000,2000)"}, {"size", "(9,9)"}}, std::move(component));
        const CZulClass *object = world.layout->AddComponent(world.catalogue.env, std::move(outer));
        object = object->subComponents.front().get();
        PreviewRect rect;
        quint32 background = 1;
        quint32 border = 7;
        EXPECT_TRUE(GetComponentFrame(object, &rect, &background, &border));
        const std::string name = std::string(row.className) + row.pos + row.size;
        EXPECT_EQ(rect, row.rect) << name << rect.left << ' ' << rect.top << ' ' << rect.right << ' ' << rect.bottom;
        EXPECT_EQ(background, row.background) << name;
        EXPECT_EQ(border, row.border) << name;
        EXPECT_FALSE(GetComponentFrame(object, nullptr, nullptr, nullptr));
        EXPECT_FALSE(GetComponentFrame(nullptr, &rect, nullptr, nullptr));
    }
}

TEST(LayoutFrames, MatchASeparateComputationAfterAnyChange)
{
    EXPECT_TRUE(rc::check([] {
        World world;
        for (int i = *rc::gen::inRange(0, 4); i > 0; --i)
            world.layout->AddComponent(world.catalogue.env, RandomComponent(0));
        PreviewEntries entries = EntriesOf(*world.layout);
        CheckEntries(entries);
        for (int i = entries.empty() ? 0 : 3; i > 0; --i) {
            const PreviewEntry &entry = entries[*rc::gen::inRange<size_t>(0, entries.size())];
            if (auto *pos = dynamic_cast<CZulPoint *>(entry.component->FindMember("pos")))
                pos->SetText(Pair(*rc::gen::inRange(-40, 90), i));
            const auto isOne = *rc::gen::arbitrary<bool>();
            if (isOne)
                Refresh(entries, *entry.component);
            else
                Refresh(entries);
            CheckEntries(entries);
        }
        const PreviewEntry *const memory = entries.data();
        entries = EntriesOf(*world.layout, std::move(entries));
        RC_ASSERT(entries.data() == memory);
        CheckEntries(entries);
    }));
}

TEST(LayoutFrames, KeepTheirPlaceInParentsOutOfRange)
{
    World world;
    auto chain = Component("Panel", {{"pos", "(5,6)"}, {"size", "(1,1)"}});
    for (int i = 0; i < 500; ++i) {
        const NarrowText corner = i % 2 == 0 ? Pair(MIN, MAX) : Pair(MAX, MIN); // each pair of them moves by (-1, -1)
        chain = Component("Panel", {{"pos", corner}, {"size", "(1,1)"}}, std::move(chain));
    }
    world.layout->AddComponent(world.catalogue.env, std::move(chain));
    const PreviewEntries entries = EntriesOf(*world.layout);
    ASSERT_EQ(entries.size(), 501U);
    EXPECT_EQ(entries[0].rect, (PreviewRect{MAX, MIN, MAX, MIN + 1}));
    EXPECT_EQ(entries.back().rect, (PreviewRect{-245, -244, -244, -243}));
    EXPECT_EQ(EntryAt(entries, -245, -244), &entries.back());
}
