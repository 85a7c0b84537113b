// SPDX-License-Identifier: MIT
#pragma once

#include "Buffer.h"

#include <optional>

/// Reads little-endian fields of unchecked bytes. Reading past the end returns nothing and never crashes.
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

    /// Safe if `at` + `size` would wrap around.
    std::optional<Bytes> Slice(std::uint64_t at, std::uint64_t size) const
    {
        if (at > m_bytes.size() || size > m_bytes.size() - at)
            return std::nullopt;
        return m_bytes.subspan(static_cast<std::size_t>(at), static_cast<std::size_t>(size));
    }

private:
    Bytes m_bytes;
};
