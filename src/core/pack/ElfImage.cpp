// SPDX-License-Identifier: MIT
#include "ElfImage.h"

#include "Environment.h"
#include "HostFiles.h"
#include "OutputFile.h"
#include "PayloadFormat.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace
{

constexpr quint32 TYPE_PROGBITS = 1;
constexpr quint32 TYPE_NOBITS = 8;
constexpr quint32 FLAG_ALLOC = 2;
constexpr quint64 LARGEST = 0xFFFFFFFF;  // the largest offset
constexpr size_t MOST_SECTIONS = 0xFFFF; // the largest count of the header

// Offsets of the header's fields.
constexpr size_t E_PHOFF = 28;
constexpr size_t E_SHOFF = 32;
constexpr size_t E_PHNUM = 44;
constexpr size_t E_SHENTSIZE = 46;
constexpr size_t E_SHNUM = 48;
constexpr size_t E_SHSTRNDX = 50;

quint32 Get32(const char *bytes)
{
    return quint32(quint8(bytes[0])) | quint32(quint8(bytes[1])) << 8 | quint32(quint8(bytes[2])) << 16 |
           quint32(quint8(bytes[3])) << 24;
}

quint16 Get16(const char *bytes)
{
    return quint16(quint8(bytes[0]) | quint8(bytes[1]) << 8);
}

void Put32(char *bytes, quint32 value)
{
    for (int i = 0; i < 4; ++i)
        bytes[i] = char(value >> (8 * i));
}

void Put16(char *bytes, quint16 value)
{
    bytes[0] = char(value);
    bytes[1] = char(value >> 8);
}

using Record = std::array<char, ElfImage::SECTION_HEADER_SIZE>;

ElfImage::SectionHeader Decode(const Record &record)
{
    const char *at = record.data();
    return {Get32(at),      Get32(at + 4),  Get32(at + 8),  Get32(at + 12), Get32(at + 16),
            Get32(at + 20), Get32(at + 24), Get32(at + 28), Get32(at + 32), Get32(at + 36)};
}

Record Encode(const ElfImage::SectionHeader &section)
{
    Record record;
    const quint32 fields[] = {section.name, section.type, section.flags, section.addr,      section.offset,
                              section.size, section.link, section.info,  section.addralign, section.entsize};
    char *at = record.data();
    for (const quint32 field : fields) {
        Put32(at, field);
        at += 4;
    }
    return record;
}

int Fail(Environment &env, const char *text, const QByteArray &path, ElfCode code)
{
    env.DebugTrace("%s%s", text, path.constData());
    return int(code);
}

int FailTooLarge(Environment &env, const QByteArray &path)
{
    return Fail(env, "[error] the grown file would need offsets of more than 32 bits: ", path, ElfCode::TooLarge);
}

/// The messages and codes for a place in the file that can't be sought or read.
struct ReadStep
{
    const char *seekText;
    ElfCode seekCode;
    const char *readText;
    ElfCode readCode;
};

constexpr ReadStep PROGRAM_HEADERS{"[error]Could not seek file: ", ElfCode::SeekProgramHeaders,
                                   "[error] read program head error: ", ElfCode::ReadProgramHeader};
constexpr ReadStep SECTION_RECORD{"[error] could not seek file: ", ElfCode::SeekSectionHeader,
                                  "[error] read section head error: ", ElfCode::ReadSectionHeader};
constexpr ReadStep SECTION_DATA{"[error] could not seek file: ", ElfCode::SeekSectionData,
                                "[error] could not read section data: ", ElfCode::ReadSectionData};

/// The input file. Reads fields at places that the file itself specifies.
class ElfInput
{
public:
    ElfInput(Environment &environment, const QString &path)
        : env(environment), shown(path.toUtf8()), file(OpenRead(path)), openError(file.IsOpen() ? 0 : errno)
    {
    }

    [[nodiscard]] FileHandle TakeFile() { return std::move(file); }

    /// Reads the file header. Must be called first.
    int ReadHeader(ElfImage &elf)
    {
        if (!file.IsOpen()) {
            env.Explain(
                QStringLiteral("cannot open %1: %2").arg(elf.path, QString::fromLocal8Bit(strerror(openError))));
            return Fail(env, "[error]Could not open file: ", shown, ElfCode::OpenRead);
        }
        fileSize = quint64(std::max<qint64>(file.Size(), 0));
        elf.inputSize = fileSize;
        if (file.Read(elf.header.data(), elf.header.size()) != ssize_t(elf.header.size()))
            return Fail(env, "[error] read elf head fail: ", shown, ElfCode::ReadHeader);
        return fileSize > LARGEST ? FailTooLarge(env, shown) : 0;
    }

    /// Checks that the file has `size` bytes at `at`, and reads them into `buffer` unless it is null.
    int Read(const ReadStep &step, quint64 at, quint64 size, char *buffer = nullptr)
    {
        if (lseek(file.Get(), off_t(at), SEEK_SET) < 0)
            return Fail(env, step.seekText, shown, step.seekCode);
        const bool there = at <= fileSize && size <= fileSize - at;
        if (!there || (buffer && file.Read(buffer, size) != ssize_t(size)))
            return Fail(env, step.readText, shown, step.readCode);
        return 0;
    }

    /// Reads the section table and the bytes of the name section. The bytes of the other sections are only checked to
    /// exist.
    int ReadSections(ElfImage &elf)
    {
        const quint64 offset = Get32(elf.header.data() + E_SHOFF);
        const quint64 step = Get16(elf.header.data() + E_SHENTSIZE);
        const size_t count = Get16(elf.header.data() + E_SHNUM);
        elf.sections.reserve(count + 1);
        for (size_t i = 0; i < count; ++i) {
            Record record;
            if (const int code = ReadRecord(offset + step * i, record))
                return code;
            elf.sections.push_back(Decode(record));
            const ElfImage::SectionHeader &section = elf.sections.back();
            if (section.type == TYPE_NOBITS || section.size == 0)
                continue;
            const bool isNameTable = i == elf.nameTableIndex;
            if (const int code =
                    isNameTable ? ReadNames(elf, section) : Read(SECTION_DATA, section.offset, section.size))
                return code;
        }
        return 0;
    }

private:
    /// Reads a record of the section table, from the part of the file that was read last if it is there: otherwise a
    /// table of 65,535 records would take as many system calls.
    int ReadRecord(quint64 at, Record &record)
    {
        if (at < windowAt || at + record.size() > windowAt + windowSize) {
            windowAt = at;
            windowSize = at < fileSize ? std::min<quint64>(fileSize - at, window.size()) : 0;
            if (const int code = Read(SECTION_RECORD, at, std::max<quint64>(windowSize, record.size()), window.data()))
                return code;
        }
        std::copy_n(window.begin() + qptrdiff(at - windowAt), record.size(), record.begin());
        return 0;
    }

    int ReadNames(ElfImage &elf, const ElfImage::SectionHeader &section)
    {
        if (const int code = Read(SECTION_DATA, section.offset, section.size))
            return code;
        // The grown file holds the table twice.
        if (section.size > LARGEST - fileSize)
            return FailTooLarge(env, shown);
        elf.nameTable.reserve(qsizetype(section.size + sizeof PAYLOAD_NAME));
        elf.nameTable.resize(qsizetype(section.size));
        return Read(SECTION_DATA, section.offset, section.size, elf.nameTable.data());
    }

    Environment &env;
    const QByteArray shown;
    FileHandle file;
    int openError;
    quint64 fileSize = 0; // bytes
    std::array<char, 4096> window{};
    quint64 windowAt = 0;
    quint64 windowSize = 0; // the number of bytes that were read from the file
};

/// Appends the new section's name to the others, and a record for it to the table.
int MakeRoom(Environment &env, const QByteArray &shown, ElfImage &elf)
{
    if (elf.nameTable.isEmpty())
        return Fail(env, "[error] no section name table to put the name .zp_res into: ", shown, ElfCode::NoNameTable);
    if (elf.sections.size() >= MOST_SECTIONS)
        return Fail(env, "[error] the section table is full, at 65535 sections: ", shown, ElfCode::TooLarge);
    elf.nameTable.append(PAYLOAD_NAME, sizeof PAYLOAD_NAME);
    quint32 &namesSize = elf.sections[elf.nameTableIndex].size;
    ElfImage::SectionHeader section{};
    section.name = namesSize;
    namesSize += quint32(sizeof PAYLOAD_NAME);
    elf.sections.push_back(section);
    Put16(elf.header.data() + E_SHNUM, quint16(elf.sections.size()));
    return 0;
}

} // namespace

