// SPDX-License-Identifier: MIT
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

constexpr qint64 MAX_EXPECTED_ROWS = 1 << 17; // a very short first row would make the estimate too high

/// True when one of the remaining fields isn't empty.
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
    const FileHandle file = OpenRead(path);
    if (!file.IsOpen()) {
        const QString why = WhyNotRead(path, errno);
        document.env.Report({"strings.unreadable", Severity::Error, ResolvePath(path, CurrentFolder()), 0, {}, why},
                            "failed to open file \"%s\".", Shown(path).constData());
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

Finding StringFileReader::About(const char *code, Severity severity, QStringView id, const QString &text)
{
    Finding finding{code, severity, file, lineNumber, id.toString(), text};
    if (!text.isEmpty())
        document.findings.Add(finding);
    return finding;
}

Finding StringFileReader::Dropped(const char *code, QStringView id, const QString &why)
{
    ++document.env.DroppedCount;
    return About(code, Severity::Error, id, why);
}

int StringFileReader::LineError()
{
    document.env.Report(About("strings.cut-short", Severity::Error), "failed to read a new line.");
    return CANT_READ_LINE;
}

int StringFileReader::HeaderError(int line, QStringView expected)
{
    document.env.Report(About("strings.header", Severity::Error), "invalid file format; \"%s\" expected at line %d.",
                        Shown(expected).constData(), line);
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
        document.env.Report(About("strings.language-count", Severity::Warning), "%s = %d.",
                            Shown(COUNT_WORD).constData(), languages);
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
    // The count may be any number; the loop ends with the fields of the line.
    for (int i = 0; i < languages; ++i) {
        QString name = fields.Next().toString();
        const bool isShort = name.isEmpty() && fields.AtEnd();
        const int number = ParseLanguageHeader(document.env, name);
        if (number == -1) {
            if (isShort)
                problem =
                    QStringLiteral("line 1 says that there are %1 languages, but line 2 has %2").arg(languages).arg(i);
            Finding finding = About("strings.language-unknown", Severity::Error);
            finding.text = problem;
            document.env.Report(finding, "language \"%s\" is unrecognized.", Shown(name).constData());
            return UNKNOWN_LANGUAGE;
        }
        columns.push_back(&folders.Ensure(number, name));
        repeated |= !seen.insert(columns.back()).second;
    }
    while (!fields.AtEnd()) {
        if (const QStringView name = fields.Next(); !name.isEmpty()) {
            document.env.Note(Dropped(
                "strings.language-left-out", {},
                u"the language %1 is left out: according to line 1 there are only %2 languages"_s.arg(Cut(name)).arg(
                    languages)));
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
            document.env.Note(Dropped("strings.behind-number", {},
                                      u"\"%1\" is left out: this line has only a number"_s.arg(Cut(field))));
    }
}

void StringFileReader::DropRest()
{
    const auto look = [this](QStringView line) {
        if (!line.trimmed().isEmpty())
            document.env.Note(
                Dropped("strings.behind-end", {}, u"the lines after the row %1 are not read"_s.arg(END_WORD)));
    };
    QStringView line;
    while (NextLine(line))
        look(line);
    look(lines.Rest());
}

void StringFileReader::Overwrite(CStringRes &cell, QStringView text)
{
    const bool isSecond = !isReload || !read.insert(&cell).second;
    if (cell.Text() == text)
        return;
    if (isSecond && cell.HasText()) {
        const QString id = document.env.NarrowToWide(cell.Id()->name);
        document.env.Note(
            Dropped("strings.text-twice", id,
                    u"the text \"%1\" of %2 is left out: \"%3\" follows for the same ID and language"_s.arg(
                        Cut(cell.Text()), id, Cut(text))));
    }
    cell.SetText(text);
}

void StringFileReader::CheckFields(QStringView id, QStringView type)
{
    if (hasType && !EqualsNoCase(type, PUSH_WORD) && !EqualsNoCase(type, NORMAL_WORD)) {
        document.env.Report(
            About("strings.type-invalid", Severity::Error, id,
                  u"the type \"%1\" of %2 is neither %3 nor %4"_s.arg(Cut(type), Cut(id), NORMAL_WORD, PUSH_WORD)),
            "invalid resource type - [%s].", Shown(type).constData());
    }
    if (!IsValidIdName(id)) {
        document.env.Report(
            About("strings.id-invalid", Severity::Error, id,
                  u"\"%1\" is not a valid ID: an ID has 1 to 64 letters, digits and \"_\", and doesn't begin with "
                  "a digit"_s.arg(Cut(id))),
            "invalid ID format - [%s].", Shown(id).constData());
    }
}

void StringFileReader::ReadRow(QStringView line)
{
    Environment &env = document.env;
    FieldCursor fields(line);
    const QStringView id = fields.Next();
    const QStringView type = hasType ? fields.Next() : QStringView();
    if (id.isEmpty()) {
        if (HasText(fields))
            env.Note(Dropped("strings.no-id", {}, u"the row is left out: it has no ID"_s));
        return;
    }
    const bool push = EqualsNoCase(type, PUSH_WORD);
    CheckFields(id, type);
    const NarrowText name = env.WideToNarrow(id);
    // Strings have IDs of no resolution: if no such record has the name, it isn't in any of the folders.
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
            row.Continue(*cell);
            continue;
        }
        cell = row.Add(*folder, text);
        if (!cell) {
            env.Report(
                Dropped("strings.id-conflict", id,
                        u"the row of %1 with all its texts is left out: a resource of another kind has that ID"_s.arg(
                            Cut(id))),
                "ID conflicts - %s.", Shown(id).constData());
            return;
        }
        Added(*cell, push);
        if (repeated)
            rowId = cell->Id();
    }
    ++rows;
    if (hasType && isThere && pushBefore != push)
        env.Note(Dropped("strings.other-type", id,
                         u"the type \"%1\" of %2 is left out: an earlier row of that ID has another type"_s.arg(
                             Cut(type), Cut(id))));
    while (!fields.AtEnd()) {
        if (const QStringView text = fields.Next(); !text.isEmpty())
            env.Note(
                Dropped("strings.text-without-language", id,
                        u"the text \"%1\" of %2 is left out: line 2 has no language for it"_s.arg(Cut(text), Cut(id))));
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
