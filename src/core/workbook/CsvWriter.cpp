// SPDX-License-Identifier: MIT
#include "Formats.h"

#include "CsvGuard.h"
#include "Utf8.h"

#include <algorithm>

namespace
{

constexpr char BYTE_ORDER_MARK[] = "\xEF\xBB\xBF";

/// Returns whether a text is written in quotes. The standard requires none for blanks at the ends and for separators of
/// other locales, but not all readers follow it.
bool NeedsQuotes(QStringView text)
{
    return text.front().isSpace() || text.back().isSpace() || std::any_of(text.begin(), text.end(), [](QChar c) {
               return c == u'"' || c == u',' || c == u';' || c == u'\t' || c == u'\r' || c == u'\n';
           });
}

void AppendField(QStringView text, QString &line)
{
    if (text.isEmpty())
        return;
    const qsizetype start = line.size();
    if (NeedsCsvGuard(text))
        line += u'\'';
    line += text;
    if (!NeedsQuotes(QStringView(line).sliced(start)))
        return;
    const QString field = line.sliced(start).replace(u'"', QLatin1String("\"\""));
    line.truncate(start);
    line += u'"' + field + u'"';
}

} // namespace

/// A text file can't contain a zero character: it becomes U+FFFD, and so does a lone surrogate.
WorkbookResult WriteCsv(ISheetSource &source, std::FILE *file)
{
    if (source.RowCount() > Sheet::MOST_ROWS || source.ColumnCount() > int(Sheet::MOST_COLUMNS))
        return {WorkbookFault::TooLarge,
                QStringLiteral("%1 rows and %2 columns are too many: a sheet has at most %3 rows and %4 columns")
                    .arg(source.RowCount())
                    .arg(source.ColumnCount())
                    .arg(Sheet::MOST_ROWS)
                    .arg(Sheet::MOST_COLUMNS)};
    std::fputs(BYTE_ORDER_MARK, file);
    QString line;
    for (qint64 row = 0; row < source.RowCount(); ++row) {
        const std::span<const QStringView> texts = source.Row(row);
        line.resize(0);
        for (int column = 0; column < source.ColumnCount(); ++column) {
            if (column > 0)
                line += u',';
            if (size_t(column) < texts.size())
                AppendField(texts[size_t(column)], line);
        }
        line.replace(QChar(u'\0'), QChar(QChar::ReplacementCharacter));
        line += QLatin1String("\r\n");
        const QByteArray bytes = ToUtf8(line);
        std::fwrite(bytes.data(), 1, size_t(bytes.size()), file);
    }
    return {};
}
