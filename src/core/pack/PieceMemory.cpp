// SPDX-License-Identifier: MIT
#include "PieceMemory.h"

#include <algorithm>
#include <sys/mman.h>

namespace
{

constexpr quint64 PAGE_SIZE = 4096;
constexpr quint64 CHUNK = quint64(4) << 20;
constexpr quint64 READY_AHEAD = quint64(128) << 10;

/// Gives memory to all pages of a place. One call for many pages is much cheaper than a page fault for each. A system
/// that doesn't know the call takes the faults.
void MakeReady(char *place, quint64 size)
{
    (void)madvise(place, size, MADV_POPULATE_WRITE);
}

} // namespace

PieceMemory::~PieceMemory()
{
    for (const Chunk &chunk : chunks)
        munmap(chunk.start, chunk.size);
}

bool PieceMemory::AddChunk(quint64 size)
{
    const quint64 whole = std::max(CHUNK, (size + PAGE_SIZE - 1) & ~(PAGE_SIZE - 1));
    void *const start =
        mmap(nullptr, whole, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (start == MAP_FAILED)
        return false;
    chunks.push_back({static_cast<char *>(start), whole});
    return true;
}

char *PieceMemory::Take(quint64 size)
{
    while (current < chunks.size() && chunks[current].size - used < size) {
        ++current;
        used = 0;
    }
    if (current == chunks.size() && !AddChunk(size))
        return nullptr;
    Chunk &chunk = chunks[current];
    char *const place = chunk.start + used;
    used += size;
    if (used > chunk.ready) {
        const quint64 from = chunk.ready;
        chunk.ready = std::min(chunk.size, (used + READY_AHEAD) & ~(PAGE_SIZE - 1));
        MakeReady(chunk.start + from, chunk.ready - from);
    }
    return place;
}

void PieceMemory::Clear()
{
    current = 0;
    used = 0;
}