int ReadElf(Environment &env, const QString &path, ElfImage &elf)
{
    elf = ElfImage();
    elf.path = path;
    ElfInput input(env, path);
    if (const int code = input.ReadHeader(elf))
        return code;
    const quint64 programHeaders = quint64(Get16(elf.header.data() + E_PHNUM)) * ElfImage::PROGRAM_HEADER_SIZE;
    if (programHeaders) {
        if (const int code = input.Read(PROGRAM_HEADERS, Get32(elf.header.data() + E_PHOFF), programHeaders))
            return code;
    }
    elf.nameTableIndex = Get16(elf.header.data() + E_SHSTRNDX);
    if (const int code = input.ReadSections(elf))
        return code;
    elf.file = input.TakeFile();
    return MakeRoom(env, path.toUtf8(), elf);
}

int AddResSection(ElfImage &elf, quint64 payloadSize)
{
    elf.payloadSize = payloadSize;
    ElfImage::SectionHeader &section = elf.sections.back();
    section.type = TYPE_PROGBITS;
    section.flags = FLAG_ALLOC;
    section.size = quint32(payloadSize);
    return 0;
}

int SetElfLayout(Environment &env, ElfImage &elf)
{
    const quint64 payload = elf.PayloadOffset();
    const quint64 table = payload + elf.payloadSize;
    const quint64 names = table + ElfImage::SECTION_HEADER_SIZE * elf.sections.size();
    if (names + quint64(elf.nameTable.size()) > LARGEST)
        return FailTooLarge(env, elf.path.toUtf8());
    elf.sections.back().offset = quint32(payload);
    elf.sections[elf.nameTableIndex].offset = quint32(names);
    Put32(elf.header.data() + E_SHOFF, quint32(table));
    return 0;
}

