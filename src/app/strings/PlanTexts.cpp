#include "PlanTexts.h"

#include "StringTable.h"

namespace
{

constexpr size_t SHOWN_CHANGES = 5;
constexpr qsizetype SHOWN_LINES = 5;
constexpr qsizetype SHOWN_TEXT = 40; // characters

QString Short(QString text)
{
    text.replace(u'\n', u' ').replace(u'\r', u' ');
    if (text.size() <= SHOWN_TEXT)
        return text;
    const bool isSplit = text[SHOWN_TEXT - 1].isHighSurrogate();
    return text.left(isSplit ? SHOWN_TEXT - 1 : SHOWN_TEXT) + QChar(0x2026);
}

QString ColumnTitle(const StringTable &table, int col)
{
    if (col == StringTable::KIND_COLUMN)
        return QStringLiteral("Resource Type");
    const CResFolder *const folder = table.ColumnLanguage(col);
    return col == StringTable::DESCRIPTION_COLUMN || !folder ? QStringLiteral("Description") : folder->title;
}

} // namespace

QString PlanText(const StringTable &table, const std::vector<CellChange> &changes, const std::vector<NewRow> &rows,
                 const QStringList &refused)
{
    QString text = QStringLiteral("%1 cell(s) will change").arg(changes.size());
    text += rows.empty() ? QStringLiteral(". Continue?")
                         : QStringLiteral(", and %1 row(s) will be added. Continue?").arg(rows.size());
    for (size_t i = 0; i < changes.size() && i < SHOWN_CHANGES; ++i) {
        const CellChange &change = changes[i];
        text +=
            QStringLiteral("\n%1%2, %3: \"%4\" becomes \"%5\"")
                .arg(i == 0 ? QStringLiteral("\n") : QString(), table.CellText(change.row, StringTable::ID_COLUMN),
                     ColumnTitle(table, change.col), Short(table.CellText(change.row, change.col)), Short(change.text));
    }
    if (changes.size() > SHOWN_CHANGES)
        text += QStringLiteral("\n...");
    if (refused.isEmpty())
        return text;
    text += QStringLiteral("\n\nNot taken:\n") + refused.mid(0, SHOWN_LINES).join(u'\n');
    if (refused.size() > SHOWN_LINES)
        text += QStringLiteral("\n... and %1 more").arg(refused.size() - SHOWN_LINES);
    return text;
}
