// SPDX-License-Identifier: MIT
#include "IdComparison.h"
#include "IdNumbers.h"
#include "PoolBuilder.h"
#include "SortedIds.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

/// The comparison as lines: changed "A 1>2", gone "A 1>", new "A =1+moved".
std::vector<std::string> Compare(PoolBuilder &ids, const QByteArray &header)
{
    const std::vector<IDRecord *> sorted = SortedIds(ids.model.ids);
    EXPECT_EQ(FillSorted(ids.model.env, sorted), 0);
    IdNumbers old;
    old.Read(header);
    const IdComparison compared = CompareIds(old, sorted);
    std::vector<std::string> lines;
    for (const auto &id : compared.changed)
        lines.push_back(id.name.toStdString() + ' ' + std::to_string(id.before) + '>' + std::to_string(*id.now));
    for (const auto &id : compared.gone)
        lines.push_back(id.name.toStdString() + ' ' + std::to_string(id.before) + '>');
    for (const auto &id : compared.added)
        lines.push_back(id.name.toStdString() + " =" + std::to_string(id.number) + '+' + std::to_string(id.moved));
    EXPECT_EQ(compared.IsSame(), compared.changed.empty() && compared.gone.empty());
    return lines;
}

} // namespace

TEST(IdComparison, ChangedGoneAndNewWithWhatTheyMoved)
{
    TestModel model;
    PoolBuilder ids{model};
    ids.Normal("A").Normal("C").Normal("E", 0).Normal("E", 1).Push("P", PUSH_AUDIO).Push("R", PUSH_AUDIO);
    EXPECT_THAT(Compare(ids, "#define A 1\r\n#define C 2\r\n#define E 3\r\n#define P 100000\r\n#define R 100001\r\n"),
                IsEmpty());
    EXPECT_THAT(Compare(ids, "#define A 1\n#define E 2\n#define P 100000\n#define R 100001\n"),
                ElementsAre("E 2>3", "C =2+1"));
    EXPECT_THAT(Compare(ids, "#define A 1\n#define C 2\n#define E 3\n#define R 100000\n"),
                ElementsAre("R 100000>100001", "P =100000+1"));
    EXPECT_THAT(Compare(ids, "#define A 1\n#define B 2\n#define C 3\n#define P 4\n#define R 100000\n"),
                ElementsAre("C 3>2", "P 4>100000", "R 100000>100001", "B 2>", "E =3+0"));
}
