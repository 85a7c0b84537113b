// SPDX-License-Identifier: MIT
#include "InspectFixture.h"
#include "PackDiffPrint.h"
#include "PackSelection.h"
#include "SizeListing.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <numeric>
#include <rapidcheck.h>

using namespace Qt::StringLiterals;
using testing::HasSubstr;
using testing::StartsWith;

namespace
{

using Bytes = PayloadBuilder::Bytes;

size_t Below(size_t count)
{
    return *rc::gen::inRange<size_t>(0, count);
}

/// A payload with a few entries, items and languages, in any order and some of them twice.
Bytes RandomPayload(quint32 base, bool isPadded)
{
    PayloadBuilder payload;
    if (!isPadded)
        payload.Unpadded();
    for (size_t i = Below(4); i > 0; --i)
        payload.Entry(std::string(1, char('a' + Below(3))), Bytes(Below(9), 'e'));
    for (size_t i = Below(6); i > 0; --i)
        payload.Item(quint32(Below(4)), Bytes(Below(2) * 8, '\0') + Bytes(Below(9), char('0' + Below(3))));
    for (size_t i = Below(4); i > 0; --i) {
        PayloadBuilder::Strings strings;
        for (size_t n = Below(5); n > 0; --n)
            strings.emplace_back(quint32(Below(4)), std::u16string(Below(4), char16_t('x' + Below(2))));
        payload.Language(quint16(Below(3)), strings);
    }
    return payload.Base(base).Build();
}

/// A packed file of any of the three kinds.
Bytes RandomFile()
{
    switch (Below(3)) {
    case 0:
        return RandomPayload(0, true);
    case 1: {
        const Bytes before(Below(40), 'f');
        return PayloadBuilder::AppendedTo(before, RandomPayload(quint32(before.size()) + 8, false));
    }
    default: {
        ElfBuilder elf(Below(2));
        for (size_t i = Below(4); i > 0; --i) // some extend into what follows, or beyond the end of the file
            elf.Section(i % 2 ? ".text" : ".data", Bytes(Below(20), 'c'), Below(4) ? 1 : ElfBuilder::NoBits,
                        Below(3) * 300);
        if (Below(3) == 0)
            elf.Section(".zp_res", "old");
        return elf.Section(".zp_res", RandomPayload(0, true)).Build() + Bytes(Below(3), '\0');
    }
    }
}

qint64 Sum(const std::vector<PackedPart> &parts, bool isPayload)
{
    return std::accumulate(parts.begin(), parts.end(), qint64(0), [&](qint64 sum, const PackedPart &part) {
        return sum + (part.IsOfPayload() || !isPayload ? part.bytes.size() : 0);
    });
}

} // namespace

class PackDiffTest : public InspectFixture
{
protected:
    /// The listing of the differences, without its first line and the sizes.
    std::string Diff(const PayloadBuilder &a, const PackNames &namesA, const PayloadBuilder &b, const PackNames &namesB)
    {
        InspectResult before;
        EXPECT_EQ(InspectBytes(QByteArray::fromStdString(a.Build()), before), QString());
        const std::vector<PackedPart> partsA = PartsOf(env, before);
        const std::vector<PackedPart> partsB = PartsOf(env, Read(b.Build()));
        const std::vector<DiffRow> rows = ComparePacks(partsA, namesA, partsB, namesB);
        const ComparedPacks packs{partsA, namesA, partsB, namesB, rows};
        json = QJsonDocument::fromJson(DiffJson(packs)).object();
        const std::string text = DiffText(packs).toStdString();
        const size_t start = text.find('\n') + 1;
        return text.substr(start, text.find("\n\n") + 1 - start);
    }

    QJsonObject json;
};

TEST_F(PackDiffTest, DeltasAddUpToThoseOfPayloadsAndFiles)
{
    EXPECT_TRUE(rc::check([this] {
        const Bytes fileA = RandomFile();
        Bytes fileB = Below(3) ? RandomFile() : fileA;
        for (size_t damage = Below(3); damage > 0; --damage)
            fileB[Below(fileB.size())] = char(*rc::gen::element(0, 1, 4, 0x7F, 0xFF));
        InspectResult before;
        RC_ASSERT(InspectBytes(QByteArray::fromStdString(fileA), before).isEmpty());
        const std::string wrong = Wrong(fileB);
        if (!wrong.empty())
            return; // a damaged file
        const std::vector<PackedPart> a = PartsOf(env, before);
        const std::vector<PackedPart> b = PartsOf(env, result);
        RC_ASSERT(Sum(a, true) == qint64(before.payloadSize));
        RC_ASSERT(Sum(b, true) == qint64(result.payloadSize));
        RC_ASSERT(Sum(a, false) == qint64(fileA.size()));
        RC_ASSERT(Sum(b, false) == qint64(fileB.size()));

        qint64 delta[2] = {};
        const std::vector<DiffRow> rows = ComparePacks(a, {}, b, {});
        for (const DiffRow &row : rows) {
            delta[0] += row.Part().IsOfPayload() ? row.Delta() : 0;
            delta[1] += row.Delta();
        }
        RC_ASSERT(delta[0] == Sum(b, true) - Sum(a, true));
        RC_ASSERT(delta[1] == qint64(fileB.size()) - qint64(fileA.size()));
        RC_ASSERT(rows.empty() == (fileA == fileB));
        for (const auto &[parts, size] : {std::pair(&a, before.payloadSize), {&b, result.payloadSize}}) {
            quint64 sum = 0;
            for (const SizedPart &part : SizesOf(*parts, {}, nullptr))
                sum += quint64(part.bytes);
            RC_ASSERT(sum == size);
        }
    }));
}

