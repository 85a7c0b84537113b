// SPDX-License-Identifier: MIT
#include "CheckInput.h"
#include "Environment.h"
#include "ProjectTextRules.h"
#include "Resources.h"
#include "RowNotes.h"
#include "RowTexts.h"
#include "RuleReport.h"
#include "TextContext.h"
#include "TextHash.h"

#include <QHashFunctions>

#include <algorithm>
#include <span>
#include <tuple>

using namespace Qt::StringLiterals;

namespace
{

/// A row, and the hash by which rows are grouped.
struct HashedRow
{
    size_t hash;
    size_t row;

    bool operator<(const HashedRow &other) const { return std::tie(hash, row) < std::tie(other.hash, other.row); }
};

/// Calls `visit` with the rows of each group of two or more rows with the same hash, in the order of the table. Rows
/// with equal texts are in one group; a group can have others by chance, so `visit` compares the texts.
template <typename Visit> void VisitGroups(std::vector<HashedRow> &rows, const Visit &visit)
{
    std::sort(rows.begin(), rows.end());
    for (auto from = rows.begin(); from != rows.end();) {
        const auto to = std::find_if(from, rows.end(), [&](const HashedRow &row) { return row.hash != from->hash; });
        if (to - from > 1)
            visit(std::span<const HashedRow>(from, to));
        from = to;
    }
}

QStringView SourceOf(const CStringRes &head, qint32 source)
{
    const CStringRes *const record = head.FindLanguage(source);
    return record ? record->Text() : QStringView();
}

QString IdOf(const CStringRes &head, const TextContext &context)
{
    return context.Env().NarrowToWide(head.Id()->name);
}

/// Groups the rows by the hash that `hashOf` returns.
template <typename Hash>
std::vector<HashedRow> HashedBy(const std::vector<const CStringRes *> &heads, const Hash &hashOf)
{
    std::vector<HashedRow> rows;
    for (size_t row = 0; row < heads.size(); ++row)
        rows.push_back({hashOf(*heads[row]), row});
    return rows;
}

/// Finds different translations in one language after the other.
class TranslationComparison
{
public:
    TranslationComparison(const TextContext &textContext, RuleReport &ruleReport)
        : context(textContext), report(ruleReport), texts(textContext), first(textContext.Languages().size())
    {
    }

    /// Begins a group of rows that have the same source text and description.
    void Begin() { std::fill(first.begin(), first.end(), Translation()); }

    void Add(const CStringRes &head)
    {
        texts.Take(head);
        for (size_t i = 0; i < first.size(); ++i) {
            if (i == context.Source() || texts[i].isEmpty() || first[i].text == texts[i])
                continue;
            if (first[i].text.isEmpty()) {
                first[i] = {texts[i], &head};
                continue;
            }
            Finding finding;
            finding.id = IdOf(head, context);
            finding.language = context.Languages()[i].number;
            finding.text = u"%1 has another translation of the same text: \"%2\""_s.arg(IdOf(*first[i].row, context),
                                                                                        Cut(first[i].text));
            finding.basis = HashOf(texts[i], HashOf(first[i].text));
            report.AddForRow(NotesOf(head.Text()), std::move(finding));
        }
    }

private:
    struct Translation
    {
        QStringView text;
        const CStringRes *row = nullptr;
    };
    const TextContext &context;
    RuleReport &report;
    RowTexts texts;
    std::vector<Translation> first; // the first translation of each language
};

} // namespace

void DuplicateText(const CheckInput &input, RuleReport &report)
{
    const std::vector<CheckedLanguage> &languages = input.texts.Languages();
    if (languages.empty())
        return;
    const std::vector<const CStringRes *> &heads = input.repeatedRows; // only they can have all texts equal
    RowTexts first(input.texts);
    RowTexts other(input.texts);
    std::vector<HashedRow> rows = HashedBy(heads, [&first](const CStringRes &head) {
        first.Take(head);
        return first.Hash();
    });
    VisitGroups(rows, [&](std::span<const HashedRow> group) {
        const CStringRes &original = *heads[group.front().row];
        first.Take(original);
        if (first.AreEmpty())
            return;
        quint64 basis = HashOf(u"");
        for (size_t i = 0; i < languages.size(); ++i)
            basis = HashOf(first[i], basis);
        for (const HashedRow &row : group.subspan(1)) {
            const CStringRes &head = *heads[row.row];
            other.Take(head);
            if (!(other == first))
                continue;
            Finding finding;
            finding.id = IdOf(head, input.texts);
            finding.text = u"%1 has the same texts"_s.arg(IdOf(original, input.texts));
            finding.basis = basis;
            report.AddForRow(NotesOf(head.Text()), std::move(finding));
        }
    });
}

void InconsistentTranslation(const CheckInput &input, RuleReport &report)
{
    const std::vector<CheckedLanguage> &languages = input.texts.Languages();
    if (languages.empty())
        return;
    const std::vector<const CStringRes *> &heads = input.repeatedRows;
    const qint32 language = languages[input.texts.Source()].number;
    std::vector<HashedRow> rows = HashedBy(
        heads, [language](const CStringRes &head) { return qHash(SourceOf(head, language), qHash(head.Text())); });
    TranslationComparison comparison(input.texts, report);
    VisitGroups(rows, [&](std::span<const HashedRow> group) {
        const CStringRes &original = *heads[group.front().row];
        const QStringView source = SourceOf(original, language);
        if (source.isEmpty())
            return;
        comparison.Begin();
        for (const HashedRow &row : group) {
            const CStringRes &head = *heads[row.row];
            if (head.Text() == original.Text() && SourceOf(head, language) == source)
                comparison.Add(head);
        }
    });
}
