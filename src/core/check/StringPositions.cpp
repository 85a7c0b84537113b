// SPDX-License-Identifier: MIT
#include "StringPositions.h"

#include "CResDoc.h"
#include "FieldCursor.h"
#include "HostFiles.h"
#include "LanguageTable.h"
#include "ProjectContext.h"
#include "StringFileFormat.h"
#include "Utf16Lines.h"

#include <QHash>

#include <algorithm>

namespace
{

/// Returns the column, from 1, in which the field with an index begins; 0 if the row has no such field.
int ColumnOfField(QStringView line, int index)
{
    FieldCursor fields(line);
    for (int i = 0; !fields.AtEnd(); ++i) {
        const QStringView field = fields.Next();
        if (i == index)
            return int(field.utf16() - line.utf16()) + 1;
    }
    return 0;
}

/// The columns of a string file: how many are before the first language (files of older versions have no column of
/// types), and the languages.
struct Columns
{
    int first = 0;
    std::vector<int> languages; // numbers; -1 for a header that isn't that of a language
};

Columns ColumnsOf(const Environment &env, QStringView line)
{
    Columns columns;
    FieldCursor fields(line);
    bool isBehindDescription = false;
    while (!fields.AtEnd()) {
        QString field = fields.Next().toString();
        if (isBehindDescription)
            columns.languages.push_back(field.isEmpty() ? -1 : ParseLanguageHeader(env, field));
        else
            ++columns.first;
        isBehindDescription = isBehindDescription || field == StringFileFormat::DESCRIPTION_WORD;
    }
    return columns;
}

/// Returns the column of a language's text in a row, from 1; 0 if the row has no field for it.
int ColumnIn(QStringView line, const Columns &columns, qint32 language)
{
    const auto found = std::find(columns.languages.begin(), columns.languages.end(), language);
    return found == columns.languages.end()
               ? 0
               : ColumnOfField(line, columns.first + int(found - columns.languages.begin()));
}

} // namespace

void PlaceInStringFile(CResDoc &document, std::vector<Finding> &findings)
{
    QHash<QString, QList<Finding *>> byId;
    for (Finding &finding : findings) {
        if (finding.file.isEmpty() && !finding.id.isEmpty())
            byId[finding.id].append(&finding);
    }
    if (byId.isEmpty())
        return;
    const ProjectPaths paths(document.PathName(), document.env);
    const QString path = paths.Absolute(paths.StringPath());
    for (const QList<Finding *> &ofRow : byId) {
        for (Finding *finding : ofRow)
            finding->file = path;
    }
    const FileHandle file = OpenRead(path);
    if (!file.IsOpen())
        return;
    Utf16Lines lines([&](void *buffer, size_t size) { return file.Read(buffer, size); });
    Columns columns;
    QStringView line;
    for (int number = 1; lines.Next(line); ++number) {
        if (number == 2)
            columns = ColumnsOf(document.env, line);
        if (number <= 2)
            continue;
        const auto row = byId.constFind(FieldCursor(line).Next().toString());
        if (row == byId.constEnd())
            continue;
        for (Finding *finding : *row) {
            if (finding->line > 0)
                continue; // of an earlier row with the same ID
            finding->line = number;
            if (finding->language >= 0)
                finding->column = ColumnIn(line, columns, finding->language);
            else if (finding->column > 0)
                finding->column += ColumnOfField(line, columns.first - 1) - 1;
            else
                finding->column = 1;
        }
    }
}
