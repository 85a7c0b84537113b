// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>

#include <optional>

/// Reads little-endian fields from bytes that aren't trusted. A field that isn't wholly within the bytes is empty
/// (nullopt).
class ByteReader
{
public:
    explicit ByteReader(QByteArrayView view) : bytes(view) {}

    [[nodiscard]] quint64 Size() const { return quint64(bytes.size()); }
    [[nodiscard]] std::optional<quint16> U16(quint64 at) const { return Number<quint16>(at); }
    [[nodiscard]] std::optional<quint32> U32(quint64 at) const { return Number<quint32>(at); }

    /// Returns `size` bytes from `at`. Safe where `at + size` would overflow.
    [[nodiscard]] std::optional<QByteArrayView> Slice(quint64 at, quint64 size) const
    {
        if (at > Size() || size > Size() - at)
            return std::nullopt;
        return bytes.sliced(qsizetype(at), qsizetype(size));
    }

    /// Returns the bytes from `at` up to the next zero byte, without it.
    [[nodiscard]] std::optional<QByteArrayView> ZeroTerminated(quint64 at) const
    {
        if (at >= Size())
            return std::nullopt;
        const qsizetype end = bytes.indexOf('\0', qsizetype(at));
        if (end < 0)
            return std::nullopt;
        return bytes.sliced(qsizetype(at), end - qsizetype(at));
    }

private:
    template <typename T> [[nodiscard]] std::optional<T> Number(quint64 at) const
    {
        const auto field = Slice(at, sizeof(T));
        if (!field)
            return std::nullopt;
        T value = 0;
        for (size_t i = 0; i < sizeof(T); ++i)
            value = T(value | T(T(quint8((*field)[qsizetype(i)])) << (8 * i)));
        return value;
    }

    QByteArrayView bytes;
};
