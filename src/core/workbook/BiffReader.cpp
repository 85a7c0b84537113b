// SPDX-License-Identifier: MIT
#include "BiffReader.h"

#include "Biff.h"
#include "ByteReader.h"
#include "XlsFault.h"

#include <QtEndian>

#include <algorithm>

std::optional<BiffReader::Record> BiffReader::Next()
{
    const ByteReader bytes(stream);
    const auto type = bytes.U16(at);
    const auto size = bytes.U16(at + 2);
    if (!type || !size)
        return std::nullopt;
    const auto data = bytes.Slice(at + 4, *size);
    if (!data)
        return std::nullopt;
    const Record record{*type, at, *data};
    at += 4 + quint64(*size);
    return record;
}

WorkbookResult Damaged(const BiffReader::Record &record, const QString &what)
{
    return BrokenXls(QStringLiteral("record 0x%1 at 0x%2: %3").arg(record.type, 0, 16).arg(record.at, 0, 16).arg(what));
}

WorkbookResult TooShort(const BiffReader::Record &record)
{
    return Damaged(record, QStringLiteral("%1 bytes are too few").arg(record.data.size()));
}

WorkbookResult BiffReader::CutOff() const
{
    return BrokenXls(
        QStringLiteral("the stream of %1 bytes is cut off in the record at 0x%2").arg(stream.size()).arg(at, 0, 16));
}

WorkbookResult BiffReader::ReadBegin(quint16 kind)
{
    const auto record = Next();
    if (!record)
        return CutOff();
    const auto version = ByteReader(record->data).U16(0);
    const auto found = ByteReader(record->data).U16(2);
    if (record->type != BIFF_BOF || !found)
        return Damaged(*record, QStringLiteral("a BOF was expected"));
    if (*version != BIFF8)
        return NoXls(QStringLiteral("it is of version 0x%1 (Excel 97-2003 has 0x600)").arg(*version, 0, 16));
    if (*found != kind)
        return Damaged(*record, QStringLiteral("a BOF of kind %1 was expected, not %2").arg(kind).arg(*found));
    return {};
}

BiffCursor BiffReader::WithContinued(const Record &record)
{
    BiffCursor cursor;
    cursor.Append(record.data);
    while (ByteReader(stream).U16(at) == BIFF_CONTINUE) {
        const auto more = Next();
        if (!more)
            break;
        cursor.Append(more->data);
    }
    return cursor;
}

void BiffCursor::Append(QByteArrayView view)
{
    if (!view.isEmpty())
        parts.push_back(view);
}

bool BiffCursor::EnterNextPart()
{
    if (part < parts.size() && at == parts[part].size()) {
        ++part;
        at = 0;
    }
    return part < parts.size();
}

std::optional<quint8> BiffCursor::U8()
{
    if (!EnterNextPart())
        return std::nullopt;
    return quint8(parts[part][at++]);
}

template <typename T> std::optional<T> BiffCursor::Number()
{
    T value = 0;
    for (size_t i = 0; i < sizeof(T); ++i) {
        const auto byte = U8();
        if (!byte)
            return std::nullopt;
        value = T(value | T(T(*byte) << (8 * i)));
    }
    return value;
}

std::optional<quint16> BiffCursor::U16()
{
    return Number<quint16>();
}

std::optional<quint32> BiffCursor::U32()
{
    return Number<quint32>();
}

bool BiffCursor::Skip(quint64 count)
{
    while (count > 0) {
        if (!EnterNextPart())
            return false;
        const quint64 here = std::min(count, quint64(parts[part].size() - at));
        at += qsizetype(here);
        count -= here;
    }
    return true;
}

/// Nearly all texts are within one record.
std::optional<TextPool::Ref> BiffCursor::Characters(quint16 length, quint8 flags, TextPool &pool)
{
    const bool isWide = (flags & TEXT_WIDE) != 0;
    const qsizetype size = qsizetype(length) << int(isWide);
    if (part < parts.size() && parts[part].size() - at >= size) {
        at += size;
        return pool.InFile(parts[part].sliced(at - size, size), isWide);
    }
    QString text(length, Qt::Uninitialized);
    if (!GatherCharacters(flags, text))
        return std::nullopt;
    return pool.Add(text);
}

bool BiffCursor::GatherCharacters(quint8 flags, QString &text)
{
    qsizetype done = 0;
    while (done < text.size()) {
        if (part >= parts.size() || at == parts[part].size()) {
            const auto newFlags = U8();
            if (!newFlags)
                return false;
            flags = *newFlags;
        }
        const QByteArrayView rest = parts[part].sliced(at);
        const qsizetype width = flags & TEXT_WIDE ? 2 : 1;
        const qsizetype count = std::min(text.size() - done, rest.size() / width);
        auto *target = reinterpret_cast<char16_t *>(text.data()) + done;
        if (width == 2)
            qFromLittleEndian<char16_t>(rest.data(), count, target);
        else
            std::transform(rest.begin(), rest.begin() + count, target,
                           [](char byte) { return char16_t(quint8(byte)); });
        at += count * width;
        done += count;
        if (done < text.size() && at != parts[part].size())
            return false; // a record ends within a character
    }
    return true;
}

std::optional<TextPool::Ref> BiffCursor::Text(TextPool &pool)
{
    const auto length = U16();
    const auto flags = U8();
    if (!length || !flags)
        return std::nullopt;
    const auto runs = *flags & TEXT_RICH ? U16() : 0;
    const auto extension = *flags & TEXT_EXTENDED ? U32() : 0;
    if (!runs || !extension)
        return std::nullopt;
    const auto text = Characters(*length, *flags, pool);
    if (!text || !Skip(4 * quint64(*runs) + *extension))
        return std::nullopt;
    return text;
}
