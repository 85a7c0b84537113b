// SPDX-License-Identifier: MIT
#include "IdFinding.h"

#include "CResDoc.h"
#include "LayoutFault.h"
#include "Paths.h"
#include "ProjectContext.h"
#include "ProjectLayouts.h"
#include "RowNotes.h"
#include "RuleReport.h"
#include "StringFileFormat.h"
#include "TextHash.h"
#include "Xml.h"

#include <QHash>

namespace
{

/// Returns a row's record in the Description folder, if the ID is that of a string.
const CStringRes *HeadOf(const IDRecord &record)
{
    for (const CBaseRes *res = record.holders; res; res = res->NextHolder()) {
        const auto *const text = dynamic_cast<const CStringRes *>(res);
        if (text && text->language == StringFileFormat::DESCRIPTION)
            return text;
    }
    return nullptr;
}

bool IsString(CResModel &model, const QString &id)
{
    const IDRecord *const record = model.ids.FindName(model.env.WideToNarrow(id));
    return record && dynamic_cast<const CStringRes *>(record->holders);
}

/// Collects the first row of each ID in an XML file.
void CollectRows(const TiXmlElement &element, QHash<QString, int> &rows)
{
    ForEachChild(element, [&](const TiXmlElement &child) {
        if (const char *const id = child.Attribute("id")) {
            int &row = rows[QString::fromUtf8(id)];
            row = row > 0 ? row : RowOf(child);
        }
        CollectRows(child, rows);
    });
}

/// Sets the row of each finding whose ID is in the file, and removes it from the list.
void PlaceIn(CResDoc &document, const QString &path, std::vector<Finding *> &findings)
{
    TiXmlDocument xml;
    const TiXmlElement *const root =
        findings.empty() || LoadXml(document.env, path, xml) != 0 ? nullptr : xml.RootElement();
    if (!root)
        return;
    QHash<QString, int> rows;
    CollectRows(*root, rows);
    std::erase_if(findings, [&](Finding *finding) {
        const auto row = rows.constFind(finding->id);
        if (row == rows.constEnd())
            return false;
        finding->file = path;
        finding->line = *row;
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
        report.AddForRow(NotesOf(head->text), std::move(finding));
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
    const ProjectPaths paths(document.PathName(), document.env);
    const QString list = paths.Absolute(paths.ResourcePath());
    PlaceIn(document, list, unplaced);
    for (const NarrowText &path : unplaced.empty() ? QByteArrayList() : LayoutFiles(document))
        PlaceIn(document, paths.Absolute(document.env.NarrowToWide(path)), unplaced);
    for (Finding *finding : unplaced)
        finding->file = list;
}
