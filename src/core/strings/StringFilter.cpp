// SPDX-License-Identifier: MIT
#include "StringFilter.h"

#include "Environment.h"
#include "StringFileFormat.h"
#include "TextColumns.h"
#include "TextFinder.h"

#include <QSet>

#include <algorithm>
#include <iterator>
#include <limits>

namespace
{

bool IsAscii(QByteArrayView bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char byte) { return quint8(byte) < 0x80; });
}

/// Tests whether rows, given by their heads, meet a condition.
class RowTest
{
public:
    RowTest(const StringCondition &rowCondition, const StringTable &stringTable)
        : condition(rowCondition), table(stringTable), env(table.Model().env), columns(table),
          finder(condition.text, condition.matchCase), isNormalFound(finder.In(StringFileFormat::NORMAL_WORD)),
          isPushFound(finder.In(StringFileFormat::PUSH_WORD)), language(LanguageOf(condition.column)),
          missing(LanguageOf(condition.missingIn))
    {
    }

    [[nodiscard]] bool Meets(CStringRes &head) const
    {
        return (condition.kind == StringCondition::Kind::Any ||
                head.Id()->push == (condition.kind == StringCondition::Kind::Push)) &&
               (condition.text.isEmpty() || HasText(head)) &&
               (condition.missingIn == StringCondition::NOWHERE || HasGap(head));
    }

private:
    static constexpr qint32 NONE = std::numeric_limits<qint32>::min();

    /// Returns the language of a column of texts; NONE for other columns.
    [[nodiscard]] qint32 LanguageOf(int col) const
    {
        if (col == StringTable::DESCRIPTION_COLUMN)
            return StringFileFormat::DESCRIPTION;
        const bool is = col >= StringTable::FIRST_LANGUAGE_COLUMN && col < table.ColumnCount();
        return is ? table.Languages()[size_t(col) - size_t(StringTable::FIRST_LANGUAGE_COLUMN)] : NONE;
    }

    [[nodiscard]] bool HasText(CStringRes &head) const
    {
        switch (condition.column) {
        case StringTable::ID_COLUMN:
            return IsInId(head);
        case StringTable::KIND_COLUMN:
            return IsInKind(head);
        case StringCondition::ANY_COLUMN:
            return IsInId(head) || IsInKind(head) || AnyRecord(head, [this](const CStringRes &record) {
                       return finder.In(record.Text()) && columns.Of(record.Language()) >= 0;
                   });
        default:
            const CStringRes *record = language == NONE ? nullptr : head.FindLanguage(language);
            return record && finder.In(record->Text());
        }
    }

    [[nodiscard]] bool IsInKind(const CStringRes &head) const { return head.Id()->push ? isPushFound : isNormalFound; }

    [[nodiscard]] bool IsInId(const CStringRes &head) const
    {
        const NarrowText &name = head.Id()->name;
        return env.codePage.IsUtf8() && IsAscii(name) ? finder.InAscii(name) : finder.In(env.NarrowToWide(name));
    }

    [[nodiscard]] bool HasGap(const CStringRes &head) const
    {
        if (missing == NONE || missing == StringFileFormat::DESCRIPTION)
            return false;
        bool hasOther = false;
        const bool isFilled = AnyRecord(head, [&](const CStringRes &record) {
            if (!record.HasText())
                return false;
            hasOther = hasOther || columns.Of(record.Language()) >= 0;
            return record.Language() == missing;
        });
        return hasOther && !isFilled;
    }

    const StringCondition &condition;
    const StringTable &table;
    const Environment &env;
    const TextColumns columns;
    const TextFinder finder;
    const bool isNormalFound; // that word contains the text
    const bool isPushFound;
    const qint32 language; // of the condition's column
    const qint32 missing;
};

/// Returns the rows of those heads, ascending. `rows` has the number of each head if the list has it at the same place
/// as the tree, and -1 otherwise.
std::vector<int> InListOrder(const std::vector<const CStringRes *> &heads, std::vector<int> rows,
                             const StringTable &table)
{
    if (std::find(rows.begin(), rows.end(), -1) == rows.end())
        return rows;
    QSet<const CStringRes *> found;
    found.reserve(qsizetype(heads.size()));
    for (const CStringRes *head : heads)
        found.insert(head);
    rows.clear();
    for (int row = 0; row < table.RowCount(); ++row) {
        if (found.contains(table.Head(row)))
            rows.push_back(row);
    }
    return rows;
}

} // namespace

bool StringCondition::IsWithin(const StringCondition &wider) const
{
    const bool hasItsText = wider.text.isEmpty() || ((!wider.matchCase || matchCase) &&
                                                     (wider.column == ANY_COLUMN || wider.column == column) &&
                                                     TextFinder(wider.text, wider.matchCase).In(text));
    return hasItsText && (wider.missingIn == NOWHERE || wider.missingIn == missingIn) &&
           (wider.kind == Kind::Any || wider.kind == kind);
}

std::vector<int> RowsThatMeet(const StringCondition &condition, const StringTable &table,
                              const std::vector<int> *within)
{
    constexpr size_t FEW = 4; // in the order of a sort each row takes up to four times as long
    const RowTest test(condition, table);
    std::vector<int> rows;
    if (within && within->size() < size_t(table.RowCount()) / FEW) {
        std::copy_if(within->begin(), within->end(), std::back_inserter(rows), [&](int row) {
            CStringRes *head = table.Head(row);
            return head && test.Meets(*head);
        });
        return rows;
    }
    std::vector<const CStringRes *> heads;
    const CResFolder *const folder = table.ColumnLanguage(StringTable::DESCRIPTION_COLUMN);
    int row = 0; // if the list is in the tree's order
    for (CBaseRes *res = folder ? folder->resources.First() : nullptr; res; res = res->NextInFolder(), ++row) {
        auto &head = static_cast<CStringRes &>(*res);
        if (test.Meets(head)) {
            heads.push_back(&head);
            rows.push_back(table.Head(row) == &head ? row : -1);
        }
    }
    rows = InListOrder(heads, std::move(rows), table);
    if (!within)
        return rows;
    std::vector<int> both;
    std::set_intersection(rows.begin(), rows.end(), within->begin(), within->end(), std::back_inserter(both));
    return both;
}

bool HasText(const StringCondition &condition, const StringTable &table, int row, int col)
{
    if (condition.text.isEmpty() || !table.Head(row) ||
        (condition.column != StringCondition::ANY_COLUMN && condition.column != col))
        return false;
    const TextFinder finder(condition.text, condition.matchCase);
    return col < StringTable::DESCRIPTION_COLUMN ? finder.In(table.CellText(row, col))
                                                 : finder.In(table.CellView(row, col));
}
