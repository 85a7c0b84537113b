// SPDX-License-Identifier: MIT
#include "PartUnpacker.h"

#include "SignalCleanup.h"

#include <algorithm>
#include <system_error>

namespace
{

constexpr quint64 LARGE = 1 << 20; // bytes; for less a thread isn't worth its start

} // namespace

PartUnpacker::PartUnpacker(QByteArrayView data, bool isDeflated, quint64 size) : stored(data), isInflating(isDeflated)
{
    stream.next_in = reinterpret_cast<const Bytef *>(data.data());
    stream.avail_in = uInt(data.size());
    if (isDeflated)
        isReady = inflateInit2(&stream, -MAX_WBITS) == Z_OK;
    if (size < LARGE)
        return;
    const SignalHold hold;
    try {
        thread = std::thread([this] { Run(); });
    } catch (const std::system_error &) {
        // The system has no thread left: the caller unpacks.
    }
}

PartUnpacker::~PartUnpacker()
{
    if (thread.joinable()) {
        {
            const std::lock_guard guard(lock);
            isStopped = true;
        }
        changed.notify_all();
        thread.join();
    }
    inflateEnd(&stream);
}

std::optional<QByteArrayView> PartUnpacker::Next()
{
    if (!thread.joinable()) {
        Unpack(ring[0]);
        return ring[0].piece;
    }
    std::unique_lock guard(lock);
    ++wanted;
    changed.notify_all();
    changed.wait(guard, [this] { return unpacked >= wanted; });
    return ring[(wanted - 1) % AHEAD].piece;
}

void PartUnpacker::Run()
{
    for (quint64 next = 0;; ++next) {
        {
            std::unique_lock guard(lock);
            unpacked = next;
            changed.notify_all();
            // The caller has the piece before `wanted`; the slot of the one before that is free.
            changed.wait(guard, [this, next] { return isStopped || next + 1 < wanted + AHEAD; });
            if (isStopped)
                return;
        }
        Unpack(ring[next % AHEAD]);
    }
}

void PartUnpacker::Unpack(Slot &slot)
{
    slot.piece = isInflating ? Inflate(slot.room.get()) : UnpackStored();
    if (slot.piece && !slot.piece->isEmpty()) // after the end, the caller may read the checksum
        crc = crc32_z(crc, reinterpret_cast<const Bytef *>(slot.piece->data()), size_t(slot.piece->size()));
}

QByteArrayView PartUnpacker::UnpackStored()
{
    const QByteArrayView piece = stored.first(std::min(stored.size(), PIECE));
    stored = stored.sliced(piece.size());
    return piece;
}

std::optional<QByteArrayView> PartUnpacker::Inflate(char *room)
{
    if (isAtEnd)
        return QByteArrayView();
    stream.next_out = reinterpret_cast<Bytef *>(room);
    stream.avail_out = PIECE;
    const int status = isReady ? inflate(&stream, Z_NO_FLUSH) : Z_MEM_ERROR;
    isAtEnd = status == Z_STREAM_END;
    const QByteArrayView piece(room, PIECE - qsizetype(stream.avail_out));
    const bool isCut = isAtEnd ? stream.avail_in > 0 : piece.isEmpty();
    if ((status != Z_OK && !isAtEnd) || isCut)
        return std::nullopt;
    return piece;
}
