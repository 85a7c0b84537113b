#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

/// Bytes that nobody has checked yet.
using Bytes = std::span<const std::uint8_t>;

/// Memory that may be refused: the program runs under a limit, and a refusal must end in an error line.
///
/// Owns its bytes, all zero at first. Not copied.
class Buffer
{
public:
    Buffer() = default;
    Buffer(const Buffer &) = delete;
    Buffer &operator=(const Buffer &) = delete;
    ~Buffer() { std::free(m_data); }

    /// Gives `size` zero bytes in place of what was there, or false and nothing when memory is refused.
    [[nodiscard]] bool Allocate(std::size_t size)
    {
        std::free(m_data);
        m_data = static_cast<std::uint8_t *>(std::calloc(size > 0 ? size : 1, 1));
        m_size = m_data != nullptr ? size : 0;
        return m_data != nullptr;
    }

    /// Forgets the bytes behind `size`, which is at most Size().
    void Truncate(std::size_t size) { m_size = size; }

    std::uint8_t *Data() { return m_data; }
    std::size_t Size() const { return m_size; }
    Bytes View() const { return {m_data, m_size}; }

private:
    std::uint8_t *m_data = nullptr;
    std::size_t m_size = 0;
};
