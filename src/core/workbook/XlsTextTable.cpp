// SPDX-License-Identifier: MIT
#include "XlsTextTable.h"

#include <algorithm>

namespace
{

/// Returns the beginning of `characters` that fits into `room` bytes. Never splits a surrogate pair.
QByteArrayView Fitting(QByteArrayView characters, quint64 room, quint16 width)
{
    const qsizetype size = qsizetype(room - room % width);
    if (size >= characters.size())
        return characters;
    const auto unitAt = [characters](qsizetype at) { return qFromLittleEndian<char16_t>(characters.data() + at); };
    const bool isInPair =
        width == 2 && size >= 2 && QChar::isHighSurrogate(unitAt(size - 2)) && QChar::isLowSurrogate(unitAt(size));
    return characters.first(isInPair ? size - 2 : size);
}

/// Writes a text. Its number of characters and its flags are in the same record; each further record with its
/// characters begins with the flags.
void WriteText(BiffWriter &writer, QByteArrayView characters, quint16 width)
{
    constexpr quint64 HEAD_AND_PAIR = 3 + 4;
    const quint8 flags = width == 2 ? TEXT_WIDE : 0;
    if (writer.Room() < HEAD_AND_PAIR)
        writer.Begin(BIFF_CONTINUE);
    writer.Add<quint16>(characters.size() / width).Add<quint8>(flags);
    for (QByteArrayView rest = characters;;) {
        const QByteArrayView piece = Fitting(rest, writer.Room(), width);
        writer.Add(piece);
        rest = rest.sliced(piece.size());
        if (rest.isEmpty())
            return;
        writer.Begin(BIFF_CONTINUE).Add<quint8>(flags);
    }
}

} // namespace

quint32 XlsTextTable::NumberOf(QStringView text)
{
    ++uses;
    const TextPool::Ref ref = pool.Add(text);
    quint32 &slot = SlotOf(ref);
    if (slot != FREE) {
        pool.TakeBack(ref);
        return slot;
    }
    const quint32 number = quint32(texts.size());
    slot = number;
    texts.push_back(ref);
    if (texts.size() > table.size() / 2)
        Grow();
    return number;
}

quint32 &XlsTextTable::SlotOf(TextPool::Ref text)
{
    const QByteArrayView bytes = pool.Bytes(text);
    for (size_t i = HashOf(text);; ++i) {
        quint32 &slot = table[i & (table.size() - 1)];
        if (slot == FREE || (texts[slot].isWide == text.isWide && pool.Bytes(texts[slot]) == bytes))
            return slot;
    }
}

void XlsTextTable::Grow()
{
    table.assign(table.size() * 2, FREE);
    for (size_t i = 0; i < texts.size(); ++i)
        SlotOf(texts[i]) = quint32(i);
}

void XlsTextTable::Write(BiffWriter &writer) const
{
    writer.Begin(BIFF_SST).Add<quint32>(uses, texts.size());
    for (const TextPool::Ref text : texts)
        WriteText(writer, pool.Bytes(text), text.isWide ? 2 : 1);
}
