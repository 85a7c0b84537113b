// SPDX-License-Identifier: MIT
#include "WaveHeader.h"

#include "FileBlocks.h"

using namespace Qt::StringLiterals;

namespace
{

constexpr quint16 EXTENSIBLE = 0xFFFE; // the number is in a longer header
constexpr int MOST_CHUNKS = 10'000;

struct Codec
{
    QStringView name;
    quint16 number;
};
constexpr Codec CODECS[] = {
    {u"pcm", 1},        {u"adpcm", 2}, {u"float", 3}, {u"alaw", 6}, {u"mulaw", 7},
    {u"ima-adpcm", 17}, {u"gsm", 49},  {u"g723", 20}, {u"mp3", 85},
};

bool ReadFormat(FileBlocks &file, quint64 at, quint32 size, WaveHeader &header)
{
    const auto codec = file.U16(at);
    const auto channels = file.U16(at + 2);
    const auto rate = file.U32(at + 4);
    const auto bits = file.U16(at + 14);
    if (size < 16 || !codec || !channels || !rate || !bits)
        return false;
    header.codec = *codec;
    header.channels = *channels;
    header.rate = *rate;
    header.bits = *bits;
    if (*codec == EXTENSIBLE && size >= 26) {
        const auto number = file.U16(at + 24);
        if (!number)
            return false;
        header.codec = *number;
    }
    return true;
}

} // namespace

WaveHeader ReadWaveHeader(FileBlocks &file)
{
    WaveHeader header;
    const auto form = file.Slice(0, 4);
    if (form && *form == "RIFX") {
        header.fault = u"it is a big-endian WAV file (RIFX)"_s;
        return header;
    }
    quint64 at = 12;
    for (int chunk = 0; chunk < MOST_CHUNKS; ++chunk) {
        const auto size = file.U32(at + 4);
        const auto name = file.Slice(at, 4);
        if (!size || !name || *name == "data")
            break;
        if (*name == "fmt ") {
            if (!ReadFormat(file, at + 8, *size, header))
                header.fault = u"its header is cut off"_s;
            else if (header.channels == 0 || header.rate == 0)
                header.fault = u"it has no channels or no sample rate"_s;
            return header;
        }
        at += 8 + quint64(*size) + (*size & 1);
    }
    header.fault = u"it has no part \"fmt \" in front of its samples"_s;
    return header;
}

int WaveCodecOf(QStringView name)
{
    for (const Codec &codec : CODECS) {
        if (codec.name.compare(name, Qt::CaseInsensitive) == 0)
            return codec.number;
    }
    bool isNumber = false;
    const uint number = name.toUInt(&isNumber);
    return isNumber && number <= 0xFFFF ? int(number) : -1;
}

QStringList WaveCodecNames()
{
    QStringList names;
    for (const Codec &codec : CODECS)
        names.append(codec.name.toString());
    return names;
}

QString WaveCodecName(int codec)
{
    for (const Codec &known : CODECS) {
        if (known.number == codec)
            return known.name.toString();
    }
    return QString::number(codec);
}
