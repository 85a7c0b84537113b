// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

/// Unchecked bytes.
using Bytes = std::span<const std::uint8_t>;

/// Memory that may be refused: the program runs with a memory limit, and a refusal must result in an error line.
///
/// Owns its bytes, which are zero at first. Can't be copied.
class Buffer
{
public:
    Buffer() = default;
    Buffer(const Buffer &) = delete;
    Buffer &operator=(const Buffer &) = delete;
    ~Buffer() { std::free(m_data); }

    /// Replaces the contents with `size` zero bytes. Returns false, and leaves the buffer empty, if memory is refused.
    [[nodiscard]] bool Allocate(std::size_t size)
    {
        std::free(m_data);
        m_data = static_cast<std::uint8_t *>(std::calloc(size > 0 ? size : 1, 1));
        m_size = m_data != nullptr ? size : 0;
        return m_data != nullptr;
    }

    /// Drops the bytes after `size`, which must not exceed Size().
    void Truncate(std::size_t size) { m_size = size; }

    std::uint8_t *Data() { return m_data; }
    std::size_t Size() const { return m_size; }
    Bytes View() const { return {m_data, m_size}; }

private:
    std::uint8_t *m_data = nullptr;
    std::size_t m_size = 0;
};
