// SPDX-License-Identifier: MIT
#include "Environment.h"
#include "HostFiles.h"
#include "Paths.h"
#include "ResModel.h"
#include "StringFile.h"
#include "StringFileFormat.h"

#include <algorithm>
#include <cerrno>
#include <unordered_map>

using namespace StringFileFormat;

static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN, "the text is written as it is in memory");

namespace
{

constexpr qsizetype MAX_CHARS = qsizetype(1) << 29; // makes a file of 1 GiB
constexpr QStringView LINE_END = u"\r\n";

/// Makes the text of the file.
class StringFileText
{
public:
    explicit StringFileText(const CResModel &model);

    /// Returns the text of the whole file; empty when it would be too large.
    [[nodiscard]] QString Make();

private:
    using Cells = std::vector<const CStringRes *>;
    void PutHeader();
    [[nodiscard]] bool PutRows();
    void ReserveFor(size_t done, size_t rows);
    void CollectRow(const CStringRes &head);
    void Put(QStringView first, QStringView second) { out.append(first).append(second); }

    const CResModel &document;
    const std::vector<std::unique_ptr<CResFolder>> none;
    const std::vector<std::unique_ptr<CResFolder>> &folders;
    std::unordered_map<qint32, std::vector<size_t>> columnsOf; // by language; a language may have several folders
    Cells row;                                                 // the records of one row, by folder; null: no cell
    QString out;
};

const std::vector<std::unique_ptr<CResFolder>> &FoldersOf(const CResFolder *strings,
                                                          const std::vector<std::unique_ptr<CResFolder>> &none)
{
    return strings ? strings->subfolders : none;
}

StringFileText::StringFileText(const CResModel &model)
    : document(model), folders(FoldersOf(model.root.FindFolder(KIND_STRINGS, 2), none)), row(folders.size())
{
    for (size_t i = 0; i < folders.size(); ++i)
        columnsOf[folders[i]->index].push_back(i);
}

QString StringFileText::Make()
{
    PutHeader();
    if (!folders.empty() && !PutRows())
        return {};
    return out;
}

void StringFileText::PutHeader()
{
    out = QChar(BYTE_ORDER_MARK);
    Put(COUNT_WORD, u"\t");
    Put(QString::number(folders.empty() ? 0 : folders.size() - 1), LINE_END);
    Put(ID_WORD, u"\t");
    Put(TYPE_WORD, u"\t");
    Put(DESCRIPTION_WORD, {});
    for (size_t i = 1; i < folders.size(); ++i) {
        Put(u"\t", folders[i]->title);
        Put(u"(", QString::number(folders[i]->index));
        Put(u")", {});
    }
    Put(LINE_END, {});
}

/// Finds the records of a row in one walk, in the order in which `FindLanguage` searches.
void StringFileText::CollectRow(const CStringRes &head)
{
    std::fill(row.begin(), row.end(), nullptr);
    (void)AnyRecord(head, [this](const CStringRes &cell) {
        const auto found = columnsOf.find(cell.Language());
        if (found != columnsOf.end() && !row[found->second.front()]) {
            for (const size_t column : found->second)
                row[column] = &cell;
        }
        return false;
    });
}

/// Reserves memory for all rows, estimated from the size of the first rows. Growing a text moves it and needs nearly
/// twice its memory, while reserved memory that isn't written to costs nothing.
void StringFileText::ReserveFor(size_t done, size_t rows)
{
    const qsizetype size = out.size() / qsizetype(done) * qsizetype(rows + rows / 8);
    out.reserve(std::min(size, MAX_CHARS));
}

bool StringFileText::PutRows()
{
    constexpr size_t SAMPLE = 1000; // rows
    size_t done = 0;
    for (CBaseRes *res : folders.front()->resources) {
        CollectRow(static_cast<const CStringRes &>(*res));
        Put(document.env.NarrowToWide(res->Id()->name), u"\t");
        Put(res->Id()->push ? PUSH_WORD : NORMAL_WORD, {});
        for (const CStringRes *cell : row)
            Put(u"\t", cell ? cell->Text() : QStringView());
        Put(LINE_END, {});
        if (out.size() > MAX_CHARS)
            return false;
        if (++done == SAMPLE)
            ReserveFor(done, folders.front()->resources.Count());
    }
    Put(END_WORD, u"\t");
    Put(QString::number(folders.front()->resources.Count()), LINE_END);
    return true;
}

/// Returns whether an error is about writing the file (no room, or a disk failure) and not about opening it.
bool FellShort(int error)
{
    return error == ENOSPC || error == EDQUOT || error == EFBIG || error == EIO;
}

} // namespace

int WriteStringFile(const QString &path, CResModel &document)
{
    const QString text = MakeStringFile(document);
    const auto *bytes = reinterpret_cast<const char *>(text.constData());
    const int error =
        text.isEmpty() ? EFBIG
                       : document.env.ReplaceFile(path, QByteArrayView(bytes, text.size() * qsizetype(sizeof(QChar))));
    if (error == 0)
        return OK;
    const Finding finding{"strings.write-failed", Severity::Error, ResolvePath(path, CurrentFolder()), 0, {}, {}};
    if (FellShort(error)) {
        document.env.Report(finding, "failed to write to file \"%s\".", qUtf8Printable(path));
        return CANT_WRITE;
    }
    document.env.Report(finding, "failed to open file \"%s\".", qUtf8Printable(path));
    return CANT_OPEN;
}

QString MakeStringFile(const CResModel &document)
{
    return StringFileText(document).Make();
}