namespace
{

QByteArray SectionTable(const ElfImage &elf)
{
    QByteArray table;
    table.reserve(qsizetype(elf.sections.size() * ElfImage::SECTION_HEADER_SIZE));
    for (const ElfImage::SectionHeader &section : elf.sections) {
        const Record record = Encode(section);
        table.append(record.data(), qsizetype(record.size()));
    }
    return table;
}

QByteArrayView Header(const ElfImage &elf)
{
    return {elf.header.data(), qsizetype(elf.header.size())};
}

int FailWrite(Environment &env)
{
    env.DebugTrace("[error] write res data to file error.\n");
    return int(ElfCode::Write);
}

/// If the start of the output can't be written twice, the new header is written at once.
int WriteInput(Environment &env, const ElfImage &elf, OutputFile &output, const QByteArray &shown)
{
    const qint64 header = output.CanGoBack() ? 0 : qint64(elf.header.size());
    if (header != 0 && !output.Write(Header(elf)))
        return FailWrite(env);
    const qint64 copied = output.Copy(elf.file, elf.path.toUtf8(), header);
    if (copied < 0)
        return FailWrite(env);
    if (quint64(header + copied) != elf.inputSize) {
        env.Explain(QStringLiteral("%1 had %2 bytes when it was read, but %3 when it was copied")
                        .arg(elf.path)
                        .arg(elf.inputSize)
                        .arg(header + copied));
        return Fail(env, "[error] the output is not a copy of the input, its size differs: ", shown,
                    ElfCode::InputChanged);
    }
    return 0;
}

int WriteTail(Environment &env, const ElfImage &elf, OutputFile &output, const QByteArray &shown,
              const std::function<int(OutputFile &)> &writePayload)
{
    static constexpr char ZEROS[4] = {};
    if (!output.Write({ZEROS, qsizetype(elf.PayloadOffset() - elf.inputSize)}))
        return FailWrite(env);
    if (const int code = writePayload(output))
        return code == int(ElfCode::Write) ? FailWrite(env) : code;
    // Continue with the names, whose failure is the one that counts.
    const bool hasTable = output.Write(SectionTable(elf)) && output.Flush();
    if (!hasTable)
        env.DebugTrace("[error] write section head error: %s", shown.constData());
    if (!output.Write(elf.nameTable) || !output.Flush())
        return FailWrite(env);
    if (!hasTable) {
        env.ExplainFailure((output.Drop()
                                ? QStringLiteral("%1 is not created because its section table couldn't be written")
                                : QStringLiteral("%1 is unusable because its section table couldn't be written"))
                               .arg(QString::fromUtf8(shown)));
    }
    return 0;
}

} // namespace

int WriteElf(Environment &env, const ElfImage &elf, OutputFile &output, const QByteArray &shown,
             const std::function<int(OutputFile &)> &writePayload)
{
    if (const int code = WriteInput(env, elf, output, shown))
        return code;
    if (const int code = WriteTail(env, elf, output, shown, writePayload))
        return code;
    if (output.CanGoBack() && !output.WriteAtStart(Header(elf)))
        return Fail(env, "[error] write elf head error: ", shown, ElfCode::WriteHeader);
    return 0;
}
