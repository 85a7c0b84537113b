// SPDX-License-Identifier: MIT
#include "ExpatParser.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>

namespace
{

// expat passes no context to these functions and no size to the one that frees, so the size is stored before each
// block.
constexpr size_t PREFIX = alignof(std::max_align_t);
thread_local size_t taken = 0;

size_t &SizeOf(void *block)
{
    return *reinterpret_cast<size_t *>(static_cast<char *>(block) - PREFIX);
}

void Free(void *block)
{
    if (!block)
        return;
    taken -= SizeOf(block);
    std::free(static_cast<char *>(block) - PREFIX);
}

void *Allocate(size_t size)
{
    if (size > ExpatParser::MOST_MEMORY - taken)
        return nullptr;
    void *const start = std::malloc(PREFIX + size);
    if (!start)
        return nullptr;
    void *const block = static_cast<char *>(start) + PREFIX;
    SizeOf(block) = size;
    taken += size;
    return block;
}

void *Reallocate(void *block, size_t size)
{
    void *const moved = Allocate(size);
    if (moved && block) {
        std::memcpy(moved, block, std::min(size, SizeOf(block)));
        Free(block);
    }
    return moved;
}

constexpr XML_Memory_Handling_Suite COUNTED = {Allocate, Reallocate, Free};

} // namespace

ExpatParser::ExpatParser() : parser(XML_ParserCreate_MM(nullptr, &COUNTED, &SEPARATOR))
{
    if (!parser)
        throw std::bad_alloc();
}
