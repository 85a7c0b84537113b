// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>

#include <cstddef>

/// The bytes of one payload, each at its final place.
///
/// Grows at its end without copying, and keeps room before its first byte. The parts that are only known at the end
/// (the directory and the block table) are put there, so that the whole payload is contiguous. Memory that is never
/// written to isn't used. `Clear` keeps the memory for the next payload.
class PayloadBuffer
{
public:
    static constexpr size_t FRONT_ROOM = size_t(16) << 20;

    /// `frontRoom` is the number of bytes in front that can be used without moving the data. With `isSparse` the data
    /// is hardly written to, and pages aren't made ready in advance.
    explicit PayloadBuffer(size_t frontRoom = FRONT_ROOM, bool isSparse = false);
    ~PayloadBuffer();
    PayloadBuffer(const PayloadBuffer &) = delete;
    PayloadBuffer &operator=(const PayloadBuffer &) = delete;

    void Clear() { used = 0; }
    [[nodiscard]] quint64 Size() const { return used; }

    /// Appends `size` uninitialised bytes and returns the place of the first, which is valid until the next `Append`.
    /// Returns null if memory runs out or the size of the buffer would not fit in 32 bits.
    [[nodiscard]] char *Append(quint64 size);

    /// The byte at `offset`. A negative offset is in the room in front, as far as `EnsureFront` has made room.
    [[nodiscard]] char *At(qint64 offset) { return memory + qint64(front) + offset; }

    /// Makes room for `size` bytes before the first one. Returns false if memory runs out.
    [[nodiscard]] bool EnsureFront(quint64 size);

private:
    bool Grow(quint64 needed);
    /// Makes the pages of the next `size` bytes ready.
    void Touch(quint64 size);

    char *memory = nullptr;
    size_t capacity = 0;
    size_t front;
    bool sparse;
    quint64 used = 0;
    size_t touched = 0; // the pages from `front` to this place have memory
};
