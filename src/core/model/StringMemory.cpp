// SPDX-License-Identifier: MIT
#include "StringMemory.h"

#include <cstring>
#include <new>
#include <sys/mman.h>
#include <utility>

#if defined(__SANITIZE_ADDRESS__)
#define CHECKS_ADDRESSES
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define CHECKS_ADDRESSES
#endif
#endif
#ifdef CHECKS_ADDRESSES
#include <sanitizer/asan_interface.h>
#else
#define ASAN_POISON_MEMORY_REGION(place, size) (void(place), void(size))
#define ASAN_UNPOISON_MEMORY_REGION(place, size) (void(place), void(size))
#endif

/// What a block begins with. Its address is a multiple of `ALIGNMENT`, so each place in it leads to it.
struct StringMemory::Block
{
    StringMemory *memory;
    std::size_t size; // bytes
    std::size_t used; // bytes, with this header
    quint32 live;     // the number of its records or texts, and 1 more while it is being filled
};

namespace
{

constexpr std::size_t BLOCK_SIZE = 256 * 1024; // not more than ALIGNMENT
constexpr std::size_t ALIGNMENT = BLOCK_SIZE;
constexpr std::size_t LARGEST = BLOCK_SIZE / 2; // what is larger has a block of its own

// The unit in front of a text is its length; if that is LONG, the length is in the two units before it.
constexpr char16_t LONG = 0xFFFF;
using LongLength = quint32;
constexpr std::size_t LONG_UNITS = sizeof(LongLength) / sizeof(char16_t);

/// The number of units in front of a text.
std::size_t UnitsBefore(std::size_t length)
{
    return length < LONG ? 1 : 1 + LONG_UNITS;
}

std::size_t BytesOf(std::size_t length)
{
    return (UnitsBefore(length) + length) * sizeof(char16_t);
}

// A large table has its blocks side by side in regions of this size, so that the system can give it large pages: pages
// of 4 KiB take a third of the time of its load. A small table would only need more memory with regions.
constexpr std::size_t REGION_SIZE = 2 * 1024 * 1024; // a large page
constexpr int BLOCKS_OUTSIDE_REGIONS = 8;

/// Returns new pages at a multiple of `alignment`; `size` is a multiple of ALIGNMENT. They are from the system itself:
/// the allocator of the C++ library leaves gaps between aligned pieces, and keeps what is freed.
char *MapAligned(std::size_t size, std::size_t alignment)
{
    const auto map = [](std::size_t bytes) {
        void *const place = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (place == MAP_FAILED)
            throw std::bad_alloc();
        return static_cast<char *>(place);
    };
    char *const place = map(size);
    if (quintptr(place) % alignment == 0) // usual, as the system puts one mapping beside the other
        return place;
    munmap(place, size);
    char *const wider = map(size + alignment);
    const std::size_t before = alignment - quintptr(wider) % alignment;
    munmap(wider, before);
    if (before < alignment)
        munmap(wider + before + size, alignment - before);
    return wider + before;
}

} // namespace

StringMemory::~StringMemory()
{
    for (Block *block : {records, texts}) {
        Q_ASSERT(!block || block->live == 1);
        if (block)
            Leave(block);
    }
    FreeRegion();
}

void StringMemory::FreeRegion()
{
    if (regionSize > 0)
        munmap(region, regionSize);
}

/// Returns the pages of a new block.
char *StringMemory::Pages(std::size_t size)
{
    if (size != BLOCK_SIZE || blocksBefore < BLOCKS_OUTSIDE_REGIONS) {
        blocksBefore += size == BLOCK_SIZE;
        return MapAligned(size, ALIGNMENT);
    }
    if (regionSize == 0) {
        region = MapAligned(REGION_SIZE, REGION_SIZE);
        regionSize = REGION_SIZE;
        (void)madvise(region, regionSize, MADV_HUGEPAGE); // if the system refuses, it uses small pages
    }
    regionSize -= size;
    return std::exchange(region, region + size);
}

StringMemory::Block *StringMemory::NewBlock(std::size_t size)
{
    auto *const block = new (Pages(size)) Block{this, size, sizeof(Block), 1};
    ASAN_POISON_MEMORY_REGION(block + 1, size - sizeof(Block));
    return block;
}

void *StringMemory::Take(Block *&block, std::size_t size)
{
    if (size > LARGEST) {
        const std::size_t blocks = (sizeof(Block) + size + BLOCK_SIZE - 1) / BLOCK_SIZE;
        void *const place = NewBlock(blocks * BLOCK_SIZE) + 1;
        ASAN_UNPOISON_MEMORY_REGION(place, size);
        return place;
    }
    if (!block || block->used + size > BLOCK_SIZE) {
        Block *const full = block;
        block = NewBlock(BLOCK_SIZE);
        if (full)
            Leave(full);
    }
    char *const place = reinterpret_cast<char *>(block) + block->used;
    block->used += size;
    ++block->live;
    ASAN_UNPOISON_MEMORY_REGION(place, size);
    return place;
}

void StringMemory::Leave(Block *block)
{
    if (--block->live > 0)
        return;
    const std::size_t size = block->size;
    ASAN_UNPOISON_MEMORY_REGION(block, size);
    munmap(block, size);
}

void StringMemory::Free(const void *place, std::size_t size)
{
    ASAN_POISON_MEMORY_REGION(place, size);
    Leave(reinterpret_cast<Block *>(quintptr(place) & ~quintptr(ALIGNMENT - 1)));
}

StringMemory &StringMemory::Of(const void *record)
{
    return *reinterpret_cast<const Block *>(quintptr(record) & ~quintptr(ALIGNMENT - 1))->memory;
}

qsizetype StringMemory::LengthOf(const char16_t *text)
{
    if (text[-1] != LONG)
        return text[-1];
    LongLength length;
    std::memcpy(&length, text - 1 - LONG_UNITS, sizeof(length));
    return qsizetype(length);
}

const char16_t *StringMemory::NewText(QStringView text)
{
    if (text.isEmpty())
        return nullptr;
    const auto length = std::size_t(text.size());
    auto *const copy = static_cast<char16_t *>(Take(texts, BytesOf(length))) + UnitsBefore(length);
    copy[-1] = char16_t(qMin<std::size_t>(length, LONG));
    if (length >= LONG) {
        const auto whole = LongLength(length);
        std::memcpy(copy - 1 - LONG_UNITS, &whole, sizeof(whole));
    }
    std::memcpy(copy, text.utf16(), length * sizeof(char16_t));
    return copy;
}

void StringMemory::FreeText(const char16_t *text)
{
    if (!text)
        return;
    const auto length = std::size_t(LengthOf(text));
    Free(text - UnitsBefore(length), BytesOf(length));
}
