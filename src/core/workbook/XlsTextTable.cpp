#include "XlsTextTable.h"

#include <algorithm>

namespace
{

bool IsLatin1(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x100; });
}

/// So much of `characters` as goes into `room` bytes, and never half of a surrogate pair.
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

/// The count of characters and their flags stay together; a piece of the characters in another record has flags anew.
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
    const quint32 hash = quint32(qHash(text, seed));
    quint32 &slot = SlotOf(hash, [&](const Text &known) { return IsSame(known, hash, text); });
    if (slot != FREE)
        return slot;
    const quint32 number = quint32(texts.size());
    const quint16 width = IsLatin1(text) ? 1 : 2;
    slot = number;
    texts.push_back({buffer.size(), hash, quint16(text.size()), width});
    buffer.resize(buffer.size() + text.size() * width);
    char *bytes = buffer.data() + texts.back().at;
    if (width == 1)
        std::transform(text.begin(), text.end(), bytes, [](QChar c) { return char(c.unicode()); });
    else
        qToLittleEndian<char16_t>(text.utf16(), text.size(), bytes);
    if (texts.size() > table.size() / 2)
        Grow();
    return number;
}

QByteArrayView XlsTextTable::BytesOf(const Text &text) const
{
    return QByteArrayView(buffer).sliced(text.at, text.length * text.width);
}

bool XlsTextTable::IsSame(const Text &text, quint32 hash, QStringView other) const
{
    if (text.hash != hash || text.length != other.size())
        return false;
    const char *bytes = BytesOf(text).data();
    if (text.width == 1)
        return QLatin1String(bytes, text.length) == other;
    for (qsizetype i = 0; i < other.size(); ++i) {
        if (qFromLittleEndian<char16_t>(bytes + 2 * i) != other[i])
            return false;
    }
    return true;
}

template <typename IsWanted> quint32 &XlsTextTable::SlotOf(quint32 hash, IsWanted isWanted)
{
    for (size_t i = hash;; ++i) {
        quint32 &slot = table[i & (table.size() - 1)];
        if (slot == FREE || isWanted(texts[slot]))
            return slot;
    }
}

void XlsTextTable::Grow()
{
    table.assign(table.size() * 2, FREE);
    for (size_t i = 0; i < texts.size(); ++i)
        SlotOf(texts[i].hash, [](const Text &) { return false; }) = quint32(i);
}

void XlsTextTable::Write(BiffWriter &writer) const
{
    writer.Begin(BIFF_SST).Add<quint32>(uses, texts.size());
    for (const Text &text : texts)
        WriteText(writer, BytesOf(text), text.width);
}
