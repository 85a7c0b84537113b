#pragma once

#include "Buffer.h"

#include <optional>

/// Little-endian fields of bytes that nobody has checked yet. Past the end there is nothing, and never a crash.
class PictureBytes
{
public:
    explicit PictureBytes(Bytes bytes) : m_bytes(bytes) {}

    std::uint64_t Size() const { return m_bytes.size(); }

    std::optional<std::uint16_t> U16(std::uint64_t at) const
    {
        const auto field = Slice(at, 2);
        if (!field)
            return std::nullopt;
        return static_cast<std::uint16_t>((*field)[0] | (*field)[1] << 8);
    }

    std::optional<std::uint32_t> U32(std::uint64_t at) const
    {
        const auto field = Slice(at, 4);
        if (!field)
            return std::nullopt;
        return std::uint32_t{(*field)[0]} | std::uint32_t{(*field)[1]} << 8 | std::uint32_t{(*field)[2]} << 16 |
               std::uint32_t{(*field)[3]} << 24;
    }

    /// Safe where `at` + `size` would wrap.
    std::optional<Bytes> Slice(std::uint64_t at, std::uint64_t size) const
    {
        if (at > m_bytes.size() || size > m_bytes.size() - at)
            return std::nullopt;
        return m_bytes.subspan(static_cast<std::size_t>(at), static_cast<std::size_t>(size));
    }

private:
    Bytes m_bytes;
};
