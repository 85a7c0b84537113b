// SPDX-License-Identifier: MIT
#include "MergeTable.h"

#include "FieldCursor.h"
#include "LanguageTable.h"
#include "StringFileFormat.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace StringFileFormat;

/// Reads the lines of a text, as far as they end in a line feed.
class MergeTable::Lines
{
public:
    explicit Lines(QStringView text) : rest(text) {}

    bool Next()
    {
        ++number;
        const qsizetype feed = rest.indexOf(u'\n');
        line = rest.first(feed + 1);
        rest = rest.sliced(feed + 1);
        return feed >= 0;
    }
    [[nodiscard]] QString At(const QString &problem) const { return u"line %1: %2"_s.arg(number).arg(problem); }

    QStringView line;
    QStringView rest;
    int number = 0;
};

namespace
{

QString WrongLine(QStringView expected)
{
    return u"\"%1\" is expected, so this isn't a string file"_s.arg(expected);
}

/// Returns whether all remaining fields are empty.
bool IsBlank(FieldCursor fields)
{
    while (!fields.AtEnd()) {
        if (!fields.Next().isEmpty())
            return false;
    }
    return true;
}

QStringView WithoutEnd(QStringView line)
{
    return MergeTable::Row{{}, line, 0}.Body();
}

} // namespace

QString MergeTable::Read(const Environment &env, const QString &text)
{
    if (text.isEmpty())
        return {};
    Lines file(text);
    if (const QString problem = ReadHeader(env, file); !problem.isEmpty())
        return file.At(problem);
    while (file.Next()) {
        FieldCursor fields(file.line);
        if (EqualsNoCase(fields.Next(), END_WORD)) {
            (void)fields.Next(); // the number of rows
            const bool isEnd = IsBlank(fields) && file.rest.trimmed().isEmpty();
            return isEnd ? QString() : file.At(u"there is text after the row %1, which nothing reads"_s.arg(END_WORD));
        }
        if (const QString problem = ReadRow(file.line, file.number); !problem.isEmpty())
            return file.At(problem);
    }
    return file.At(u"the file ends before a complete row %1; is it cut short?"_s.arg(END_WORD));
}

QString MergeTable::ReadHeader(const Environment &env, Lines &file)
{
    if (!file.Next())
        return WrongLine(COUNT_WORD);
    lines[0] = WithoutEnd(file.line);
    FieldCursor fields(file.line);
    if (!fields.Next().contains(COUNT_WORD))
        return WrongLine(COUNT_WORD);
    const int count = std::max(LeadingNumber(fields.Next()), 0);
    if (!IsBlank(fields))
        return u"there is text after the number of languages, which nothing reads"_s;
    if (!file.Next())
        return WrongLine(ID_WORD);
    lines[1] = WithoutEnd(file.line);
    if (const QString problem = ReadColumns(env, file.line); !problem.isEmpty())
        return problem;
    if (size_t(count) != columns.size())
        return u"there are %1 languages, and line 1 says %2"_s.arg(columns.size()).arg(count);
    return {};
}

QString MergeTable::ReadColumns(const Environment &env, QStringView line)
{
    FieldCursor fields(line);
    if (fields.Next() != ID_WORD)
        return WrongLine(ID_WORD);
    QStringView field = fields.Next();
    hasType = field == TYPE_WORD;
    if (hasType)
        field = fields.Next();
    if (field != DESCRIPTION_WORD)
        return WrongLine(DESCRIPTION_WORD);
    while (!IsBlank(fields)) {
        field = fields.Next();
        QString name = field.toString();
        const int number = ParseLanguageHeader(env, name);
        if (number == -1)
            return u"the language \"%1\" has no number, and tuvik.ini doesn't know it"_s.arg(Cut(field));
        if (std::any_of(columns.begin(), columns.end(), [&](const Column &other) { return other.number == number; }))
            return u"two columns have the language number %1"_s.arg(number);
        columns.push_back({number, field});
    }
    return {};
}

QString MergeTable::ReadRow(QStringView line, int lineNumber)
{
    FieldCursor fields(line);
    const QStringView id = fields.Next();
    if (id.isEmpty())
        return IsBlank(fields) ? QString() : u"the row has no ID"_s;
    const size_t most = 1 + size_t(hasType) + 1 + columns.size(); // fields
    const QStringView body = WithoutEnd(line);
    const auto ends = std::count_if(body.begin(), body.end(), [](QChar c) { return c == u'\t' || c == u'\r'; });
    if (size_t(ends) >= most) {
        for (size_t i = 1; i < most; ++i)
            (void)fields.Next();
        if (!IsBlank(fields))
            return u"the row of %1 has more fields than line 2"_s.arg(Cut(id));
    }
    rows.push_back({id, line, lineNumber});
    return {};
}

void MergeTable::Split(const Row &row, std::vector<QStringView> &cells) const
{
    FieldCursor fields(row.line);
    (void)fields.Next();
    cells.resize(FIRST_LANGUAGE + columns.size());
    cells[TYPE] = hasType ? fields.Next() : NORMAL_WORD;
    for (size_t i = DESCRIPTION; i < cells.size(); ++i)
        cells[i] = fields.Next();
}
