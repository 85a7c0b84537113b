// SPDX-License-Identifier: MIT
#include "PayloadBuffer.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <sys/mman.h>

namespace
{

constexpr size_t FIRST_CAPACITY = size_t(32) << 20;
constexpr size_t TOUCH_AHEAD = size_t(128) << 10;
constexpr quint64 LARGEST = std::numeric_limits<quint32>::max();

} // namespace

PayloadBuffer::PayloadBuffer(size_t frontRoom, bool isSparse) : front(frontRoom), sparse(isSparse) {}

PayloadBuffer::~PayloadBuffer()
{
    if (memory)
        munmap(memory, capacity);
}

bool PayloadBuffer::Grow(quint64 needed)
{
    if (memory && needed <= capacity)
        return true;
    // This reserves addresses only: a page gets memory when it is first written to.
    size_t wanted = std::max(capacity * 2, FIRST_CAPACITY);
    wanted = std::max(wanted, size_t(needed));
    void *grown =
        memory ? mremap(memory, capacity, wanted, MREMAP_MAYMOVE)
               : mmap(nullptr, wanted, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (grown == MAP_FAILED)
        return false;
    memory = static_cast<char *>(grown);
    capacity = wanted;
    return true;
}

void PayloadBuffer::Touch(quint64 size)
{
    const quint64 end = front + used + size;
    if (end <= touched)
        return;
    // One call for many pages is much cheaper than a page fault for each. A system that doesn't support the call takes
    // the faults. Preparing pages in advance only helps small pieces.
    constexpr size_t PAGE_MASK = 4095;
    const size_t from = std::max(touched, front) & ~PAGE_MASK;
    touched = std::min(capacity, size_t(end) + (size < TOUCH_AHEAD ? TOUCH_AHEAD : 0)) & ~PAGE_MASK;
    if (touched > from)
        (void)madvise(memory + from, touched - from, MADV_POPULATE_WRITE);
}

char *PayloadBuffer::Append(quint64 size)
{
    if (size > LARGEST - used || !Grow(front + used + size))
        return nullptr;
    if (!sparse)
        Touch(size);
    char *place = At(qint64(used));
    used += size;
    return place;
}

bool PayloadBuffer::EnsureFront(quint64 size)
{
    if (size <= front)
        return Grow(front + used);
    if (!Grow(size + used))
        return false;
    std::memmove(memory + size, memory + front, size_t(used));
    front = size_t(size);
    return true;
}
