// SPDX-License-Identifier: MIT
#include "PngUnpacker.h"

#include <algorithm>
#include <cstring>
#include <libdeflate.h>
#include <optional>
#include <zlib.h>

// A png is 8 bytes of signature and chunks: length (4), type (4), data, checksum (4). Numbers are big-endian. The first
// chunk is the header. The compressed pixels are the joined data of all IDAT chunks, which follow one another.

namespace
{

constexpr std::uint64_t maxPixelBytes = 16 << 20;
constexpr std::size_t signatureSize = 8;
constexpr std::size_t chunkOverhead = 12;
constexpr std::size_t maxStored = 65535; // of one stored block

std::uint32_t U32(const std::uint8_t *from)
{
    return std::uint32_t{from[0]} << 24 | std::uint32_t{from[1]} << 16 | std::uint32_t{from[2]} << 8 | from[3];
}

void PutU32(std::uint8_t *to, std::uint32_t value)
{
    for (unsigned byte = 0; byte < 4; ++byte)
        to[byte] = static_cast<std::uint8_t>(value >> (24 - 8 * byte));
}

bool IsOfType(Bytes chunk, const char *type)
{
    return std::memcmp(chunk.data() + 4, type, 4) == 0;
}

/// The whole chunk at `at`, if it is there and its checksum is correct.
std::optional<Bytes> ChunkAt(Bytes file, std::size_t at)
{
    if (file.size() - at < chunkOverhead)
        return std::nullopt;
    const std::size_t length = U32(file.data() + at);
    if (length > file.size() - at - chunkOverhead)
        return std::nullopt;
    const Bytes chunk = file.subspan(at, length + chunkOverhead);
#ifndef FUZZING_BUILD_MODE_UNSAFE_FOR_PRODUCTION
    if (libdeflate_crc32(0, chunk.data() + 4, length + 4) != U32(chunk.data() + 8 + length))
        return std::nullopt;
#endif
    return chunk;
}

/// The place of the IDAT chunks, and the total size of their data in bytes.
struct PixelChunks
{
    std::size_t begin = 0;
    std::size_t end = 0;
    std::size_t dataSize = 0;
    bool isPlain = true; ///< the other chunks are IHDR, IEND and those that a reader needn't know
};

/// Walks through all chunks.
std::optional<PixelChunks> FindPixelChunks(Bytes file)
{
    PixelChunks pixels;
    std::size_t at = signatureSize;
    for (bool isLast = false; !isLast;) {
        const auto chunk = ChunkAt(file, at);
        if (!chunk)
            return std::nullopt;
        if (IsOfType(*chunk, "IDAT")) {
            if (pixels.end == 0)
                pixels.begin = at;
            else if (pixels.end != at)
                return std::nullopt;
            pixels.end = at + chunk->size();
            pixels.dataSize += chunk->size() - chunkOverhead;
        }
        isLast = IsOfType(*chunk, "IEND");
        const bool isFirst = at == signatureSize;
        const bool isOptional = ((*chunk)[4] & 0x20) != 0; // its name begins with a small letter
        if (!isLast && !isOptional && !IsOfType(*chunk, isFirst ? "IHDR" : "IDAT"))
            pixels.isPlain = false;
        at += chunk->size();
    }
    if (pixels.end == 0)
        return std::nullopt;
    return pixels;
}

/// The number of bytes of a picture, or of one pass over it. Each row has a byte before its pixels.
std::uint64_t SizeOfRows(std::uint64_t width, std::uint64_t height, unsigned bitsPerPixel)
{
    return width == 0 || height == 0 ? 0 : height * (1 + (width * bitsPerPixel + 7) / 8);
}

/// The decompressed size according to the data of the header chunk. Nothing if the data is unusual.
std::optional<std::uint64_t> SizeOfPixels(const std::uint8_t *header)
{
    constexpr unsigned channelsOfType[] = {1, 0, 3, 1, 2, 0, 4};
    const std::uint64_t width = U32(header);
    const std::uint64_t height = U32(header + 4);
    const unsigned depth = header[8];
    const unsigned type = header[9];
    const unsigned interlace = header[12];
    if (type > 6 || channelsOfType[type] == 0 || depth > 16 || interlace > 1 || width > maxPixelBytes ||
        height > maxPixelBytes)
        return std::nullopt;
    const unsigned bits = channelsOfType[type] * depth;
    if (interlace == 0)
        return SizeOfRows(width, height, bits);

    struct Pass
    {
        unsigned x, y, right, down;
    };
    constexpr Pass passes[] = {{0, 0, 8, 8}, {4, 0, 8, 8}, {0, 4, 4, 8}, {2, 0, 4, 4},
                               {0, 2, 2, 4}, {1, 0, 2, 2}, {0, 1, 1, 2}};
    std::uint64_t size = 0;
    for (const Pass &pass : passes)
        size += SizeOfRows((width + pass.right - 1 - pass.x) / pass.right,
                           (height + pass.down - 1 - pass.y) / pass.down, bits);
    return size;
}

/// The decompressed size according to the header chunk; 0 if it is unusual or too large.
std::size_t UnpackedSize(Bytes file)
{
    // The caller may have checked part of this already, but this function doesn't rely on it.
    constexpr std::size_t headerEnd = signatureSize + 13 + chunkOverhead;
    if (file.size() < headerEnd || U32(file.data() + signatureSize) != 13)
        return 0;
    const auto size = SizeOfPixels(file.data() + signatureSize + 8);
    return size && *size <= maxPixelBytes ? static_cast<std::size_t>(*size) : 0;
}

bool Decompress(Bytes file, const PixelChunks &chunks, std::uint8_t *to, std::size_t size)
{
    Buffer gathered;
    const std::uint8_t *data = file.data() + chunks.begin + 8;
    if (chunks.end - chunks.begin != chunks.dataSize + chunkOverhead) { // more than one chunk
        if (!gathered.Allocate(chunks.dataSize))
            return false;
        std::uint8_t *next = gathered.Data();
        for (std::size_t at = chunks.begin; at < chunks.end;) {
            const std::size_t length = U32(file.data() + at);
            std::memcpy(next, file.data() + at + 8, length);
            next += length;
            at += length + chunkOverhead;
        }
        data = gathered.Data();
    }
    libdeflate_decompressor *decompressor = libdeflate_alloc_decompressor();
    if (decompressor == nullptr)
        return false;
    const libdeflate_result result = libdeflate_zlib_decompress(decompressor, data, chunks.dataSize, to, size, nullptr);
    libdeflate_free_decompressor(decompressor);
    return result == LIBDEFLATE_SUCCESS;
}

/// Decompresses in pieces, which libdeflate can't do.
class Inflater
{
public:
    explicit Inflater(Buffer &to)
    {
        m_stream.next_out = to.Data();
        m_stream.avail_out = static_cast<uInt>(to.Size());
        m_hasFailed = inflateInit(&m_stream) != Z_OK;
    }
    Inflater(const Inflater &) = delete;
    Inflater &operator=(const Inflater &) = delete;
    ~Inflater() { inflateEnd(&m_stream); }

