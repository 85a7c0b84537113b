#pragma once

#include "HostFiles.h"
#include "PayloadFormat.h"

#include <array>
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
    NoNameTable = -1040,  ///< no table that the new section's name could go into
    TooLarge = -1041,     ///< more sections than 16 bits or offsets than 32 bits can tell
    InputChanged = -1042, ///< what was copied hasn't the size of the file whose tables were read
};

/// A 32-bit little-endian ELF file between reading and growing: its header and section table as they stand in the file,
/// with the new section behind them.
///
/// Nothing of it is tested but that its tables lie within the file. What the old sections hold stays in the file; only
/// the name table is kept, since it grows. Format: Tool Interface Standard, Executable and Linking Format 1.2.
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
    QByteArrayView payload; ///< not owned: must live until the file is written
    quint64 inputSize = 0;
    QString path;    ///< of the input
    FileHandle file; ///< the input, still open: what is copied is what was read

    /// Where the payload goes: the input's size rounded up to a multiple of 4.
    [[nodiscard]] quint64 PayloadOffset() const { return RoundUpTo4(inputSize); }
};

/// Reads the tables of the file at `path`, with the name ".zp_res" and a section for it already added. 0 or an ElfCode.
[[nodiscard]] int ReadElf(Environment &env, const QString &path, ElfImage &elf);

/// Fills the new section's record. `payload` isn't copied. 0.
int AddResSection(ElfImage &elf, QByteArrayView payload);

/// Sets the places of the payload, the section table and the name table behind the input's end. 0, or TooLarge when the
/// file would be more than 32 bits can tell.
[[nodiscard]] int SetElfLayout(Environment &env, ElfImage &elf);

/// Writes the whole grown file: the input, the payload and the tables, and last the header over that of the input, so
/// that a file which breaks off is the input with bytes behind its end. 0 or an ElfCode. `shown` is the path in what is
/// said. A section table that can't be written is no failure; that is explained, and no new file takes its place then.
[[nodiscard]] int WriteElf(Environment &env, const ElfImage &elf, OutputFile &output, const QByteArray &shown);
