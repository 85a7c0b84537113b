// SPDX-License-Identifier: MIT
#include "IdFinding.h"

#include "CResDoc.h"
#include "ListPositions.h"
#include "ProjectContext.h"
#include "ProjectLayouts.h"
#include "RowNotes.h"
#include "RuleReport.h"
#include "StringFileFormat.h"
#include "TextHash.h"

namespace
{

/// Returns a row's record in the Description folder, if the ID is that of a string.
const CStringRes *HeadOf(const IDRecord &record)
{
    for (const CBaseRes *res : Holders(record)) {
        const auto *const text = dynamic_cast<const CStringRes *>(res);
        if (text && text->Language() == StringFileFormat::DESCRIPTION)
            return text;
    }
    return nullptr;
}

bool IsString(CResModel &model, const QString &id)
{
    const IDRecord *const record = model.ids.FindName(model.env.WideToNarrow(id));
    return record && dynamic_cast<const CStringRes *>(record->holders);
}

/// Sets the place of each finding whose ID is in the file, and removes it from the list.
void PlaceIn(const ListPositions &positions, std::vector<Finding *> &findings)
{
    std::erase_if(findings, [&](Finding *finding) {
        const int line = positions.LineOf(finding->id);
        if (line == 0)
            return false;
        finding->file = positions.File();
        finding->line = line;
        return true;
    });
}

} // namespace

void AddForId(RuleReport &report, const CResModel &model, const IDRecord &record, const QString &text, quint64 basis)
{
    Finding finding{.id = model.env.NarrowToWide(record.name), .text = text};
    finding.basis = basis != 0 ? basis : HashOf(finding.id);
    const CStringRes *const head = HeadOf(record);
    if (head)
        report.AddForRow(NotesOf(head->Text()), std::move(finding));
    else
        report.Add(std::move(finding));
}

void PlaceInLists(CResDoc &document, std::vector<Finding> &findings)
{
    std::vector<Finding *> unplaced;
    for (Finding &finding : findings) {
        if (finding.file.isEmpty() && !finding.id.isEmpty() && !IsString(document, finding.id))
            unplaced.push_back(&finding);
    }
    const ListPositions list(document);
    PlaceIn(list, unplaced);
    const ProjectPaths paths(document.PathName(), document.env);
    for (const NarrowText &path : unplaced.empty() ? QByteArrayList() : LayoutFiles(document))
        PlaceIn(ListPositions(document.env, paths.Absolute(document.env.NarrowToWide(path))), unplaced);
    for (Finding *finding : unplaced)
        finding->file = list.File();
}