TEST_F(PackDiffTest, ListsWhatWasAddedRemovedChangedAndMoved)
{
    const Bytes prefix(8, '\0');
    const auto a = PayloadBuilder()
                       .Entry("icon", "12345")
                       .Language(0, {{1, u"Yes"}, {2, u"No"}, {3, u"Maybe"}})
                       .Item(5, "gone")
                       .Item(6, "same")
                       .Item(7, "moved");
    const auto b = PayloadBuilder()
                       .Entry("icon", "123456789")
                       .Language(0, {{1, u"Yes"}, {2, u"Never"}, {4, u"New"}})
                       .Item(7, "moved")
                       .Item(6, "same")
                       .Item(8, prefix + "file");
    EXPECT_EQ(Diff(a, {}, b, {}), "changed            5           9          +4  entry icon\n"
                                  "removed            4           0          -4  item 5\n"
                                  "moved              4           4          +0  item 6\n"
                                  "added              0           4          +4  item 8\n"
                                  "removed           12           0         -12  language 0 string 3\n"
                                  "changed            6          12          +6  language 0 string 2\n"
                                  "added              0           8          +8  language 0 string 4\n"
                                  "added              0           8          +8  prefixes of files\n"
                                  "changed           38          38          +0  directory\n"
                                  "changed           40          40          +0  table of items\n"
                                  "changed           36          36          +0  language 0 table\n"
                                  "removed            2           0          -2  language 0 padding\n");
}

TEST_F(PackDiffTest, WithTwoHeadersARenumberedIdHasMoved)
{
    PackNames namesA;
    namesA.Add(1, u"ID_B"_s);
    namesA.Add(2, u"ID_C"_s);
    PackNames namesB;
    namesB.Add(1, u"ID_A"_s);
    namesB.Add(2, u"ID_B"_s);
    namesB.Add(3, u"ID_C"_s);
    const auto a =
        PayloadBuilder().Language(0, {{1, u"B"}, {2, u"CC"}}).Item(1, "bbbb").Item(2, "cccc").Item(9, "9999");
    const auto b = PayloadBuilder()
                       .Language(0, {{1, u"A"}, {2, u"B"}, {3, u"CCC"}})
                       .Item(2, "bbbb")
                       .Item(3, "cccc")
                       .Item(9, "9999");
    EXPECT_THAT(Diff(a, namesA, b, namesB),
                StartsWith("moved              4           4          +0  item 2 ID_B, was 1\n"
                           "moved              4           4          +0  item 3 ID_C, was 2\n"
                           "moved              4           4          +0  language 0 string 2 ID_B, was 1\n"
                           "changed            6           8          +2  language 0 string 3 ID_C, was 2\n"
                           "added              0           4          +4  language 0 string 1 ID_A\n"
                           "changed           40          40          +0  table of items\n"));
    const QJsonObject first = json[u"rows"_s][0].toObject();
    EXPECT_EQ(first[u"id"_s], u"ID_B"_s);
    EXPECT_EQ(first[u"number"_s], 2);
    EXPECT_EQ(first[u"number_before"_s], 1);
    EXPECT_EQ(json[u"payload"_s][u"delta"_s].toInt(),
              json[u"file"_s][u"after"_s].toInt() - json[u"file"_s][u"before"_s].toInt());
    EXPECT_THAT(Diff(a, {}, b, {}), HasSubstr("  item 1\n")); // by number, ID_B is gone
}

TEST_F(PackDiffTest, SizesAreSortedAndHaveShares)
{
    const auto &inspected = Read(Sample().Build());
    const std::vector<PackedPart> parts = PartsOf(env, inspected);
    const auto list = [&](const PackSelection *selection) {
        return SizesText(SizesOf(parts, {}, selection), inspected.payloadSize).toStdString();
    };
    EXPECT_EQ(list(nullptr), "       bytes       share  what\n"
                             "          62      26.7 %  directory\n"
                             "          60      25.9 %  language 12\n"
                             "          44      19.0 %  language 0\n"
                             "          40      17.2 %  table of items\n"
                             "          10       4.3 %  entry AppLogo.img\n"
                             "           8       3.4 %  item 1\n"
                             "           4       1.7 %  item 103000\n"
                             "           4       1.7 %  padding\n"
                             "           0       0.0 %  entry tune.mid\n");
    const auto language = PackSelection::Parse(u"language:0"_s, {});
    EXPECT_EQ(list(&*language), "       bytes       share  what\n"
                                "          28      12.1 %  language 0 table\n"
                                "          12       5.2 %  language 0 string 7\n"
                                "           2       0.9 %  language 0 string 3\n"
                                "           2       0.9 %  language 0 padding\n");
    EXPECT_THAT(SizesJson(SizesOf(parts, {}, nullptr), inspected.payloadSize, {}).toStdString(),
                HasSubstr("{\n            \"kind\": \"language\",\n            \"language\": 12,\n"
                          "            \"bytes\": 60\n"));
}
