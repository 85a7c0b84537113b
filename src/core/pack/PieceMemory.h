// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <vector>

/// Memory for many pieces of a payload, which are freed together. A piece stays at its address. Pages that are never
/// written to use no memory.
class PieceMemory
{
public:
    PieceMemory() = default;
    ~PieceMemory();
    PieceMemory(const PieceMemory &) = delete;
    PieceMemory &operator=(const PieceMemory &) = delete;

    /// Returns a place for `size` bytes, which aren't initialised; null if memory runs out.
    [[nodiscard]] char *Take(quint64 size);
    /// Ends all pieces, and keeps the memory for new ones.
    void Clear();

private:
    struct Chunk
    {
        char *start;
        quint64 size;      // bytes
        quint64 ready = 0; // bytes whose pages have memory
    };
    [[nodiscard]] bool AddChunk(quint64 size);

    std::vector<Chunk> chunks;
    size_t current = 0; // the chunk that is being filled
    quint64 used = 0;   // bytes of that chunk
};
