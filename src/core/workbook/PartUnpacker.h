// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>

#define ZLIB_CONST // zlib doesn't write to its input
#include <zlib.h>

#include <array>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

/// Unpacks the data of a part of a ZIP file, piece by piece. A large part is unpacked by a thread, a few pieces ahead
/// of the caller, so that the caller's work on a piece takes place at the same time.
///
/// It doesn't own the data, which must outlive it. Only one thread may call its functions.
class PartUnpacker
{
public:
    /// `size` is the expected size of the unpacked part; a wrong one does no harm.
    PartUnpacker(QByteArrayView data, bool isDeflated, quint64 size);
    /// Stops the thread.
    ~PartUnpacker();
    PartUnpacker(const PartUnpacker &) = delete;
    PartUnpacker &operator=(const PartUnpacker &) = delete;

    /// Returns the next bytes, which are valid until the next call; empty at the end, nullopt when they are damaged.
    std::optional<QByteArrayView> Next();

    /// Returns the CRC-32 of the part. Call it only after its end.
    [[nodiscard]] quint32 Checksum() const { return quint32(crc); }

private:
    static constexpr qsizetype PIECE = 64 << 10;
    static constexpr size_t AHEAD = 4;

    /// A place for a piece that is unpacked.
    struct Slot
    {
        std::unique_ptr<char[]> room{new char[PIECE]};
        std::optional<QByteArrayView> piece;
    };

    void Run();
    void Unpack(Slot &slot);
    [[nodiscard]] QByteArrayView UnpackStored();
    [[nodiscard]] std::optional<QByteArrayView> Inflate(char *room);

    QByteArrayView stored;
    const bool isInflating;
    z_stream stream{};
    bool isReady = false;
    bool isAtEnd = false;
    uLong crc = 0;

    std::array<Slot, AHEAD> ring;
    std::mutex lock; // guards what follows, and passes the slots from one thread to the other
    std::condition_variable changed;
    quint64 unpacked = 0; // the number of pieces; the slot of a piece is its number modulo AHEAD
    quint64 wanted = 0;   // the number of pieces that the caller has asked for
    bool isStopped = false;
    std::thread thread;
};
