// SPDX-License-Identifier: MIT
#include "IdRules.h"

#include "CResDoc.h"
#include "CheckFacts.h"
#include "CheckInput.h"
#include "FileFault.h"
#include "HostFiles.h"
#include "IDGen.h"
#include "IdComparison.h"
#include "IdFinding.h"
#include "IdNames.h"
#include "IdNumbers.h"
#include "IdRanges.h"
#include "Keywords.h"
#include "LoadRules.h"
#include "RuleReport.h"
#include "SortedIds.h"
#include "TextHash.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

/// Calls `function(record)` for each name of the pool, in the order of the names.
template <typename Function> void ForEachName(const std::vector<IDRecord *> &sorted, const Function &function)
{
    const IDRecord *last = nullptr;
    for (const IDRecord *record : sorted) {
        if (!last || last->name != record->name)
            function(*record);
        last = record;
    }
}

bool IsAsciiName(const NarrowText &name)
{
    return std::all_of(name.begin(), name.end(), [](char c) { return quint8(c) < 0x80; });
}

/// Returns what is wrong with an ID; empty if nothing is.
QString WhyInvalid(const NarrowText &name)
{
    if (!IsAsciiName(name))
        return u"an ID can have only the letters A to Z and a to z, since some compilers accept no others"_s;
    if (!IsValidIdName(QByteArrayView(name)))
        return u"an ID has 1 to 64 letters, digits and \"_\", and doesn't begin with a digit"_s;
    return IsKeyword(name) ? u"this is a keyword of C or C++"_s : QString();
}

/// Returns whether the check knows the sources and all IDs and layouts of the project. If some were missing, names in
/// the sources would seem undefined, and IDs unused.
bool CanCompareSources(const CheckInput &input)
{
    return !input.settings.sourceFiles.isEmpty() && !HasLeftOutResources(input.loaded);
}

/// Looks for IDs that no source uses, some names in each part.
class UnusedIds final : public RuleInParts
{
public:
    bool Step(const CheckInput &input, RuleReport &report) override
    {
        if (!CanCompareSources(input))
            return false;
        const SourceNames &names = input.facts->Sources(input);
        if (last.isNull())
            TellOfPatterns(names, input, report);
        if (names.files == 0)
            return false; // all IDs would be unused
        const std::vector<IDRecord *> &sorted = input.facts->Ids(input);
        auto next = std::upper_bound(sorted.begin(), sorted.end(), last,
                                     [](const NarrowText &name, const IDRecord *of) { return name < of->name; });
        for (int n = 0; n < NAMES_AT_ONCE && next != sorted.end(); ++n) {
            const IDRecord &record = **next;
            if (!names.used.contains(record.name) && !IsOfComponent(record))
                AddForId(report, input.document, record, u"no source file and no layout uses the ID"_s);
            last = record.name;
            while (next != sorted.end() && (*next)->name == last)
                ++next;
        }
        return next != sorted.end();
    }

private:
    static void TellOfPatterns(const SourceNames &names, const CheckInput &input, RuleReport &report)
    {
        for (const QString &pattern : names.patternsWithoutFile)
            report.Add({.file = input.settings.file,
                        .line = input.settings.sourceFilesLine,
                        .text = u"section Sources, key files: no file matches \"%1\""_s.arg(pattern),
                        .basis = HashOf(pattern)});
    }

    static constexpr int NAMES_AT_ONCE = 1000;
    NarrowText last; // the last name that was looked at; the IDs may change between the parts
};

} // namespace

void IdInvalid(const CheckInput &input, RuleReport &report)
{
    const CResModel &model = input.document;
    ForEachName(input.facts->Ids(input), [&](const IDRecord &record) {
        const QString why = WhyInvalid(record.name);
        if (!why.isEmpty())
            AddForId(report, model, record, why);
    });
}

void IdCase(const CheckInput &input, RuleReport &report)
{
    const CResModel &model = input.document;
    std::vector<const IDRecord *> names;
    ForEachName(input.facts->Ids(input), [&](const IDRecord &record) { names.push_back(&record); });
    std::stable_sort(names.begin(), names.end(), [](const IDRecord *a, const IDRecord *b) {
        return a->name.compare(b->name, Qt::CaseInsensitive) < 0;
    });
    for (size_t i = 1; i < names.size(); ++i) {
        if (names[i - 1]->name.compare(names[i]->name, Qt::CaseInsensitive) != 0)
            continue;
        const QString other = model.env.NarrowToWide(names[i - 1]->name);
        AddForId(report, model, *names[i], u"the ID differs from %1 only in case"_s.arg(other),
                 HashOf(model.env.NarrowToWide(names[i]->name), HashOf(other)));
    }
}

std::unique_ptr<RuleInParts> BeginIdUnused()
{
    return std::make_unique<UnusedIds>();
}

void IdUndefined(const CheckInput &input, RuleReport &report)
{
    if (!CanCompareSources(input))
        return;
    const SourceNames &names = input.facts->Sources(input);
    for (const auto &[file, error] : names.unreadable)
        report.Add({.file = file, .text = u"the source can't be read: "_s + ReadFault(error)});
    for (const SourceNames::Unknown &unknown : names.unknown)
        report.Add({.file = unknown.file,
                    .line = unknown.line,
                    .id = QString::fromUtf8(unknown.name),
                    .text = u"no resource has this ID"_s,
                    .column = unknown.column});
}

void IdRenumbered(const CheckInput &input, RuleReport &report)
{
    if (input.oldHeader.isEmpty())
        return;
    QByteArray bytes;
    if (const int error = ReadFile(input.oldHeader, bytes)) {
        report.Add({.file = input.oldHeader, .text = u"the header can't be read: "_s + ReadFault(error)});
        return;
    }
    CResModel &model = input.document;
    const std::vector<IDRecord *> &sorted = input.facts->Ids(input);
    if (!FitInRanges(sorted))
        return;                          // "id-range"
    (void)FillSorted(model.env, sorted); // the same numbers as a save gives
    IdNumbers old;
    old.Read(bytes);
    if (old.All().empty())
        report.Add({.file = input.oldHeader, .text = u"there is no line \"#define NAME NUMBER\" in it"_s});
    const auto add = [&](const IdComparison::Old &id, const QString &text) {
        const QString name = model.env.NarrowToWide(id.name);
        report.Add(
            {.file = input.oldHeader, .line = id.line, .id = name, .text = text, .basis = HashOf(text, HashOf(name))});
    };
    const IdComparison compared = CompareIds(old, sorted);
    for (const IdComparison::Old &id : compared.changed)
        add(id, u"the number was %1 and is %2 now"_s.arg(id.before).arg(*id.now));
    for (const IdComparison::Old &id : compared.gone)
        add(id, u"the number was %1, and the project no longer has the ID"_s.arg(id.before));
}

void IdRangeUsedUp(const CheckInput &input, RuleReport &report)
{
    constexpr quint32 PER_CENT = 90;
    const std::vector<IDRecord *> &sorted = input.facts->Ids(input);
    const auto check = [&](const IdRange &range, const QString &what) {
        const quint32 used = CountIn(range, sorted);
        if (quint64(used) * 100 < quint64(range.Size()) * PER_CENT)
            return;
        report.Add({.file = input.document.PathName(),
                    .text = u"%1 of the %2 numbers of %3 are used"_s.arg(used).arg(range.Size()).arg(what),
                    .basis = HashOf(what)});
    };
    check(NORMAL_IDS, u"Normal resources"_s);
    for (const IdRange &range : PUSH_IDS)
        check(range, u"Push resources of the kind \"%1\""_s.arg(QLatin1StringView(range.what)));
}
