// SPDX-License-Identifier: MIT
#pragma once

#include "HostFiles.h"
#include "PayloadFormat.h"

#include <array>
#include <functional>
#include <vector>

class Environment;
class OutputFile;

/// Why the target couldn't be read or grown. The numbers are what the report shows.
enum class ElfCode : int
{
    Ok = 0,
    Write = -1029,
    OpenRead = -1030,
    ReadHeader = -1031,
    SeekProgramHeaders = -1033,
    ReadProgramHeader = -1034,
    SeekSectionHeader = -1035,
    ReadSectionHeader = -1036,
    SeekSectionData = -1037,
    ReadSectionData = -1038,
    WriteHeader = -1039,
    NoNameTable = -1040,  ///< no name table for the new section's name
    TooLarge = -1041,     ///< more sections than 16 bits can count, or offsets beyond 32 bits
    InputChanged = -1042, ///< the copied bytes have another size than the file whose tables were read
};

/// A 32-bit little-endian ELF file that has been read and not yet grown: its header and section table as the file has
/// them, followed by the new section.
///
/// The only check is that its tables are within the file. The contents of the old sections stay in the file; only the
/// name table is kept here, since it grows. Format: Tool Interface Standard, Executable and Linking Format 1.2.
struct ElfImage
{
    static constexpr size_t HEADER_SIZE = 52;
    static constexpr size_t PROGRAM_HEADER_SIZE = 32;
    static constexpr size_t SECTION_HEADER_SIZE = 40;

    /// An entry of the section table; the fields of the format in their order.
    struct SectionHeader
    {
        quint32 name, type, flags, addr, offset, size, link, info, addralign, entsize;
    };

    std::array<char, HEADER_SIZE> header{};
    std::vector<SectionHeader> sections; ///< the old ones and, last, the new one
    QByteArray nameTable;                ///< with the new section's name at its end
    quint16 nameTableIndex = 0;
    quint64 payloadSize = 0; ///< bytes
    quint64 inputSize = 0;   ///< bytes
    QString path;            ///< of the input
    FileHandle file;         ///< the input, still open, so that the file copied is the file read

    /// The offset of the payload: the input's size rounded up to a multiple of 4.
    [[nodiscard]] quint64 PayloadOffset() const { return RoundUpTo4(inputSize); }
    /// The size of the grown file in bytes, after SetElfLayout.
    [[nodiscard]] quint64 Size() const { return sections[nameTableIndex].offset + quint64(nameTable.size()); }
};

/// Reads the tables of the file at `path` and adds the name ".zp_res" and a section for it. Returns 0 or an ElfCode.
[[nodiscard]] int ReadElf(Environment &env, const QString &path, ElfImage &elf);

/// Fills the new section's record for a payload of so many bytes. Returns 0.
int AddResSection(ElfImage &elf, quint64 payloadSize);

/// Places the payload, the section table and the name table after the end of the input. Returns 0, or TooLarge when the
/// size of the file would not fit in 32 bits.
[[nodiscard]] int SetElfLayout(Environment &env, ElfImage &elf);

/// Writes the whole grown file: the input, the payload, the tables, and finally the new header over that of the input.
/// If writing breaks off, the file is therefore the input with extra bytes at its end. Returns 0 or an ElfCode. `shown`
/// is the path for messages. A section table that can't be written is not a failure: it is explained, and no new file
/// is put in place. `writePayload` writes and flushes the payload; it returns 0, ElfCode::Write or a code of its own,
/// which is returned.
[[nodiscard]] int WriteElf(Environment &env, const ElfImage &elf, OutputFile &output, const QByteArray &shown,
                           const std::function<int(OutputFile &)> &writePayload);
