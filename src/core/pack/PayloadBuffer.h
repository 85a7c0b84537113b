#pragma once

#include <QByteArrayView>

#include <cstddef>

/// The bytes of one payload, gathered at their places.
///
/// Grows at its end without copying, and keeps room in front of its first byte, so that what is known only at last (the
/// directory and the block table) is put before the data and the whole is one stretch. Memory that isn't written to
/// isn't used. `Clear` keeps the memory for the next payload.
class PayloadBuffer
{
public:
    /// `frontRoom` is how many bytes in front cost no move of the data.
    explicit PayloadBuffer(size_t frontRoom = size_t(16) << 20);
    ~PayloadBuffer();
    PayloadBuffer(const PayloadBuffer &) = delete;
    PayloadBuffer &operator=(const PayloadBuffer &) = delete;

    void Clear() { used = 0; }
    [[nodiscard]] quint64 Size() const { return used; }

    /// `size` bytes of any content behind the last one; they move at the next `Append`. Null when the memory ends or
    /// the buffer would hold more than 32 bits can tell.
    [[nodiscard]] char *Append(quint64 size);

    /// The byte at `offset`; below 0 in the room in front, as far as `EnsureFront` has made it.
    [[nodiscard]] char *At(qint64 offset) { return memory + qint64(front) + offset; }

    /// Makes room for `size` bytes in front of the first one. False when the memory ends.
    [[nodiscard]] bool EnsureFront(quint64 size);

private:
    bool Grow(quint64 needed);
    /// Makes the pages of the next `size` bytes ready.
    void Touch(quint64 size);

    char *memory = nullptr;
    size_t capacity = 0;
    size_t front;
    quint64 used = 0;
    size_t touched = 0; // pages before this place have memory, from `front` on
};
