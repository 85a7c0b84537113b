// SPDX-License-Identifier: MIT
#include "Inspect.h"

#include "ByteReader.h"
#include "ElfSections.h"
#include "HostFiles.h"

#include <cerrno>
#include <cstring>

namespace
{

constexpr qint64 LARGEST_FILE = qint64(1) << 32;
constexpr quint64 TRAILER = 4; // bytes

/// Finds the newest section ".zp_res" of a 32-bit little-endian ELF file. Returns an empty text, or what is wrong.
QString FindSection(QByteArrayView file, quint64 &offset, quint64 &size)
{
    ElfSections sections(file);
    if (QString wrong = sections.Open(); !wrong.isEmpty())
        return wrong;
    for (quint64 i = sections.Count(); i-- > 0;) {
        const auto section = sections.At(i);
        if (!section)
            return QStringLiteral("section header %1 is outside the file").arg(i);
        if (section->name != PAYLOAD_NAME)
            continue;
        offset = section->offset;
        size = section->size;
        if (!ByteReader(file).Slice(offset, size))
            return QStringLiteral("section .zp_res extends from %1 to %2, beyond the end of the file at %3")
                .arg(offset)
                .arg(offset + size)
                .arg(file.size());
        return {};
    }
    return QStringLiteral("an ELF file without a section .zp_res: it hasn't been packed");
}

/// Finds a payload that was appended after its magic. Returns false if the file doesn't end that way.
bool FindAppended(const ByteReader &file, quint64 &offset, quint64 &size)
{
    if (file.Size() < TRAILER)
        return false;
    const quint64 end = file.Size() - TRAILER;
    const quint64 input = *file.U32(end);
    const auto magic = file.Slice(input, sizeof PAYLOAD_NAME);
    if (!magic || input + sizeof PAYLOAD_NAME > end ||
        std::memcmp(magic->data(), PAYLOAD_NAME, sizeof PAYLOAD_NAME) != 0)
        return false;
    offset = input + sizeof PAYLOAD_NAME;
    size = end - offset;
    return true;
}

/// Checks that the payload's offsets are relative to `expected` or, in an ELF file, to the section.
QString CheckBase(const InspectResult &result)
{
    const quint64 base = result.payload.base;
    const bool right = result.kind == "elf"   ? base == 0 || base == result.payloadOffset
                       : result.kind == "dll" ? base == result.payloadOffset
                                              : base == 0;
    if (right)
        return {};
    return QStringLiteral("its offsets count from %1, but %2 is expected")
        .arg(base)
        .arg(result.kind == "res" ? 0 : result.payloadOffset);
}

QString ReadFound(InspectResult &result, const char *kind, quint64 offset, quint64 size)
{
    result.kind = kind;
    result.payloadOffset = offset;
    result.payloadSize = size;
    result.payload = Payload();
    const QByteArrayView bytes = result.file.Bytes().sliced(qsizetype(offset), qsizetype(size));
    const QString wrong = ReadPayload(bytes, result.payload);
    return wrong.isEmpty() ? CheckBase(result) : wrong;
}

bool IsElf(const InspectResult &result)
{
    return result.file.Bytes().startsWith("\x7F"
                                          "ELF");
}

// Readers of the three kinds of file. They return nothing if the file isn't of the kind, an empty text if it was read,
// or what is wrong with it.

std::optional<QString> ReadAppended(InspectResult &result)
{
    quint64 offset = 0;
    quint64 size = 0;
    if (!FindAppended(ByteReader(result.file.Bytes()), offset, size))
        return std::nullopt;
    return ReadFound(result, "dll", offset, size);
}

std::optional<QString> ReadSection(InspectResult &result)
{
    if (!IsElf(result))
        return std::nullopt;
    quint64 offset = 0;
    quint64 size = 0;
    const QString wrong = FindSection(result.file.Bytes(), offset, size);
    return wrong.isEmpty() ? ReadFound(result, "elf", offset, size) : wrong;
}

std::optional<QString> ReadSideFile(InspectResult &result)
{
    if (IsElf(result))
        return std::nullopt;
    return ReadFound(result, "res", 0, quint64(result.file.Bytes().size()));
}

QString ReadKind(InspectResult &result)
{
    // An ELF file may end in bytes that look like a trailer, and an ELF file with a trailer was packed as a DLL, so the
    // payload decides. If several readers fail, the first failure is the most useful.
    QString wrong;
    for (const auto read : {ReadAppended, ReadSection, ReadSideFile}) {
        const std::optional<QString> failure = read(result);
        if (failure && failure->isEmpty())
            return {};
        if (failure && wrong.isEmpty())
            wrong = *failure;
    }
    return wrong;
}

} // namespace

QString InspectFile(const QString &path, InspectResult &result)
{
    result = InspectResult();
    const int error = result.file.Open(path, LARGEST_FILE);
    if (error == EINVAL)
        return QStringLiteral("it is a device or a pipe, but only a regular file can be inspected");
    if (error != 0)
        return QStringLiteral("can't be read: ") + QString::fromLocal8Bit(std::strerror(error));
    const QString wrong = ReadKind(result);
    const QString cut = WhyCutShort(result);
    return cut.isEmpty() ? wrong : cut;
}

QString WhyCutShort(const InspectResult &result)
{
    return result.file.IsCutShort() ? QStringLiteral("it could not be read to its end; another program has cut it "
                                                     "short meanwhile, or the disk has failed")
                                    : QString();
}

QString InspectBytes(QByteArray bytes, InspectResult &result)
{
    result = InspectResult();
    result.file = FileView(std::move(bytes));
    return ReadKind(result);
}
