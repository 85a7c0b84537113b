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
#include "StringFile.h"

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

} // namespace

void HeaderStale(const CheckInput &input, RuleReport &report)
{
    CResDoc &document = input.document;
    if (document.IsModified() || !CanMakeHeaders(input))
        return; // a save is needed anyway, or another rule reports this
    const QString folder = document.env.settings.String("Path", "header_output", ".\\ResID");
    std::vector<GeneratedHeader> headers;
    if (IDGen::MakeHeaders(&document.ids, folder, document, headers) != 0)
        return;
    for (const GeneratedHeader &header : headers) {
        const QString file = ResolvePath(header.path, DirectoryOf(document.PathName()));
        Compare(file, header.text, 1, u"the header isn't up to date: a save would change it from this line on"_s,
                report);
    }
}

void ListsUnsaved(const CheckInput &input, RuleReport &report)
{
    CResDoc &document = input.document;
    if (document.IsModified() || HasLeftSomethingOut(input.loaded))
        return; // a save is needed anyway, or would lose something; another rule reports that
    const QString text = u"a save would change the file, from this line on"_s;
    const ProjectPaths paths(document.PathName(), document.env);
    Compare(paths.Absolute(paths.ResourcePath()), MakeResourceList(document), 1, text, report);
    const CResFolder *const strings = document.root.FindFolder(KIND_STRINGS, 2);
    if (!strings || strings->subfolders.empty())
        return;
    const QString saved = MakeStringFile(document);
    const QByteArrayView bytes(reinterpret_cast<const char *>(saved.constData()),
                               saved.size() * qsizetype(sizeof(QChar)));
    Compare(paths.Absolute(paths.StringPath()), bytes, sizeof(QChar), text, report);
}
