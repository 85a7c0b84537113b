#pragma once

#include "Biff.h"

#include <QByteArray>
#include <QtEndian>

/// Makes the records of a BIFF stream, one behind the other.
///
///     writer.Begin(BIFF_PANE).Add<quint16>(0, 2, 2, 0).Add<quint8>(2, 0);
class BiffWriter
{
public:
    BiffWriter &Begin(quint16 type)
    {
        dataAt = bytes.size() + 4;
        return AddNumber(type), AddNumber<quint16>(0), *this;
    }

    /// Adds numbers of type T to the record begun last.
    template <typename T> BiffWriter &Add(auto... values) { return (AddNumber<T>(T(values)), ..., Measure()); }
    BiffWriter &Add(QByteArrayView data) { return bytes.append(data), Measure(); }

    /// How much more data the record can take.
    [[nodiscard]] quint64 Room() const { return MOST_RECORD_DATA - quint64(bytes.size() - dataAt); }
    [[nodiscard]] const QByteArray &Bytes() const { return bytes; }

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

    QByteArray bytes;
    qsizetype dataAt = 0; // of the record begun last
};
