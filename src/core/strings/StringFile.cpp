#include "StringFile.h"

#include "CellFinder.h"
#include "Environment.h"
#include "FieldCursor.h"
#include "HostFiles.h"
#include "IdNames.h"
#include "LanguageTable.h"
#include "ResModel.h"
#include "StringFileFormat.h"
#include "Utf16Lines.h"

using namespace StringFileFormat;

namespace {

class Reader
{
public:
    Reader(CResModel &model, Utf16Lines &fileLines)
        : document(model), env(model.env), lines(fileLines), strings(model.root.FindFolder(KIND_STRINGS, 2))
    {
    }
    int Read()
    {
        int languages = 0;
        if (int code = ReadCount(languages))
            return code;
        if (int code = ReadHeader(languages))
            return code;
        for (;;) {
            QStringView line;
            if (!lines.Next(line))
                return Unreadable();
            if (!ReadRow(line))
                return OK;
        }
    }

private:
    int Unreadable()
    {
        env.WriteOutput("Error %d: failed to read a new line.\r\n", ++env.ErrorCount);
        return CANT_READ_LINE;
    }
    int Wrong(QStringView expected, int line)
    {
        env.WriteOutput("Error %d: invalid file format; \"%s\" expected at line %d.\r\n", ++env.ErrorCount, expected.toUtf8().constData(), line);
        return WRONG_HEADER;
    }
    int ReadCount(int &languages)
    {
        QStringView line;
        if (!lines.Next(line))
            return Unreadable();
        FieldCursor fields(line);
        if (!fields.Next().contains(COUNT_WORD))
            return Wrong(COUNT_WORD, 1);
        languages = LeadingNumber(fields.Next());
        if (languages <= 0) {
            env.WriteOutput("Warning %d: %s = %d.\r\n", ++env.WarningCount, COUNT_WORD.toUtf8().constData(), languages);
            languages = 0;
        }
        return OK;
    }
    int ReadHeader(int languages)
    {
        QStringView line;
        if (!lines.Next(line))
            return Unreadable();
        FieldCursor fields(line);
        if (fields.Next() != ID_WORD)
            return Wrong(ID_WORD, 2);
        QStringView field = fields.Next();
        if (EqualsNoCase(field, TYPE_WORD)) {
            hasType = true;
            if (field != TYPE_WORD)
                return Wrong(TYPE_WORD, 2);
            field = fields.Next();
        }
        if (field != DESCRIPTION_WORD)
            return Wrong(DESCRIPTION_WORD, 2);
        columns.push_back(Ensure(DESCRIPTION, {}));
        for (int i = 0; i < languages; ++i) {
            QString name = fields.Next().toString();
            const int number = ParseLanguageHeader(env, name);
            if (number == -1) {
                env.WriteOutput("Error %d: language \"%s\" is unrecognized.\r\n", ++env.ErrorCount, qUtf8Printable(name));
                return UNKNOWN_LANGUAGE;
            }
            columns.push_back(Ensure(number, name));
        }
        return OK;
    }
    CResFolder *Ensure(int number, const QString &title)
    {
        if (CResFolder *f = strings->FindFolder(KIND_LANGUAGE, number, 1))
            return f;
        auto made = document.CreateFolder(KIND_LANGUAGE, number);
        made->title = title;
        CResFolder *f = made.get();
        strings->AddFolder(std::move(made));
        return f;
    }
    bool ReadRow(QStringView line)
    {
        FieldCursor fields(line);
        const QStringView id = fields.Next();
        const QStringView type = hasType ? fields.Next() : QStringView();
        const bool isEnd = EqualsNoCase(id, END_WORD);
        const bool push = hasType && EqualsNoCase(type, PUSH_WORD);
        if (hasType && !isEnd && !push && !EqualsNoCase(type, NORMAL_WORD))
            env.WriteOutput("Error %d: invalid resource type - [%s].\r\n", ++env.ErrorCount, type.toUtf8().constData());
        if (id.isEmpty())
            return true;
        if (isEnd)
            return false;
        if (!IsValidIdName(id))
            env.WriteOutput("Error %d: invalid ID format - [%s].\r\n", ++env.ErrorCount, id.toUtf8().constData());
        const NarrowText name = env.WideToNarrow(id);
        IDRecord *known = document.ids.FindName(name);
        CStringRes *previous = nullptr;
        for (CResFolder *folder : columns) {
            const QStringView text = fields.Next();
            if (text.isEmpty() && folder->index != DESCRIPTION)
                continue;
            CStringRes *res = known ? static_cast<CStringRes *>(folder->FindResource(known)) : nullptr;
            if (res) {
                res->SetText(text.toString());
                previous = res;
                continue;
            }
            auto made = previous ? document.CreateStringRes(previous->Id(), folder->index) : document.CreateStringRes(name, folder->index);
            if (!made) {
                env.WriteOutput("Error %d: ID conflicts - %s.\r\n", ++env.ErrorCount, id.toUtf8().constData());
                return true;
            }
            known = made->Id();
            if (push) { known->push = true; known->pushKind = PUSH_STRING; }
            res = made.get();
            folder->AddResource(std::move(made));
            res->SetText(text.toString());
            if (previous)
                previous->LinkBehind(res);
            previous = res;
        }
        return true;
    }
    CResModel &document;
    Environment &env;
    Utf16Lines &lines;
    CResFolder *strings;
    std::vector<CResFolder *> columns;
    bool hasType = false;
};
} // namespace

