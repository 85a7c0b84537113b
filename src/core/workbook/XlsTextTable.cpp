#include "XlsTextTable.h"

#include <algorithm>

namespace
{

bool IsLatin1(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x100; });
}

/// So much of `text` as goes into `room` bytes, and never half of a surrogate pair.
QStringView Fitting(QStringView text, quint64 room, quint64 width)
{
    qsizetype count = std::min(text.size(), qsizetype(room / width));
    if (count > 0 && count < text.size() && text[count - 1].isHighSurrogate() && text[count].isLowSurrogate())
        --count;
    return text.first(count);
}

QByteArray Encoded(QStringView text, quint64 width)
{
    if (width == 1)
        return text.toLatin1();
    QByteArray bytes(text.size() * 2, Qt::Uninitialized);
    qToLittleEndian<char16_t>(text.utf16(), text.size(), bytes.data());
    return bytes;
}

/// The count of characters and their flags stay together; a piece of the characters in another record has flags anew.
void WriteText(BiffWriter &writer, QStringView text)
{
    constexpr quint64 HEAD_AND_PAIR = 3 + 4;
    const quint8 flags = IsLatin1(text) ? 0 : TEXT_WIDE;
    const quint64 width = flags == TEXT_WIDE ? 2 : 1;
    if (writer.Room() < HEAD_AND_PAIR)
        writer.Begin(BIFF_CONTINUE);
    writer.Add<quint16>(text.size()).Add<quint8>(flags);
    for (QStringView rest = text;;) {
        const QStringView piece = Fitting(rest, writer.Room(), width);
        writer.Add(Encoded(piece, width));
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
    const auto found = numbers.find(text);
    if (found != numbers.end())
        return found->second;
    const auto added = numbers.emplace(text.toString(), quint32(texts.size())).first;
    texts.push_back(added->first);
    return added->second;
}

void XlsTextTable::Write(BiffWriter &writer) const
{
    writer.Begin(BIFF_SST).Add<quint32>(uses, texts.size());
    for (const QStringView text : texts)
        WriteText(writer, text);
}
