// SPDX-License-Identifier: MIT
#include "PackImage.h"

#include "Environment.h"
#include "OutputFile.h"
#include "PackCodes.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <iterator>
#include <limits>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

constexpr char ZEROS[4] = {};

} // namespace

PackImage::PackImage(PieceMemory &pieceMemory, EntryPadding entryPadding) : memory(pieceMemory), padding(entryPadding)
{
    memory.Clear();
}

void PackImage::AddEntry(const NarrowText &name)
{
    entries.push_back(PackEntry{name});
}

void PackImage::BeginBlock()
{
    AddEntry(BLOCK_NAME);
    entries.back().isBlock = true;
    AddEntry({});
    entryPieces = pieces.size();
}

void PackImage::AddItem(quint32 key, ItemKind kind, const IDRecord *id)
{
    BlockItem &item = items.emplace_back();
    item.key = key;
    item.itemKind = kind;
    item.id = id;
    item.firstPiece = pieces.size();
}

void PackImage::EndBlock()
{
    AddItem(BLOCK_END_KEY, ITEM_STRINGS);
}

bool PackImage::Fits(quint64 size) const
{
    return size <= std::numeric_limits<quint32>::max() - dataSize;
}

void PackImage::Skip(quint64 size)
{
    dataSize += size;
    if (items.empty())
        entries.back().paddedSize = entries.back().size += quint32(size);
    else
        items.back().size += quint32(size);
}

void PackImage::AddBytes(QByteArrayView bytes)
{
    Skip(quint64(bytes.size()));
    if (!bytes.isEmpty())
        pieces.emplace_back(bytes);
}

void PackImage::AddPart(FilePart part)
{
    Skip(quint64(part.size));
    pieces.emplace_back(std::make_unique<FilePart>(std::move(part)));
}

char *PackImage::Extend(quint64 size)
{
    char *const place = Fits(size) ? memory.Take(size) : nullptr;
    if (place)
        AddBytes({place, qsizetype(size)});
    return place;
}

int PackImage::AddMade(const PackFile &file)
{
    const quint64 size = quint64(file.size);
    if (size > room && OpenSpill()) {
        if (const auto code = Spill(file))
            return *code;
    }
    room -= std::min(room, size);
    char *const place = Extend(size);
    if (!place)
        return PACK_MEMORY;
    return file.ReadTo(place) ? PACK_OK : PACK_FILE_READ;
}

/// Returns false if no folder can have a file without a name.
bool PackImage::OpenSpill()
{
    for (const char *place : {folder.constData(), P_tmpdir}) {
        if (!spill.IsOpen())
            spill = FileHandle(open(place, O_TMPFILE | O_RDWR | O_CLOEXEC, S_IRUSR | S_IWUSR));
    }
    return spill.IsOpen();
}

/// Returns 0 or PACK_FILE_READ. Returns nothing, as before the call, if the temporary file can't take the content.
std::optional<int> PackImage::Spill(const PackFile &file)
{
    const qint64 offset = spilled;
    const qint64 end = offset + file.size;
    while (spilled < end) {
        const ssize_t sent = sendfile(spill.Get(), file.file.Get(), nullptr, size_t(end - spilled));
        if (sent < 0 && errno == EINTR)
            continue;
        if (sent < 0) {
            spilled = offset;
            const bool isUndone = ftruncate(spill.Get(), offset) == 0 && lseek(spill.Get(), offset, SEEK_SET) >= 0 &&
                                  lseek(file.file.Get(), 0, SEEK_SET) >= 0;
            return isUndone ? std::nullopt : std::optional<int>(PACK_FILE_READ);
        }
        errno = 0;
        if (sent == 0)
            return PACK_FILE_READ;
        spilled += sent;
    }
    Skip(quint64(file.size));
    pieces.emplace_back(Spilled{offset, file.size});
    return PACK_OK;
}

bool PackImage::Pad()
{
    const bool isEntry = items.empty();
    const quint64 size = isEntry ? entries.back().size : items.back().size;
    const quint64 missing = isEntry && padding == EntryPadding::None ? 0 : RoundUpTo4(size) - size;
    if (!Fits(missing))
        return false;
    AddBytes({ZEROS, qsizetype(missing)});
    if (isEntry)
        entries.back().size = quint32(size); // without its padding
    return true;
}

void PackImage::SortItems()
{
    struct Placed
    {
        BlockItem item;
        std::vector<Piece> content;
    };
    std::vector<Placed> sorted;
    sorted.reserve(items.size());
    for (size_t n = 0; n < items.size(); ++n) {
        const size_t end = n + 1 < items.size() ? items[n + 1].firstPiece : pieces.size();
        sorted.push_back({items[n], {}});
        for (size_t piece = items[n].firstPiece; piece < end; ++piece)
            sorted.back().content.push_back(std::move(pieces[piece]));
    }
    std::stable_sort(sorted.begin(), sorted.end() - 1,
                     [](const Placed &a, const Placed &b) { return a.item.key < b.item.key; });
    pieces.erase(pieces.begin() + ptrdiff_t(std::min(entryPieces, pieces.size())), pieces.end());
    for (size_t n = 0; n < sorted.size(); ++n) {
        items[n] = sorted[n].item;
        items[n].firstPiece = pieces.size();
        std::move(sorted[n].content.begin(), sorted[n].content.end(), std::back_inserter(pieces));
    }
}

bool PackImage::LayOut()
{
    const auto computed = LayOutPayload(entries, items, quint64(base));
    if (!computed)
        return false;
    layout = *computed;
    directory = QByteArray(qsizetype(layout.directory), Qt::Uninitialized);
    WriteDirectory(entries, layout, directory.data());
    table = QByteArray(qsizetype(layout.table), Qt::Uninitialized);
    WriteBlockTable(items, table.data());
    return true;
}

int PackImage::CheckParts(const Environment &env) const
{
    for (const Piece &piece : pieces) {
        const auto *part = std::get_if<std::unique_ptr<FilePart>>(&piece);
        if (const int code = part ? CheckPart(env, **part) : PACK_OK)
            return code;
    }
    return PACK_OK;
}

int PackImage::Write(const Environment &env, OutputFile &output) const
{
    if (!output.Write(directory))
        return PACK_WRITE;
    for (size_t n = 0; n <= pieces.size(); ++n) {
        if (n == entryPieces && !output.Write(table))
            return PACK_WRITE;
        if (n < pieces.size()) {
            if (const int code = WritePiece(env, pieces[n], output))
                return code;
        }
    }
    return output.Flush() ? PACK_OK : PACK_WRITE;
}

int PackImage::WritePiece(const Environment &env, const Piece &piece, OutputFile &output) const
{
    if (const auto *bytes = std::get_if<QByteArrayView>(&piece))
        return output.Write(*bytes) ? PACK_OK : PACK_WRITE;
    if (const auto *part = std::get_if<std::unique_ptr<FilePart>>(&piece))
        return CopyPart(env, **part, output);
    const auto &[offset, size] = std::get<Spilled>(piece);
    return output.Copy(spill, "a temporary file", offset, size) == size ? PACK_OK : PACK_WRITE;
}