int ReadStringFile(const QString &path, CResModel &document)
{
    Environment &env = document.env;
    FileHandle file = FileHandle::OpenRead(path);
    if (!file.IsOpen()) {
        env.WriteOutput("Error %d: failed to open file \"%s\".\r\n", ++env.ErrorCount, qUtf8Printable(path));
        return CANT_OPEN;
    }
    env.WriteOutput("Loading strings from \"%s\"...\r\n", qUtf8Printable(path));
    Utf16Lines lines([&](void *b, size_t n) { return file.Read(b, n); });
    return Reader(document, lines).Read();
}

int WriteStringFile(const QString &path, CResModel &document)
{
    const CResFolder *strings = document.root.FindFolder(KIND_STRINGS, 2);
    QString t{QChar(BYTE_ORDER_MARK)};
    const auto w = [](QStringView v) { return v.toString(); };
    t += w(COUNT_WORD) + u'\t' + QString::number(std::max<qsizetype>(qsizetype(strings->subfolders.size()) - 1, 0)) + w(u"\r\n");
    t += w(ID_WORD) + u'\t' + w(TYPE_WORD) + u'\t' + w(DESCRIPTION_WORD);
    for (size_t i = 1; i < strings->subfolders.size(); ++i)
        t += u'\t' + strings->subfolders[i]->title + u'(' + QString::number(strings->subfolders[i]->index) + u')';
    t += u"\r\n";
    if (!strings->subfolders.empty()) {
        int n = 0;
        for (CBaseRes *r : strings->subfolders[0]->resources) {
            auto *head = static_cast<CStringRes *>(r);
            t += document.env.NarrowToWide(head->Id()->name) + u'\t' + w(head->Id()->push ? PUSH_WORD : NORMAL_WORD);
            for (auto &f : strings->subfolders) {
                const CStringRes *cell = head->FindLanguage(f->index);
                t += u'\t';
                if (cell) t += cell->text;
            }
            t += u"\r\n";
            ++n;
        }
        t += w(END_WORD) + u'\t' + QString::number(n) + w(u"\r\n");
    }
    if (WriteFileAtomically(path, QByteArrayView(reinterpret_cast<const char *>(t.utf16()), t.size() * 2)) != 0) {
        document.env.WriteOutput("Error %d: failed to open file \"%s\".\r\n", ++document.env.ErrorCount, qUtf8Printable(path));
        return CANT_OPEN;
    }
    return OK;
}
