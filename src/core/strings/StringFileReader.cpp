#include "StringFileReader.h"

#include "Environment.h"
#include "FieldCursor.h"
#include "FileFault.h"
#include "HostFiles.h"
#include "IdNames.h"
#include "LanguageTable.h"
#include "Paths.h"
#include "ResModel.h"
#include "RowBuilder.h"
#include "StringFile.h"
#include "StringFileFormat.h"

#include <algorithm>
#include <cerrno>

using namespace Qt::StringLiterals;
using namespace StringFileFormat;

namespace
{

constexpr qint64 MAX_EXPECTED_ROWS = 1 << 17; // a first row of a few characters promises too many

/// True when a field that is left has something in it.
bool HasText(FieldCursor fields)
{
    while (!fields.AtEnd()) {
        if (!fields.Next().isEmpty())
            return true;
    }
    return false;
}

} // namespace

int ReadStringFile(const QString &path, CResModel &document)
{
    const FileHandle file = FileHandle::OpenRead(path);
    if (!file.IsOpen()) {
        const QString why = WhyNotRead(path, errno);
        document.env.WriteOutput("Error %d: failed to open file \"%s\".\r\n", ++document.env.ErrorCount,
                                 Shown(path).constData());
        document.env.Explain(why);
        return CANT_OPEN;
    }
    document.env.WriteOutput("Loading strings from \"%s\"...\r\n", Shown(path).constData());
    document.env.FlushOutput();
    const QString absolute = ResolvePath(path, CurrentFolder());
    StringFileReader reader(
        document, [&](void *buffer, size_t size) { return file.Read(buffer, size); }, absolute);
    const int code = reader.Read(file.Size());
    if (!reader.Problem().isEmpty())
        document.env.Explain(QStringLiteral("\"%1\": %2").arg(QString::fromUtf8(HostPath(absolute)), reader.Problem()));
    return code;
}

int StringFileReader::Read(qint64 size)
{
    int languages = 0;
    int code = ReadCount(languages);
    if (code == OK)
        code = ReadColumns(languages);
    return code == OK ? ReadRows(size) : code;
}

bool StringFileReader::NextLine(QStringView &line)
{
    ++lineNumber;
    return lines.Next(line);
}

void StringFileReader::Drop(const QString &why)
{
    ++document.env.DroppedCount;
    document.findings.Add(file, lineNumber, why);
}

int StringFileReader::LineError()
{
    document.env.WriteOutput("Error %d: failed to read a new line.\r\n", ++document.env.ErrorCount);
    return CANT_READ_LINE;
}

int StringFileReader::HeaderError(int line, QStringView expected)
{
    document.env.WriteOutput("Error %d: invalid file format; \"%s\" expected at line %d.\r\n",
                             ++document.env.ErrorCount, Shown(expected).constData(), line);
    return WRONG_HEADER;
}

int StringFileReader::ReadCount(int &languages)
{
    QStringView line;
    if (!NextLine(line))
        return LineError();
    FieldCursor fields(line);
    if (!fields.Next().contains(COUNT_WORD))
        return HeaderError(1, COUNT_WORD);
    languages = LeadingNumber(fields.Next());
    if (languages <= 0) {
        document.env.WriteOutput("Warning %d: %s = %d.\r\n", ++document.env.WarningCount, Shown(COUNT_WORD).constData(),
                                 languages);
        languages = 0;
    }
    DropFurther(fields);
    return OK;
}

int StringFileReader::ReadColumns(int languages)
{
    QStringView line;
    if (!NextLine(line))
        return LineError();
    FieldCursor fields(line);
    if (fields.Next() != ID_WORD)
        return HeaderError(2, ID_WORD);
    QStringView field = fields.Next();
    if (EqualsNoCase(field, TYPE_WORD)) {
        hasType = true;
        if (field != TYPE_WORD)
            return HeaderError(2, TYPE_WORD);
        field = fields.Next();
    }
    if (field != DESCRIPTION_WORD)
        return HeaderError(2, DESCRIPTION_WORD);
    isReload = folders.HaveStrings();
    columns.push_back(&folders.Ensure(DESCRIPTION, QString()));

    std::unordered_set<const CResFolder *> seen;
    // The count may be any number; the line's fields are what ends this.
    for (int i = 0; i < languages; ++i) {
        QString name = fields.Next().toString();
        const bool isShort = name.isEmpty() && fields.AtEnd();
        const int number = ParseLanguageHeader(document.env, name);
        if (number == -1) {
            if (isShort)
                problem =
                    QStringLiteral("line 1 says that there are %1 languages, and line 2 has %2").arg(languages).arg(i);
            document.env.WriteOutput("Error %d: language \"%s\" is unrecognized.\r\n", ++document.env.ErrorCount,
                                     Shown(name).constData());
            return UNKNOWN_LANGUAGE;
        }
        columns.push_back(&folders.Ensure(number, name));
        repeated |= !seen.insert(columns.back()).second;
    }
    while (!fields.AtEnd()) {
        if (const QStringView name = fields.Next(); !name.isEmpty()) {
            Drop(u"the language %1 is left out: line 1 has a count of %2"_s.arg(Cut(name)).arg(languages));
        }
    }
    return OK;
}