    bool IsFull() const { return m_stream.avail_out == 0; }
    bool HasFailed() const { return m_hasFailed; }
    std::size_t Count() const { return m_stream.total_out; }

    void Take(Bytes data)
    {
        m_stream.next_in = const_cast<Bytef *>(data.data()); // zlib doesn't write there
        m_stream.avail_in = static_cast<uInt>(data.size());
        const int result = data.empty() || m_hasFailed ? Z_OK : inflate(&m_stream, Z_SYNC_FLUSH);
        m_hasFailed = m_hasFailed || (result != Z_OK && result != Z_STREAM_END);
    }

private:
    z_stream m_stream{};
    bool m_hasFailed = false;
};

/// Writes an IDAT chunk of stored blocks. The `size` bytes at `from` may be at the end of the chunk's own data: each
/// block moves its bytes towards the beginning or doesn't move them.
void MakeStoredChunk(std::uint8_t *chunk, std::size_t dataSize, const std::uint8_t *from, std::size_t size)
{
    PutU32(chunk, static_cast<std::uint32_t>(dataSize));
    std::memcpy(chunk + 4, "IDAT\x78\x01", 6);
    std::uint8_t *to = chunk + 10;
    while (size > 0) {
        const std::size_t count = std::min(size, maxStored);
        size -= count;
        const auto number = static_cast<std::uint16_t>(count);
        to[0] = size == 0 ? 1 : 0; // the last block
        to[1] = static_cast<std::uint8_t>(number);
        to[2] = static_cast<std::uint8_t>(number >> 8);
        to[3] = static_cast<std::uint8_t>(~to[1]);
        to[4] = static_cast<std::uint8_t>(~to[2]);
        std::memmove(to + 5, from, count);
        to += 5 + count;
        from += count;
    }
}

} // namespace

bool UnpackPng(Bytes file, Buffer &unpacked)
{
    const std::size_t pixelSize = UnpackedSize(file);
    const auto chunks = pixelSize > 0 ? FindPixelChunks(file) : std::nullopt;
    if (!chunks)
        return false;

    const std::size_t blocks = (pixelSize + maxStored - 1) / maxStored;
    // The two checksums at the end stay 0: libpng is set to ignore them.
    const std::size_t dataSize = 2 + 5 * blocks + pixelSize + 4;
    const std::size_t tailSize = file.size() - chunks->end;
    if (!unpacked.Allocate(chunks->begin + chunkOverhead + dataSize + tailSize))
        return false;
    std::uint8_t *chunk = unpacked.Data() + chunks->begin;
    std::uint8_t *pixels = chunk + 8 + dataSize - 4 - pixelSize;
    if (!Decompress(file, *chunks, pixels, pixelSize))
        return false;
    MakeStoredChunk(chunk, dataSize, pixels, pixelSize);
    std::memcpy(unpacked.Data(), file.data(), chunks->begin);
    std::memcpy(chunk + chunkOverhead + dataSize, file.data() + chunks->end, tailSize);
    return true;
}

bool UnpackPngRows(Bytes file, Buffer &rows)
{
    const std::size_t size = UnpackedSize(file);
    const auto chunks = size > 0 ? FindPixelChunks(file) : std::nullopt;
    return chunks && chunks->isPlain && rows.Allocate(size) && Decompress(file, *chunks, rows.Data(), size);
}

std::size_t UnpackPngStart(Bytes start, Buffer &rows)
{
    Inflater inflater(rows);
    bool isInPixels = false;
    for (std::size_t at = signatureSize; start.size() > at + 8 && !inflater.IsFull();) {
        const Bytes chunk = start.subspan(at);
        const std::size_t length = U32(chunk.data());
        const bool isPixels = IsOfType(chunk, "IDAT");
        const bool isOptional = (chunk[4] & 0x20) != 0; // its name begins with a small letter
        if (isPixels)
            inflater.Take(chunk.subspan(8, std::min(length, chunk.size() - 8)));
        else if (isInPixels)
            break; // the pixels end here
        else if (!isOptional && (at != signatureSize || !IsOfType(chunk, "IHDR")))
            return 0;
        isInPixels = isPixels;
        at += length + chunkOverhead;
    }
    return inflater.HasFailed() ? 0 : inflater.Count();
}
