// SPDX-License-Identifier: MIT
#include "ContentKind.h"

#include "Text.h"

namespace
{

using enum ContentKind;

struct StartBytes
{
    ContentKind kind;
    QByteArrayView first;
    qsizetype at = 0;           // of `second`
    QByteArrayView second = {}; // must be there too
};

constexpr StartBytes STARTS[] = {
    {Bmp, "BM", 15, QByteArrayView("\0\0\0", 3)}, // the size of a header is below 256
    {Gif, "GIF87a"},
    {Gif, "GIF89a"},
    {Jpeg, "\xFF\xD8\xFF"},
    {Png, "\x89PNG\r\n\x1A\n"},
    {WebP, "RIFF", 8, "WEBP"},
    {DeviceImage, "MIMG"},
    {Wave, "RIFF", 8, "WAVE"},
    {Wave, "RIFX", 8, "WAVE"},
    {Wave, "RF64", 8, "WAVE"},
    {Mp3, "ID3"},
    {Midi, "MThd"},
    {Midi, "RIFF", 8, "RMID"},
    {Ogg, "OggS"},
    {Amr, "#!AMR"},
    {Asf, QByteArrayView("\x30\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9\x00\xAA\x00\x62\xCE\x6C", 16)},
    {Avi, "RIFF", 8, "AVI "},
    {Mp4, "", 4, "ftyp"},
    {Mp4, "", 4, "moov"},
    {Mp4, "", 4, "mdat"},
    {RealMedia, ".RMF"},
    {RealMedia, ".ra\xFD"},
};

struct Extension
{
    QStringView name;
    ContentKind kind;
};

constexpr Extension EXTENSIONS[] = {
    {u"bmp", Bmp}, {u"gif", Gif},  {u"jpg", Jpeg}, {u"jpeg", Jpeg},    {u"png", Png},      {u"webp", WebP},
    {u"svg", Svg}, {u"wav", Wave}, {u"mp3", Mp3},  {u"mid", Midi},     {u"midi", Midi},    {u"ogg", Ogg},
    {u"amr", Amr}, {u"asf", Asf},  {u"wma", Asf},  {u"wmv", Asf},      {u"avi", Avi},      {u"mp4", Mp4},
    {u"3gp", Mp4}, {u"m4a", Mp4},  {u"3g2", Mp4},  {u"rm", RealMedia}, {u"ra", RealMedia}, {u"rmvb", RealMedia},
};

bool StartsAt(QByteArrayView bytes, qsizetype at, QByteArrayView wanted)
{
    return bytes.size() >= at && bytes.sliced(at).startsWith(wanted);
}

/// Returns whether the bytes are the header of a frame of MPEG audio, layer II or III. Layer I isn't recognised,
/// because the byte order mark of UTF-16 looks like it.
bool IsMpegFrame(QByteArrayView bytes)
{
    if (bytes.size() < 4 || quint8(bytes[0]) != 0xFF || (quint8(bytes[1]) & 0xE0) != 0xE0)
        return false;
    const int version = (quint8(bytes[1]) >> 3) & 3;
    const int layer = (quint8(bytes[1]) >> 1) & 3;
    const int bitRate = quint8(bytes[2]) >> 4;
    const int sampleRate = (quint8(bytes[2]) >> 2) & 3;
    return version != 1 && (layer == 1 || layer == 2) && bitRate != 0 && bitRate != 15 && sampleRate != 3;
}

/// Returns whether a text begins with an element "svg", behind a byte order mark, blanks, comments and the like.
bool IsSvg(QByteArrayView bytes)
{
    if (bytes.startsWith("\xEF\xBB\xBF"))
        bytes = bytes.sliced(3);
    const QByteArrayView text = bytes.trimmed();
    if (!text.startsWith('<'))
        return false;
    for (qsizetype at = 0; at >= 0; at = text.indexOf('<', at + 1)) {
        const QByteArrayView element = text.sliced(at);
        if (element.size() > 1 && element[1] != '?' && element[1] != '!')
            return element.startsWith("<svg");
        if (element.startsWith("<!--")) {
            at = text.indexOf("-->", at);
            if (at < 0)
                return false;
        }
    }
    return false;
}

} // namespace

ContentKind ContentOf(QByteArrayView start)
{
    for (const StartBytes &candidate : STARTS) {
        if (start.startsWith(candidate.first) && StartsAt(start, candidate.at, candidate.second))
            return candidate.kind;
    }
    if (IsMpegFrame(start))
        return Mp3;
    return IsSvg(start) ? Svg : Unknown;
}

ContentKind ContentOfExtension(QStringView extension)
{
    for (const Extension &candidate : EXTENSIONS) {
        if (candidate.name.compare(extension, Qt::CaseInsensitive) == 0)
            return candidate.kind;
    }
    return Unknown;
}

bool IsConvertible(ContentKind kind)
{
    return kind == Bmp || kind == Gif || kind == Jpeg || kind == Png;
}

bool HasReliableStart(ContentKind kind)
{
    return kind != Unknown && kind != Mp3 && kind != Svg && kind != Mp4;
}

QString NameOf(ContentKind kind)
{
    static constexpr const char *NAMES[] = {"unknown", "BMP",          "GIF", "JPEG", "PNG",      "WebP",
                                            "SVG",     "device image", "WAV", "MP3",  "MIDI",     "Ogg",
                                            "AMR",     "ASF",          "AVI", "MP4",  "RealMedia"};
    static_assert(std::size(NAMES) == size_t(RealMedia) + 1);
    return QString::fromLatin1(NAMES[size_t(kind)]);
}
