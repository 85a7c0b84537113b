// SPDX-License-Identifier: MIT
#include "Environment.h"
#include "HostFiles.h"
#include "Paths.h"
#include "ResModel.h"
#include "StringFile.h"
#include "StringFileFormat.h"
#include "StringFileText.h"

#include <algorithm>
#include <cerrno>

using namespace StringFileFormat;

namespace
{

constexpr qsizetype MAX_CHARS = qsizetype(1) << 29; // makes a file of 1 GiB

/// Reserves memory for all rows, estimated from the size of the first rows. Growing a text moves it and needs nearly
/// twice its memory, while reserved memory that isn't written to costs nothing.
void ReserveFor(QString &text, size_t done, size_t rows)
{
    const qsizetype size = text.size() / qsizetype(done) * qsizetype(rows + rows / 8);
    text.reserve(std::min(size, MAX_CHARS));
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
    constexpr size_t SAMPLE = 1000; // rows
    StringFileText text(document);
    text.PutHeader();
    const size_t rows = text.Rows() ? text.Rows()->Count() : 0;
    size_t done = 0;
    for (const CBaseRes *row = text.Rows() ? text.Rows()->First() : nullptr; row; row = row->NextInFolder()) {
        text.PutRow(*row);
        if (text.out.size() > MAX_CHARS)
            return {};
        if (++done == SAMPLE)
            ReserveFor(text.out, done, rows);
    }
    text.PutEnd();
    return text.out;
}
