// SPDX-License-Identifier: MIT
#pragma once

#include "Biff.h"

#include <QByteArray>
#include <QtEndian>

#include <functional>

/// Makes the records of a BIFF stream, one after the other, and passes them on in pieces of whole records.
///
///     BiffWriter writer(take);
///     writer.Begin(BIFF_PANE).Add<quint16>(0, 2, 2, 0).Add<quint8>(2, 0);
///     writer.Flush();
class BiffWriter
{
public:
    explicit BiffWriter(std::function<void(QByteArrayView)> takePiece) : take(std::move(takePiece)) {}

    BiffWriter &Begin(quint16 type)
    {
        constexpr qsizetype PIECE = 64 << 10;
        if (bytes.size() > PIECE)
            Flush();
        dataAt = bytes.size() + 4;
        return AddNumber(type), AddNumber<quint16>(0), *this;
    }

    /// Adds numbers of type T to the current record.
    template <typename T> BiffWriter &Add(auto... values) { return (AddNumber<T>(T(values)), ..., Measure()); }
    BiffWriter &Add(QByteArrayView data) { return bytes.append(data), Measure(); }

    /// Returns the number of bytes for which the record has room.
    [[nodiscard]] quint64 Room() const { return MOST_RECORD_DATA - quint64(bytes.size() - dataAt); }
    /// Passes on the remaining records. The last record must be complete.
    void Flush()
    {
        take(bytes);
        bytes.resize(0);
    }

private:
    template <typename T> void AddNumber(T value)
    {
        const T little = qToLittleEndian(value);
        bytes.append(reinterpret_cast<const char *>(&little), sizeof(T));
    }

    BiffWriter &Measure()
    {
        qToLittleEndian<quint16>(quint16(bytes.size() - dataAt), bytes.data() + dataAt - 2);
        return *this;
    }

    std::function<void(QByteArrayView)> take;
    QByteArray bytes;
    qsizetype dataAt = 0; // where the data of the current record begins
};
