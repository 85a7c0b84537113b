// SPDX-License-Identifier: MIT
#include "PictureHeader.h"

#include "FileBlocks.h"

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace
{

// The most parts before the pixels that are read, so that no file keeps the check busy.
constexpr int MOST_PARTS = 100'000;
constexpr quint64 MOST_PIXELS = 64'000'000; // that the converter takes

/// Returns the fault of a file that ends before a part of it.
QString EndsBefore(const QString &part)
{
    return u"the file ends before its %1"_s.arg(part);
}

QString ReadBmp(FileBlocks &file, PictureHeader &header)
{
    constexpr quint64 INFO = 14; // where the second header begins
    constexpr quint32 CORE_SIZE = 12;
    const auto pixelsAt = file.U32(10);
    const auto infoSize = file.U32(INFO);
    if (!pixelsAt || !infoSize || *infoSize > file.Size() - INFO)
        return EndsBefore(u"pixels"_s);
    const quint32 size = *infoSize;
    quint32 compression = 0;
    if (size == CORE_SIZE) {
        header.width = file.U16(INFO + 4).value_or(0);
        header.height = file.U16(INFO + 6).value_or(0);
        header.bits = file.U16(INFO + 10).value_or(0);
    } else if ((size >= 16 && size <= 64) || size == 108 || size == 124) {
        const auto width = qint32(file.U32(INFO + 4).value_or(0));
        const auto height = qint32(file.U32(INFO + 8).value_or(0)); // below 0: the top row is first
        header.width = quint32(std::max(width, 0));
        header.height = quint32(std::abs(qint64(height)));
        header.bits = file.U16(INFO + 14).value_or(0);
        compression = size >= 20 ? file.U32(INFO + 16).value_or(0) : 0;
    } else {
        return u"its header has %1 bytes, a form that isn't known"_s.arg(size);
    }
    enum Compression : quint32
    {
        PLAIN = 0,
        RUN_LENGTH_8 = 1,
        RUN_LENGTH_4 = 2,
        MASKS = 3,
        MASKS_WITH_ALPHA = 6,
    };
    if (compression > MASKS && compression != MASKS_WITH_ALPHA)
        return u"its compression (%1) is one that the converter doesn't read"_s.arg(compression);
    if (compression == MASKS_WITH_ALPHA || (compression == MASKS && size >= 56))
        header.hasAlpha = file.U32(INFO + 52).value_or(0) != 0;
    const quint64 rowSize = (quint64(header.width) * quint64(header.bits) + 31) / 32 * 4;
    const bool hasRuns = compression == RUN_LENGTH_8 || compression == RUN_LENGTH_4;
    const quint64 room = file.Size() - std::min<quint64>(*pixelsAt, file.Size());
    if (room == 0 || (!hasRuns && rowSize != 0 && header.height > room / rowSize))
        return EndsBefore(u"last row"_s);
    return {};
}

/// Skips the blocks of data of a GIF file from `at` on. Returns where the next part begins, or nullopt.
std::optional<quint64> SkipGifData(FileBlocks &file, quint64 at, int &parts)
{
    for (; parts < MOST_PARTS; ++parts) {
        const auto size = file.U8(at);
        if (!size)
            return std::nullopt;
        at += 1 + quint64(*size);
        if (*size == 0)
            return at;
    }
    return std::nullopt;
}

/// Returns the size of a table of colours in bytes, given the flags in front of it.
quint64 GifColours(quint8 flags)
{
    return flags & 0x80 ? quint64(3) << ((flags & 7) + 1) : 0;
}

QString ReadGif(FileBlocks &file, PictureHeader &header)
{
    constexpr quint8 EXTENSION = 0x21;
    constexpr quint8 FRAME = 0x2C;
    constexpr quint8 FRAME_CONTROL = 0xF9;
    const QString noFrame = EndsBefore(u"first frame"_s);
    const auto width = file.U16(6);
    const auto height = file.U16(8);
    const auto flags = file.U8(10);
    if (!width || !height || !flags)
        return noFrame;
    header.width = *width;
    header.height = *height;
    header.bits = (*flags & 7) + 1;
    quint64 at = 13 + GifColours(*flags);
    int parts = 0;
    while (parts++ < MOST_PARTS && file.U8(at) == EXTENSION) {
        if (file.U8(at + 1) == FRAME_CONTROL)
            header.hasAlpha = file.U8(at + 3).value_or(0) & 1;
        const auto next = SkipGifData(file, at + 2, parts);
        if (!next)
            return noFrame;
        at = *next;
    }
    const auto frame = file.Slice(at, 10);
    if (!frame || quint8((*frame)[0]) != FRAME)
        return noFrame;
    const quint8 frameFlags = quint8((*frame)[9]);
    header.isInterlaced = frameFlags & 0x40;
    if (frameFlags & 0x80)
        header.bits = (frameFlags & 7) + 1;
    const bool isCovered =
        file.U16(at + 1) == 0 && file.U16(at + 3) == 0 && file.U16(at + 5) >= width && file.U16(at + 7) >= height;
    header.hasAlpha = header.hasAlpha || !isCovered;
    return {};
}

/// Reads the part of a JPEG file that has its size. `kind` is the number of the coding, from 0 to 15.
QString ReadJpegFrame(FileBlocks &file, quint64 at, int kind, PictureHeader &header)
{
    const auto precision = file.U8(at);
    const auto height = file.BigU16(at + 1);
    const auto width = file.BigU16(at + 3);
    const auto components = file.U8(at + 5);
    if (!precision || !height || !width || !components)
        return EndsBefore(u"size"_s);
    constexpr int PROGRESSIVE = 2;
    header.width = *width;
    header.height = *height;
    header.bits = *precision * *components;
    header.isInterlaced = kind % 4 == PROGRESSIVE;
    if (*precision != 8)
        return u"a channel has %1 bits, and the converter reads 8"_s.arg(*precision);
    if (kind % 4 == 3 || (kind >= 4 && kind <= 8) || kind > 10)
        return u"its coding (%1) is one that the converter doesn't read"_s.arg(kind);
    return {};
}

QString ReadJpeg(FileBlocks &file, PictureHeader &header)
{
    quint64 at = 2;
    for (int part = 0; part < MOST_PARTS; ++part) {
        const auto begin = file.U8(at);
        const auto marker = file.U8(at + 1);
        if (!begin || !marker)
            break;
        if (*begin != 0xFF)
            return u"a part of its header doesn't begin with FF"_s;
        const quint8 kind = *marker;
        if (kind == 0xFF) { // a filling byte
            ++at;
            continue;
        }
        if ((kind >= 0xD0 && kind <= 0xD7) || kind == 0x01) { // without content
            at += 2;
            continue;
        }
        if (kind == 0xDA || kind == 0xD9) // the pixels, or the end
            break;
        if (kind >= 0xC0 && kind <= 0xCF && kind != 0xC4 && kind != 0xC8 && kind != 0xCC)
            return ReadJpegFrame(file, at + 4, kind - 0xC0, header);
        const auto size = file.BigU16(at + 2);
        if (!size || *size < 2)
            break;
        at += 2 + quint64(*size);
    }
    return EndsBefore(u"size"_s);
}

constexpr quint64 PNG_SIGNATURE = 8;
constexpr quint64 PNG_CHUNK = 12; // size, name and checksum of a chunk

/// Returns whether a PNG file has its last part. Looks at the end of the file first.
bool HasPngEnd(FileBlocks &file, quint64 at)
{
    if (file.Size() >= PNG_CHUNK && file.Slice(file.Size() - 8, 4) == QByteArrayView("IEND"))
        return true;
    for (int part = 0; part < MOST_PARTS; ++part) {
        const auto size = file.BigU32(at);
        const auto name = file.Slice(at + 4, 4);
        if (!size || !name || at + PNG_CHUNK + *size > file.Size())
            return false;
        if (*name == "IEND")
            return true;
        at += PNG_CHUNK + *size;
    }
    return true; // it isn't known
}

QString ReadPng(FileBlocks &file, PictureHeader &header)
{
    const auto width = file.BigU32(16);
    const auto height = file.BigU32(20);
    const auto depth = file.U8(24);
    const int colours = file.U8(25).value_or(0);
    const auto interlacing = file.U8(28);
    if (!width || !height || !depth || !interlacing)
        return EndsBefore(u"size"_s);
    if (file.Slice(12, 4) != QByteArrayView("IHDR"))
        return u"its first part isn't IHDR"_s;
    static constexpr int CHANNELS[] = {1, 0, 3, 1, 2, 0, 4}; // by the colour type; 0: there is no such type
    if (colours > 6 || CHANNELS[colours] == 0)
        return u"it has the colour type %1, which doesn't exist"_s.arg(colours);
    header.width = *width;
    header.height = *height;
    header.bits = *depth * CHANNELS[colours];
    header.isInterlaced = *interlacing != 0;
    header.hasAlpha = colours == 4 || colours == 6;
    quint64 at = PNG_SIGNATURE;
    for (int part = 0; part < MOST_PARTS; ++part) {
        const auto size = file.BigU32(at);
        const auto name = file.Slice(at + 4, 4);
        if (!size || !name || *name == "IEND")
            return EndsBefore(u"pixels"_s);
        if (*name == "IDAT")
            return HasPngEnd(file, at) ? QString() : EndsBefore(u"end mark (IEND)"_s);
        header.hasAlpha = header.hasAlpha || *name == "tRNS";
        at += PNG_CHUNK + *size;
    }
    return EndsBefore(u"pixels"_s);
}

} // namespace

PictureHeader ReadPictureHeader(FileBlocks &file, ContentKind kind)
{
    PictureHeader header;
    switch (kind) {
    case ContentKind::Bmp:
        header.fault = ReadBmp(file, header);
        break;
    case ContentKind::Gif:
        header.fault = ReadGif(file, header);
        break;
    case ContentKind::Jpeg:
        header.fault = ReadJpeg(file, header);
        break;
    case ContentKind::Png:
        header.fault = ReadPng(file, header);
        break;
    default:
        return header;
    }
    if (!header.fault.isEmpty())
        return header;
    if (header.width == 0 || header.height == 0)
        header.fault = u"it has no pixels (%1 x %2)"_s.arg(header.width).arg(header.height);
    else if (quint64(header.width) * header.height > MOST_PIXELS)
        header.fault = u"it has %1 x %2 pixels, and the converter reads at most %3"_s.arg(header.width)
                           .arg(header.height)
                           .arg(MOST_PIXELS);
    return header;
}
