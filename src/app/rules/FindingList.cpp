// SPDX-License-Identifier: MIT
#include "FindingList.h"

#include <QSet>

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace
{

/// Returns whether two findings are of the same rule and about the same resource, text or file.
bool AreAlike(const Finding &a, const Finding &b)
{
    return a.language == b.language && qstrcmp(a.code, b.code) == 0 && a.id == b.id && a.file == b.file &&
           (!a.id.isEmpty() || a.text == b.text);
}

/// What makes a finding equal to an earlier one. Its line isn't in it, because changes elsewhere change that.
struct Identity
{
    const Finding *finding;

    bool operator==(const Identity &other) const
    {
        return AreAlike(*finding, *other.finding) && finding->text == other.finding->text;
    }
    friend size_t qHash(const Identity &identity, size_t seed)
    {
        const Finding &hashed = *identity.finding;
        return qHashMulti(seed, hashed.id, hashed.language, hashed.text, hashed.file);
    }
};

} // namespace

void FindingList::Set(std::vector<Finding> found, CheckResult checked)
{
    all = std::move(found);
    if (checked.relativeTo != result.relativeTo)
        relatives.clear();
    result = std::move(checked);
    result.findings.clear();
    Arrange();
}

void FindingList::SetFilter(const FindingFilter &shown)
{
    filter = shown;
    Arrange();
}

void FindingList::SortBy(int state)
{
    sortState = state;
    Arrange();
}

void FindingList::Arrange()
{
    rows.clear();
    for (size_t i = 0; i < all.size(); ++i) {
        if (filter.Shows(all[i].severity) && (filter.text.isEmpty() || Matches(all[i])))
            rows.push_back(int(i));
    }
    if (sortState == 0 || std::abs(sortState) > COLUMN_COUNT)
        return;
    const int direction = sortState < 0 ? -1 : 1;
    std::stable_sort(rows.begin(), rows.end(),
                     [&](int a, int b) { return Compare(all[size_t(a)], all[size_t(b)]) * direction < 0; });
}

bool FindingList::Matches(const Finding &finding) const
{
    const auto has = [this](const QString &text) { return text.contains(filter.text, Qt::CaseInsensitive); };
    return has(finding.text) || has(finding.id) || has(QString::fromLatin1(finding.code)) ||
           (finding.language >= 0 && has(result.LanguageName(finding.language))) ||
           (!finding.file.isEmpty() && has(PlaceOf(finding)));
}

int FindingList::Compare(const Finding &a, const Finding &b) const
{
    switch (std::abs(sortState) - 1) {
    case ID_COLUMN:
        return a.id.compare(b.id, Qt::CaseInsensitive);
    case LANGUAGE_COLUMN:
        if (a.language < 0 || b.language < 0)
            return qMax(a.language, -1) - qMax(b.language, -1);
        return a.language == b.language ? 0 : result.LanguageName(a.language).compare(result.LanguageName(b.language));
    case TEXT_COLUMN:
        return a.text.compare(b.text, Qt::CaseInsensitive);
    case RULE_COLUMN:
        return qstrcmp(a.code, b.code);
    default:
        break;
    }
    const int file = a.file.compare(b.file);
    return file != 0 ? file : a.line != b.line ? a.line - b.line : a.column - b.column;
}

const QString &FindingList::RelativeTo(const QString &file) const
{
    const auto known = relatives.constFind(file);
    return known != relatives.constEnd() ? *known : *relatives.insert(file, result.Relative(file));
}

QString FindingList::PlaceOf(const Finding &finding) const
{
    if (finding.file.isEmpty())
        return {};
    const QString &file = RelativeTo(finding.file);
    return finding.line > 0 ? file + u':' + QString::number(finding.line) : file;
}

QString FindingList::CellText(int row, int col) const
{
    const Finding &finding = At(row);
    switch (col) {
    case ID_COLUMN:
        return finding.id;
    case LANGUAGE_COLUMN:
        return finding.language < 0 ? QString() : result.LanguageName(finding.language);
    case TEXT_COLUMN:
        return finding.text;
    case RULE_COLUMN:
        return QString::fromLatin1(finding.code);
    default:
        return PlaceOf(finding);
    }
}

QString FindingList::ColumnTitle(int col)
{
    static constexpr const char *TITLES[COLUMN_COUNT] = {"ID", "Language", "Finding", "Rule", "Place"};
    return QString::fromLatin1(TITLES[col]);
}

int FindingList::RowOf(const Finding &former, int formerRow) const
{
    int equal = -1;
    int alike = -1;
    const auto take = [formerRow](int &best, int row) {
        if (best < 0 || std::abs(row - formerRow) < std::abs(best - formerRow))
            best = row;
    };
    for (int row = 0; row < RowCount(); ++row) {
        const Finding &finding = At(row);
        if (!AreAlike(finding, former))
            continue;
        take(alike, row);
        if (finding.text == former.text)
            take(equal, row);
    }
    return equal >= 0 ? equal : alike;
}

std::vector<int> FindingList::RowsOf(const std::vector<Finding> &former) const
{
    std::vector<int> found;
    if (former.empty())
        return found;
    QSet<Identity> wanted;
    for (const Finding &finding : former)
        wanted.insert({&finding});
    for (int row = 0; row < RowCount(); ++row) {
        if (wanted.contains({&At(row)}))
            found.push_back(row);
    }
    return found;
}
