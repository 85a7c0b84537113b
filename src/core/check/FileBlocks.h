// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>

#include <array>
#include <optional>

/// Reads fields anywhere in a file that isn't trusted, without reading all of it: the file is read in blocks of 4 KiB
/// where a field needs it. A field that isn't wholly within the file, or can't be read, is empty (nullopt).
class FileBlocks
{
public:
    static constexpr quint64 BLOCK = 4096; ///< bytes; the largest size of a field

    /// Reads an open file, which must stay open. `fileSize` is its size in bytes.
    FileBlocks(int fileDescriptor, quint64 fileSize) : descriptor(fileDescriptor), size(fileSize) {}
    /// Reads bytes in memory, which must outlive this object.
    explicit FileBlocks(QByteArrayView fileBytes) : bytes(fileBytes), size(quint64(fileBytes.size())) {}
    FileBlocks(const FileBlocks &) = delete;
    FileBlocks &operator=(const FileBlocks &) = delete;

    [[nodiscard]] quint64 Size() const { return size; }
    /// Returns the first bytes of the file: BLOCK, or all of a shorter file. Valid until the next call of a function.
    [[nodiscard]] QByteArrayView Start();
    /// Returns `count` bytes from `at`, at most BLOCK. Valid until the next call of a function.
    [[nodiscard]] std::optional<QByteArrayView> Slice(quint64 at, quint64 count);

    [[nodiscard]] std::optional<quint8> U8(quint64 at) { return Number<quint8>(at, false); }
    [[nodiscard]] std::optional<quint16> U16(quint64 at) { return Number<quint16>(at, false); }
    [[nodiscard]] std::optional<quint32> U32(quint64 at) { return Number<quint32>(at, false); }
    // The same for big-endian numbers.
    [[nodiscard]] std::optional<quint16> BigU16(quint64 at) { return Number<quint16>(at, true); }
    [[nodiscard]] std::optional<quint32> BigU32(quint64 at) { return Number<quint32>(at, true); }

private:
    template <typename T> std::optional<T> Number(quint64 at, bool isBigEndian)
    {
        const auto field = Slice(at, sizeof(T));
        if (!field)
            return std::nullopt;
        T value = 0;
        for (size_t i = 0; i < sizeof(T); ++i) {
            const size_t place = isBigEndian ? sizeof(T) - 1 - i : i;
            value = T(value | T(T(quint8((*field)[qsizetype(i)])) << (8 * place)));
        }
        return value;
    }

    int descriptor = -1;
    QByteArrayView bytes; // of a file in memory
    quint64 size;
    quint64 blockAt = 0;
    quint64 blockSize = 0;
    std::array<char, BLOCK> block; // not initialised: 10,000 files are read one after the other
};
