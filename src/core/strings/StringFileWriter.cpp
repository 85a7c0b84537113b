// SPDX-License-Identifier: MIT
#include "Environment.h"
#include "HostFiles.h"
#include "Paths.h"
#include "ResModel.h"
#include "StringFile.h"
#include "StringFileFormat.h"
#include "StringFileText.h"

#include <cerrno>

using namespace StringFileFormat;

namespace
{

constexpr qsizetype LARGEST_FILE = qsizetype(1) << 30; // bytes
constexpr qsizetype PIECE = 32 * 1024;                 // characters; a whole file can have tens of megabytes

/// Returns whether an error is about writing the file (no room, or a disk failure) and not about opening it.
bool FellShort(int error)
{
    return error == ENOSPC || error == EDQUOT || error == EFBIG || error == EOVERFLOW || error == EIO;
}

} // namespace

int PutStringFile(const CResModel &document, const PutPiece &put)
{
    StringFileText text(document);
    qsizetype size = 0;
    const auto flush = [&] {
        const auto *bytes = reinterpret_cast<const char *>(text.out.constData());
        const QByteArrayView piece(bytes, text.out.size() * qsizetype(sizeof(QChar)));
        size += piece.size();
        const int error = size > LARGEST_FILE ? EOVERFLOW : put(piece);
        text.out.truncate(0); // keeps its memory
        return error;
    };
    text.PutHeader();
    for (const CBaseRes *row = text.Rows() ? text.Rows()->First() : nullptr; row; row = row->NextInFolder()) {
        text.PutRow(*row);
        if (const int error = text.out.size() < PIECE ? 0 : flush())
            return error;
    }
    text.PutEnd();
    return flush();
}

int WriteStringFile(const QString &path, CResModel &document)
{
    const int error = document.env.ReplaceFile(path, [&](const PutPiece &put) { return PutStringFile(document, put); });
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
