// SPDX-License-Identifier: MIT
#include "Formats.h"

#include "CsvGuard.h"
#include "TextBudget.h"

#include <QStringDecoder>

#include <algorithm>

namespace
{

constexpr qsizetype MEMORY_PER_BYTE = 8; // a cell of one character takes 17, a cell of five characters takes 7

/// Returns the failure for a file that isn't text of its encoding, with the line.
WorkbookResult FindBadLine(QByteArrayView utf8)
{
    int line = 1;
    for (qsizetype begin = 0; begin < utf8.size(); ++line) {
        qsizetype end = utf8.indexOf('\n', begin);
        end = end < 0 ? utf8.size() : end;
        if (!utf8.sliced(begin, end - begin).isValidUtf8())
            break;
        begin = end + 1;
    }
    return {WorkbookFault::Broken, QStringLiteral("line %1 isn't UTF-8: save it as CSV in UTF-8").arg(line)};
}

/// Decodes the text of the file: UTF-16 with a byte order mark, or UTF-8 with or without one.
WorkbookResult Decode(QByteArrayView file, QString &text)
{
    const auto encoding = QStringConverter::encodingForData(file).value_or(QStringConverter::Utf8);
    const bool isUtf16 = encoding == QStringConverter::Utf16LE || encoding == QStringConverter::Utf16BE;
    if (encoding != QStringConverter::Utf8 && !isUtf16)
        return {WorkbookFault::NoWorkbook, QStringLiteral("it isn't text in UTF-8 or UTF-16")};
    QStringDecoder decoder(encoding);
    text = decoder(file);
    if (text.contains(QChar(u'\0')))
        return {WorkbookFault::NoWorkbook, QStringLiteral("it isn't text: it contains a null character")};
    const bool isCut = isUtf16 && file.size() % 2 != 0;
    if (!decoder.hasError() && !isCut)
        return {};
    return isUtf16 ? WorkbookResult{WorkbookFault::Broken, QStringLiteral("it isn't UTF-16")} : FindBadLine(file);
}

bool IsLineEnd(QChar c)
{
    return c == u'\r' || c == u'\n';
}

/// Returns the separator: the one of comma, semicolon and tab that occurs most often in the first line, outside of
/// quotes.
QChar FindSeparator(QStringView text)
{
    static constexpr QStringView CANDIDATES = u",;\t";
    qsizetype counts[CANDIDATES.size()] = {};
    bool isQuoted = false;
    for (const QChar c : text) {
        if (c == u'"')
            isQuoted = !isQuoted;
        if (isQuoted)
            continue;
        if (IsLineEnd(c))
            break;
        if (const qsizetype candidate = CANDIDATES.indexOf(c); candidate >= 0)
            ++counts[candidate];
    }
    return CANDIDATES[std::max_element(std::begin(counts), std::end(counts)) - std::begin(counts)];
}

class CsvParser
{
public:
    CsvParser(QStringView all, qsizetype fileSize, Sheet &result)
        : text(all), separator(FindSeparator(all)), budget(fileSize, MEMORY_PER_BYTE), sheet(result)
    {
    }

    WorkbookResult Parse()
    {
        WorkbookResult result;
        while (at < text.size() && !result.HasFailed()) {
            result = sheet.IsStopped() ? WorkbookResult{WorkbookFault::Stopped, {}} : ReadField();
            if (at == text.size())
                break;
            const QChar end = text[at++];
            if (end == separator) {
                ++column;
                continue;
            }
            if (end == u'\r' && at < text.size() && text[at] == u'\n')
                ++at;
            EndRow();
        }
        const bool hasRest = at > 0 && !IsLineEnd(text[at - 1]);
        if (hasRest && row > HEADER_ROW && column + 1 < headerFields)
            sheet.cutRow = int(row) + 1;
        return result;
    }

private:
    static constexpr qsizetype HEADER_ROW = 1; // that has the names of the columns

    void EndRow()
    {
        if (row == HEADER_ROW)
            headerFields = column + 1;
        ++row;
        column = 0;
    }

    /// Reads up to the end of the field. Characters after a closing quote belong to the field unchanged.
    WorkbookResult ReadField()
    {
        field.resize(0);
        const qsizetype start = at;
        if (text[at] == u'"' && !ReadQuoted())
            return {WorkbookFault::Broken, QStringLiteral("line %1: a quote isn't closed").arg(LineAt(start))};
        const qsizetype rest = at;
        while (at < text.size() && text[at] != separator && !IsLineEnd(text[at]))
            ++at;
        field += text.sliced(rest, at - rest);
        const QStringView value = WithoutCsvGuard(field);
        if (value.isEmpty())
            return {};
        if (row >= Sheet::MOST_ROWS || column >= Sheet::MOST_COLUMNS)
            return {WorkbookFault::TooLarge,
                    QStringLiteral("line %1, column %2: a sheet has at most %3 rows and %4 columns")
                        .arg(LineAt(start))
                        .arg(column + 1)
                        .arg(Sheet::MOST_ROWS)
                        .arg(Sheet::MOST_COLUMNS)};
        if (!budget.GrantCell() || !budget.GrantText(value.size()))
            return {WorkbookFault::TooLarge,
                    QStringLiteral("line %1: the cells take too much memory").arg(LineAt(start))};
        sheet.Add(quint32(row), quint32(column), value);
        return {};
    }

    /// Reads a text in quotes, in which a doubled quote is one quote. False when the closing quote is missing.
    bool ReadQuoted()
    {
        for (++at;; ++at) {
            const qsizetype quote = text.indexOf(u'"', at);
            if (quote < 0)
                return false;
            field += text.sliced(at, quote - at);
            at = quote + 1;
            if (at == text.size() || text[at] != u'"')
                return true;
            field += u'"';
        }
    }

    [[nodiscard]] qsizetype LineAt(qsizetype place) const
    {
        qsizetype line = 1;
        for (qsizetype i = 0; i < place; ++i)
            line += text[i] == u'\n' || (text[i] == u'\r' && text[i + 1] != u'\n');
        return line;
    }

    QStringView text;
    QChar separator;
    TextBudget budget;
    Sheet &sheet;
    qsizetype at = 0;
    qsizetype row = 0;
    qsizetype column = 0;
    qsizetype headerFields = 0;
    QString field;
};

} // namespace

WorkbookResult ReadCsv(const QByteArray &file, Sheet &sheet)
{
    if (!sheet.wanted.isEmpty())
        return {WorkbookFault::Broken, QStringLiteral("a .csv file has no sheets to choose from")};
    QString text;
    const WorkbookResult result = Decode(file, text);
    return result.HasFailed() ? result : CsvParser(text, file.size(), sheet).Parse();
}
