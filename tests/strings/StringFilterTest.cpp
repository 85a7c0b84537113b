// SPDX-License-Identifier: MIT
#include "StringFilter.h"
#include "StringGaps.h"
#include "TableProject.h"
#include "TextFinder.h"

#include <random>

using namespace Qt::StringLiterals;

namespace
{

/// Characters with various properties of case, size and bytes.
const QStringList CHARACTERS =
    u"k,K,\u212A,s,S,\u017F,ß,\u1E9E,σ,ς,Σ,θ,ϑ,ϴ,i,İ,ı,é,É,\U00010400,\U00010428,ソ,\\,A,a,_"_s.split(u',');

/// A random table, sorted or not, with gaps, empty records and a language that has no column.
struct RandomTable : TableProject
{
    explicit RandomTable(unsigned seed) : random(seed)
    {
        EXPECT_TRUE(env.codePage.Select(seed % 4 == 0 ? "932" : "utf-8"));
        QByteArray file = "Number of Language|3\nString ID|Resource Type|Description|A(300)|B(12)|C(9)\n";
        for (int row = 0; row < Below(60); ++row)
            file += "ID_" + QByteArray::number(row) + Text(3).toUtf8() + (Below(2) ? "|Push|" : "|Normal|") +
                    Cell().toUtf8() + '|' + Cell().toUtf8() + '|' + Cell().toUtf8() + '|' + Cell().toUtf8() + '\n';
        EXPECT_EQ(Read(file + "##number|0\n"), 0);
        table.Rebuild();
        table.RemoveLanguageColumn(12);
        for (int row = 0; row < table.RowCount(); row += 5)
            EXPECT_EQ(table.ApplyCellEdit(row, 4, QString()), 0);
        for (int row = 2; row < table.RowCount(); row += 7)
            table.Head(row)->SetText(QString(QChar(0xDC28)) +
                                     table.Head(row)->Text().toString()); // half of a character
        std::vector<int> order(size_t(table.RowCount()));
        for (size_t row = 0; row < order.size(); ++row)
            order[row] = int(row);
        if (seed % 3 != 0)
            std::shuffle(order.begin(), order.end(), random);
        table.Reorder(order);
    }

    int Below(int end) { return int(random() % unsigned(end)); }
    QString Text(int most)
    {
        QString text;
        for (int n = Below(most + 1); n > 0; --n)
            text += CHARACTERS[Below(int(CHARACTERS.size()))];
        return text;
    }
    QString Cell() { return Below(3) ? Text(Below(3) ? 4 : 50) : QString(); }

    StringCondition Condition()
    {
        return {Text(2), Below(2) == 0, Below(2) ? -1 : Below(6), Below(3) ? -1 : Below(6),
                StringCondition::Kind(Below(4) ? 0 : Below(3))};
    }

    [[nodiscard]] bool IsGapByCells(int row, int col) const
    {
        bool hasText = false;
        for (int other = 2; other < table.ColumnCount(); ++other)
            hasText |= !table.CellText(row, other).isEmpty();
        return col >= 3 && col < table.ColumnCount() && hasText && table.CellText(row, col).isEmpty();
    }

    [[nodiscard]] std::vector<int> ByCells(const StringCondition &condition) const
    {
        std::vector<int> found;
        for (int row = 0; row < table.RowCount(); ++row) {
            bool hasText = condition.text.isEmpty();
            for (int col = 0; col < table.ColumnCount(); ++col)
                hasText |= (condition.column < 0 || condition.column == col) &&
                           table.CellText(row, col).contains(condition.text, condition.matchCase ? Qt::CaseSensitive
                                                                                                 : Qt::CaseInsensitive);
            const QString kind = condition.kind == StringCondition::Kind::Push ? u"Push"_s : u"Normal"_s;
            if (hasText && (condition.missingIn < 0 || IsGapByCells(row, condition.missingIn)) &&
                (condition.kind == StringCondition::Kind::Any || table.CellText(row, 1) == kind))
                found.push_back(row);
        }
        return found;
    }

    std::mt19937 random;
};

} // namespace

TEST(StringFilter, FindsTheSameAsASearchOfEachCell)
{
    int withinOthers = 0;
    for (unsigned seed = 1; seed <= 300 && !testing::Test::HasFailure(); ++seed) {
        RandomTable project(seed);
        for (int n = 0; n < 20; ++n) {
            const StringCondition wide = project.Condition();
            SCOPED_TRACE(testing::Message() << seed << ' ' << wide.text.toStdString() << ' ' << wide.column << ' '
                                            << wide.matchCase << ' ' << wide.missingIn);
            const std::vector<int> rows = RowsThatMeet(wide, project.table);
            ASSERT_EQ(rows, project.ByCells(wide));
            for (const int row : rows) {
                bool has = wide.text.isEmpty();
                for (int col = 0; col < project.table.ColumnCount(); ++col)
                    has |= HasText(wide, project.table, row, col);
                ASSERT_TRUE(has);
            }
            StringCondition narrow = project.Condition();
            narrow.text = project.Text(1) + (n % 2 ? wide.text : wide.text.toUpper()) + narrow.text;
            if (narrow.IsWithin(wide)) {
                ++withinOthers;
                ASSERT_EQ(RowsThatMeet(narrow, project.table, &rows), project.ByCells(narrow));
            }
        }
    }
    EXPECT_GT(withinOthers, 300);
}

TEST(StringFilter, FindsGapsInBothDirections)
{
    for (unsigned seed = 1; seed <= 100; ++seed) {
        RandomTable project(seed);
        const StringTable &table = project.table;
        std::vector<int> widths(size_t(table.ColumnCount()), 100);
        widths[size_t(project.Below(table.ColumnCount()))] = 0;
        std::vector<int> counts(size_t(table.ColumnCount() - 3));
        std::vector<int> shown;
        std::vector<std::pair<int, int>> gaps;
        for (int row = 0; row < table.RowCount(); ++row) {
            const bool isShown = project.Below(4) > 0;
            if (isShown)
                shown.push_back(row);
            for (int col = 3; col < table.ColumnCount(); ++col) {
                const bool isGap = project.IsGapByCells(row, col);
                ASSERT_EQ(IsGap(table, row, col), isGap);
                counts[size_t(col - 3)] += isGap;
                if (isGap && isShown && widths[size_t(col)] > 0)
                    gaps.emplace_back(row, col);
            }
        }
        EXPECT_EQ(CountGaps(table), counts);
        for (const int step : {1, -1}) {
            std::vector<std::pair<int, int>> walked;
            std::pair<int, int> at{step > 0 ? -1 : table.RowCount(), 0};
            while (const auto next = NextGap(table, shown, widths, at.first, at.second, step))
                walked.push_back(at = *next);
            EXPECT_EQ(walked, gaps);
            std::reverse(gaps.begin(), gaps.end());
        }
    }
}
