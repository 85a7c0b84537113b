// SPDX-License-Identifier: MIT
#include "ImportListing.h"

namespace
{

constexpr const char *WORDS[] = {"filled",  "new",     "same",  "kept",      "replaced",
                                 "nowhere", "refused", "stale", "unfinished"};
static_assert(std::size(WORDS) == IMPORT_FATES);

/// Escapes a text to fit on one line and in one field.
QString OnOneLine(QString text)
{
    return text.replace(u'\\', QStringLiteral("\\\\"))
        .replace(u'\t', QStringLiteral("\\t"))
        .replace(u'\n', QStringLiteral("\\n"))
        .replace(u'\r', QStringLiteral("\\r"));
}

constexpr bool ShowsTable(CellFate fate)
{
    return fate == CellFate::Kept || fate == CellFate::Replaced;
}

} // namespace

void ImportLines::RowPlanned(const ImportPlan &plan, size_t index)
{
    for (const ImportPlan::Cell &cell : plan.Cells(index)) {
        QString line = QString::fromLatin1(WORDS[int(cell.fate)]) + u'\t' +
                       plan.Source().PlaceOf(cell.row, cell.column).name + u'\t' + OnOneLine(cell.inSource);
        if (ShowsTable(cell.fate))
            line += u'\t' + OnOneLine(cell.inTable);
        out.Print(line + QStringLiteral("\r\n"));
    }
}

ImportJson::ImportJson(StandardOutput &output) : out(output)
{
    json.BeginObject();
    json.Key("version");
    json.Number(1);
    json.Key("cells");
    json.BeginArray();
}

void ImportJson::RowPlanned(const ImportPlan &plan, size_t index)
{
    const std::vector<ImportPlan::Cell> cells = plan.Cells(index);
    for (const ImportPlan::Cell &cell : cells) {
        ++counts[size_t(cell.fate)];
        json.BeginObject();
        json.Key("fate");
        json.String(QString::fromLatin1(WORDS[int(cell.fate)]));
        json.Key("place");
        json.String(plan.Source().PlaceOf(cell.row, cell.column).name);
        json.Key("id");
        json.String(plan.Source().Id(cell.row));
        if (const std::optional<qint32> language = plan.LanguageOf(cell.column)) {
            json.Key("language");
            json.Number(*language);
        }
        json.Key("text");
        json.String(cell.inSource);
        if (ShowsTable(cell.fate)) {
            json.Key("in_table");
            json.String(cell.inTable);
        }
        json.EndObject();
    }
    out.WriteBytes(bytes);
    bytes.resize(0);
}

void ImportJson::End()
{
    json.EndArray();
    json.Key("counts");
    json.BeginObject();
    for (size_t i = 0; i < counts.size(); ++i) {
        json.Key(WORDS[i]);
        json.Number(counts[i]);
    }
    json.EndObject();
    json.EndObject();
    out.WriteBytes(bytes + '\n');
}
