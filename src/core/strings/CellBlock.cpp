// SPDX-License-Identifier: MIT
#include "CellBlock.h"

#include <algorithm>

namespace
{

bool IsLineEnd(QChar c)
{
    return c == u'\n' || c == u'\r';
}

QString Quoted(const QString &cell)
{
    const bool needsQuotes = cell.startsWith(u'"') ||
                             std::any_of(cell.begin(), cell.end(), [](QChar c) { return c == u'\t' || IsLineEnd(c); });
    return needsQuotes ? u'"' + QString(cell).replace(u'"', QStringLiteral("\"\"")) + u'"' : cell;
}

/// Reads the cells of a text from left to right.
class TsvCursor
{
public:
    explicit TsvCursor(QStringView tsv) : text(tsv) {}

    [[nodiscard]] bool AtEnd() const { return at == text.size(); }

    /// Returns the next cell. Sets `isLast` to whether its line ends after it.
    QString Next(bool &isLast)
    {
        QString cell;
        if (!TakeQuoted(cell)) {
            qsizetype end = at;
            while (end < text.size() && text[end] != u'\t' && !IsLineEnd(text[end]))
                ++end;
            cell = text.sliced(at, end - at).toString();
            at = end;
        }
        isLast = AtEnd() || text[at] != u'\t';
        if (text.sliced(at).startsWith(u"\r\n"))
            ++at;
        if (!AtEnd())
            ++at;
        return cell;
    }

private:
    /// Reads a cell in quotes. If there is none here, returns false and doesn't move. Looks at each character for at
    /// most two cells, because a quote that doesn't close a cell ends the search for all cells before it.
    bool TakeQuoted(QString &cell)
    {
        if (AtEnd() || text[at] != u'"')
            return false;
        for (qsizetype end = at + 1; (end = text.indexOf(u'"', end)) >= 0; end += 2) {
            const bool isDoubled = end + 1 < text.size() && text[end + 1] == u'"';
            if (isDoubled)
                continue;
            if (end + 1 < text.size() && text[end + 1] != u'\t' && !IsLineEnd(text[end + 1]))
                return false;
            cell = text.sliced(at + 1, end - at - 1).toString().replace(QStringLiteral("\"\""), QStringLiteral("\""));
            at = end + 1;
            return true;
        }
        return false;
    }

    QStringView text;
    qsizetype at = 0;
};

} // namespace

QString ToTsv(const CellRows &cells)
{
    if (cells.size() == 1 && cells[0].size() == 1)
        return cells[0][0];
    QString tsv;
    for (const QStringList &line : cells) {
        for (qsizetype n = 0; n < line.size(); ++n)
            tsv.append(n > 0 ? QStringView(u"\t") : QStringView()).append(Quoted(line[n]));
        tsv += u'\n';
    }
    return tsv;
}

CellRows FromTsv(QStringView text)
{
    CellRows rows;
    TsvCursor cursor(text);
    do {
        QStringList &line = rows.emplace_back();
        for (bool isLast = false; !isLast;)
            line << cursor.Next(isLast);
    } while (!cursor.AtEnd());
    return rows;
}

CellRows CellsOf(const StringTable &table, const std::vector<int> &rows, const std::vector<int> &columns)
{
    CellRows cells;
    if (columns.size() > 1) {
        QStringList &titles = cells.emplace_back();
        for (const int col : columns)
            titles << table.ColumnTitle(col);
    }
    for (const int row : rows) {
        QStringList &line = cells.emplace_back();
        for (const int col : columns)
            line << table.CellText(row, col);
    }
    return cells;
}