int StringFileReader::ReadRows(qint64 size)
{
    QStringView line;
    while (NextLine(line)) {
        if (size > 0) {
            document.ids.Reserve(size_t(qMin(size / (line.size() * 2), MAX_EXPECTED_ROWS)));
            size = 0;
        }
        if (FieldCursor fields(line); EqualsNoCase(fields.Next(), END_WORD)) {
            (void)fields.Next(); // the number of rows
            DropFurther(fields);
            DropRest();
            return OK;
        }
        ReadRow(line);
    }
    return LineError();
}

void StringFileReader::DropFurther(FieldCursor &fields)
{
    while (!fields.AtEnd()) {
        if (const QStringView field = fields.Next(); !field.isEmpty())
            Drop(u"\"%1\" is left out: this line has only a number"_s.arg(Cut(field)));
    }
}

void StringFileReader::DropRest()
{
    const auto look = [this](QStringView line) {
        if (!line.trimmed().isEmpty())
            Drop(u"what is behind the row %1 isn't read"_s.arg(END_WORD));
    };
    QStringView line;
    while (NextLine(line))
        look(line);
    look(lines.Rest());
}

void StringFileReader::Overwrite(CStringRes &cell, QStringView text)
{
    const bool isSecond = !isReload || !read.insert(&cell).second;
    if (cell.text == text)
        return;
    if (isSecond && !cell.text.isEmpty())
        Drop(u"the text \"%1\" of %2 is left out: \"%3\" comes behind it for the same ID and language"_s.arg(
            Cut(cell.text), document.env.NarrowToWide(cell.Id()->name), Cut(text)));
    cell.SetText(text.toString());
}

void StringFileReader::ReadRow(QStringView line)
{
    Environment &env = document.env;
    FieldCursor fields(line);
    const QStringView id = fields.Next();
    const QStringView type = hasType ? fields.Next() : QStringView();
    if (id.isEmpty()) {
        if (HasText(fields))
            Drop(u"the row is left out: it has no ID"_s);
        return;
    }
    const bool push = EqualsNoCase(type, PUSH_WORD);
    if (hasType && !push && !EqualsNoCase(type, NORMAL_WORD)) {
        env.WriteOutput("Error %d: invalid resource type - [%s].\r\n", ++env.ErrorCount, Shown(type).constData());
        document.findings.Add(
            file, lineNumber,
            u"the type \"%1\" of %2 is neither %3 nor %4"_s.arg(Cut(type), Cut(id), NORMAL_WORD, PUSH_WORD));
    }
    if (!IsValidIdName(id)) {
        env.WriteOutput("Error %d: invalid ID format - [%s].\r\n", ++env.ErrorCount, Shown(id).constData());
        document.findings.Add(
            file, lineNumber,
            u"\"%1\" is no ID: 1 to 64 letters, digits and \"_\", and no digit at the front"_s.arg(Cut(id)));
    }

    const NarrowText name = env.WideToNarrow(id);
    // Strings have IDs of no resolution: a name that no such record bears can be in none of the folders.
    const IDRecord *rowId = document.ids.Find(name, ANY_RESOLUTION);
    const bool isThere = rowId != nullptr;
    const bool pushBefore = isThere && rowId->push;
    RowBuilder row(document, name);
    for (CResFolder *folder : columns) {
        if (row.Last() && fields.AtEnd())
            break;
        const QStringView text = fields.Next();
        if (text.isEmpty() && folder->index != DESCRIPTION)
            continue;
        CStringRes *cell = rowId ? cells.Find(rowId, *folder) : nullptr;
        if (cell) {
            Overwrite(*cell, text);
            row.ContinueBehind(*cell);
            continue;
        }
        cell = row.Add(*folder, text.toString());
        if (!cell) {
            env.WriteOutput("Error %d: ID conflicts - %s.\r\n", ++env.ErrorCount, Shown(id).constData());
            Drop(
                u"the row of %1 is left out with all its texts: a resource of another kind has that ID"_s.arg(Cut(id)));
            return;
        }
        Added(*cell, push);
        if (repeated)
            rowId = cell->Id();
    }
    ++rows;
    if (hasType && isThere && pushBefore != push)
        Drop(u"the type \"%1\" of %2 is left out: there is such a row already, of another type"_s.arg(Cut(type),
                                                                                                      Cut(id)));
    while (!fields.AtEnd()) {
        if (const QStringView text = fields.Next(); !text.isEmpty())
            Drop(u"the text \"%1\" of %2 is left out: line 2 has no language for it"_s.arg(Cut(text), Cut(id)));
    }
}

void StringFileReader::Added(CStringRes &cell, bool push)
{
    if (push) {
        cell.Id()->push = true;
        cell.Id()->pushKind = PUSH_STRING;
    }
    cells.Added(&cell);
    if (isReload)
        read.insert(&cell);
}
