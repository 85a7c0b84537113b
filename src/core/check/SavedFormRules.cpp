// SPDX-License-Identifier: MIT
#include "SavedFormRules.h"

#include "CResDoc.h"
#include "CheckFacts.h"
#include "CheckInput.h"
#include "HostFiles.h"
#include "IDGen.h"
#include "IdRanges.h"
#include "LoadRules.h"
#include "Paths.h"
#include "ProjectContext.h"
#include "ProjectLayouts.h"
#include "RuleReport.h"
#include "StringFileComparison.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

/// Returns the first line, from 1, in which two texts of units with `width` bytes differ.
int FirstDifference(QByteArrayView a, QByteArrayView b, qsizetype width)
{
    const qsizetype common = std::min(a.size(), b.size());
    const qsizetype same = std::mismatch(a.begin(), a.begin() + common, b.begin()).first - a.begin();
    int line = 1;
    for (qsizetype at = 0; at + width <= same; at += width)
        line += a[at] == '\n' && (width == 1 || a[at + 1] == 0);
    return line;
}

bool HasControlCharacter(const NarrowText &name)
{
    return std::any_of(name.begin(), name.end(), [](char c) { return quint8(c) < 0x20 || c == 0x7F; });
}

/// Returns whether a save would write headers, and could number all IDs.
bool CanMakeHeaders(const CheckInput &input)
{
    const std::vector<IDRecord *> &sorted = input.facts->Ids(input);
    return MissingLayouts(input.document).isEmpty() && FitInRanges(sorted) &&
           std::none_of(sorted.begin(), sorted.end(),
                        [](const IDRecord *record) { return HasControlCharacter(record->name); });
}

/// Compares a file with the bytes that a save would write. A file that doesn't exist isn't out of date.
void Compare(const QString &file, QByteArrayView saved, qsizetype width, const QString &text, RuleReport &report)
{
    QByteArray bytes;
    if (ReadFile(file, bytes) == 0 && bytes != saved)
        report.Add({.file = file, .line = FirstDifference(bytes, saved, width), .text = text});
}

/// Compares the lists with what a save would write: first the resource list, then the rows of the string file.
class ListComparison final : public RuleInParts
{
public:
    bool Step(const CheckInput &input, RuleReport &report) override
    {
        CResDoc &document = input.document;
        if (document.IsModified() || HasLeftSomethingOut(input.loaded))
            return false; // a save is needed anyway, or would lose something; another rule reports that
        if (!strings)
            return Begin(input, report);
        if (document.ids.Departures() != departures)
            return false; // the next row may be gone
        constexpr int ROWS = 1000;
        const bool hasMore = strings->Step(ROWS);
        if (strings->DifferentLine() > 0)
            report.Add({.file = file, .line = strings->DifferentLine(), .text = TEXT});
        return hasMore;
    }

private:
    bool Begin(const CheckInput &input, RuleReport &report)
    {
        CResDoc &document = input.document;
        const ProjectPaths paths(document.PathName(), document.env);
        Compare(paths.Absolute(paths.ResourcePath()), MakeResourceList(document), 1, TEXT, report);
        const CResFolder *const folder = document.root.FindFolder(KIND_STRINGS, 2);
        file = paths.Absolute(paths.StringPath());
        QByteArray bytes;
        if (!folder || folder->subfolders.empty() || ReadFile(file, bytes) != 0)
            return false;
        departures = document.ids.Departures();
        strings.emplace(document, std::move(bytes));
        return true;
    }

    static inline const QString TEXT = u"a save would change the file, from this line on"_s;
    QString file; // the string file
    quint64 departures = 0;
    std::optional<StringFileComparison> strings;
};

/// Compares the headers with what a save would write: makes them all, and then compares one in each part.
class HeaderComparison final : public RuleInParts
{
public:
    bool Step(const CheckInput &input, RuleReport &report) override
    {
        CResDoc &document = input.document;
        if (document.IsModified())
            return false; // a save is needed anyway
        if (!canMake) {
            canMake = CanMakeHeaders(input);
            return canMake; // otherwise another rule reports this
        }
        if (headers.empty()) {
            const QString folder = document.env.settings.String("Path", "header_output", ".\\ResID");
            return IDGen::MakeHeaders(input.facts->Ids(input), folder, document, headers) == 0 && !headers.empty();
        }
        const GeneratedHeader &header = headers[next++];
        Compare(ResolvePath(header.path, DirectoryOf(document.PathName())), header.text, 1,
                u"the header isn't up to date: a save would change it from this line on"_s, report);
        return next < headers.size();
    }

private:
    bool canMake = false;
    std::vector<GeneratedHeader> headers;
    size_t next = 0; // of the headers
};

} // namespace

std::unique_ptr<RuleInParts> BeginHeaderStale()
{
    return std::make_unique<HeaderComparison>();
}

std::unique_ptr<RuleInParts> BeginListsUnsaved()
{
    return std::make_unique<ListComparison>();
}
