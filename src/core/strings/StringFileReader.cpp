#include "StringFileReader.h"

#include "Environment.h"
#include "FieldCursor.h"
#include "FileFault.h"
#include "HostFiles.h"
#include "IdNames.h"
#include "LanguageTable.h"
#include "Paths.h"
#include "ResModel.h"
#include "StringFile.h"
#include "StringFileFormat.h"

#include <cerrno>
#include <unordered_set>

using namespace StringFileFormat;

namespace
{

constexpr qint64 MAX_EXPECTED_ROWS = 1 << 17; // a first row of a few characters promises too many

/// For a %s of the log, which shows no more than this of it anyway.
QByteArray Shown(QStringView text)
{
    return text.first(qMin(text.size(), qsizetype(512))).toUtf8();
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
    StringFileReader reader(document, [&](void *buffer, size_t size) { return file.Read(buffer, size); });
    const int code = reader.Read(file.Size());
    if (!reader.Problem().isEmpty())
        document.env.Explain(
            QStringLiteral("\"%1\": %2")
                .arg(QString::fromUtf8(HostPath(ResolvePath(path, CurrentFolder()))), reader.Problem()));
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
    if (!lines.Next(line))
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
    return OK;
}

int StringFileReader::ReadColumns(int languages)
{
    QStringView line;
    if (!lines.Next(line))
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
    columns.push_back(EnsureFolder(DESCRIPTION, QString()));

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
        columns.push_back(EnsureFolder(number, name));
        repeated |= !seen.insert(columns.back()).second;
    }
    return OK;
}

CResFolder *StringFileReader::EnsureFolder(qint32 index, const QString &title)
{
    if (!strings) {
        strings = document.root.FindFolder(KIND_STRINGS, 2);
        if (!strings) {
            auto made = document.CreateFolder(KIND_STRINGS, -1);
            made->title = QStringLiteral("Strings");
            strings = made.get();
            document.root.AddFolder(std::move(made));
        }
        for (const auto &folder : strings->subfolders) {
            if (folder->kind == KIND_LANGUAGE)
                byNumber.try_emplace(folder->index, folder.get());
        }
    }
    CResFolder *&folder = byNumber[index];
    if (!folder) {
        auto made = document.CreateFolder(KIND_LANGUAGE, index);
        made->title = title;
        folder = made.get();
        strings->AddFolder(std::move(made));
    }
    return folder;
}

int StringFileReader::ReadRows(qint64 size)
{
    QStringView line;
    while (lines.Next(line)) {
        if (size > 0) {
            document.ids.Reserve(size_t(qMin(size / (line.size() * 2), MAX_EXPECTED_ROWS)));
            size = 0;
        }
        if (EqualsNoCase(FieldCursor(line).Next(), END_WORD))
            return OK;
        ReadRow(line);
    }
    return LineError();
}

void StringFileReader::ReadRow(QStringView line)
{
    Environment &env = document.env;
    FieldCursor fields(line);
    const QStringView id = fields.Next();
    if (id.isEmpty())
        return;
    const QStringView type = hasType ? fields.Next() : QStringView();
    const bool push = EqualsNoCase(type, PUSH_WORD);
    if (hasType && !push && !EqualsNoCase(type, NORMAL_WORD))
        env.WriteOutput("Error %d: invalid resource type - [%s].\r\n", ++env.ErrorCount, Shown(type).constData());
    if (!IsValidIdName(id))
        env.WriteOutput("Error %d: invalid ID format - [%s].\r\n", ++env.ErrorCount, Shown(id).constData());

    const NarrowText name = env.WideToNarrow(id);
    // Strings have IDs of no resolution: a name that no such record bears can be in none of the folders.
    const IDRecord *rowId = document.ids.Find(name, ANY_RESOLUTION);
    CStringRes *previous = nullptr;
    for (CResFolder *folder : columns) {
        if (previous && fields.AtEnd())
            break;
        const QStringView text = fields.Next();
        if (text.isEmpty() && folder->index != DESCRIPTION)
            continue;
        CStringRes *cell = rowId ? cells.Find(rowId, *folder) : nullptr;
        if (cell) {
            if (cell->text != text)
                cell->SetText(text.toString());
            previous = cell;
            continue;
        }
        auto made = previous ? document.CreateStringRes(previous->Id(), folder->index)
                             : document.CreateStringRes(name, folder->index);
        if (!made) {
            env.WriteOutput("Error %d: ID conflicts - %s.\r\n", ++env.ErrorCount, Shown(id).constData());
            return;
        }
        cell = made.get();
        MakeCell(*folder, std::move(made), text, previous, push);
        if (repeated)
            rowId = cell->Id();
        previous = cell;
    }
    ++rows;
}

void StringFileReader::MakeCell(CResFolder &folder, std::unique_ptr<CStringRes> made, QStringView text,
                                CStringRes *previous, bool push)
{
    CStringRes *const cell = made.get();
    if (push) {
        cell->Id()->push = true;
        cell->Id()->pushKind = PUSH_STRING;
    }
    folder.AddResource(std::move(made));
    if (!text.isEmpty()) {
        cell->text = text.toString(); // what SetText does, without a look at the old text and a copy of the new
        cell->NotifyChanged();
    }
    if (previous)
        previous->LinkBehind(cell);
    cells.Added(cell);
}
