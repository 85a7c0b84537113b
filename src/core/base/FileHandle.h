// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <sys/types.h>

/// Owns a file descriptor; the destructor closes it.
class FileHandle
{
public:
    explicit FileHandle(int descriptor = -1) : fd(descriptor) {}
    ~FileHandle();
    FileHandle(FileHandle &&other) noexcept : fd(other.fd) { other.fd = -1; }
    FileHandle &operator=(FileHandle &&other) noexcept;
    [[nodiscard]] bool IsOpen() const { return fd >= 0; }
    [[nodiscard]] int Get() const { return fd; }

    /// Returns the file's size in bytes, or -1.
    [[nodiscard]] int64_t Size() const;
    /// Reads up to `size` bytes and continues after interrupts. Returns the number of bytes, or -1.
    [[nodiscard]] ssize_t Read(void *buffer, size_t size) const;
    /// Writes all bytes. On failure, returns false and sets errno.
    [[nodiscard]] bool WriteAll(const void *bytes, size_t size) const;

private:
    int fd;
};
