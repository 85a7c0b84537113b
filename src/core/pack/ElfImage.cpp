#include "ElfImage.h"

#include "Environment.h"
#include "HostFiles.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr char SECTION_NAME[8] = ".zp_res"; // with its zero byte
constexpr quint32 TYPE_PROGBITS = 1;
constexpr quint32 TYPE_NOBITS = 8;
constexpr quint32 FLAG_ALLOC = 2;

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

/// The input file: reads fields at places that the file itself names.
class ElfInput
{
public:
    explicit ElfInput(const QString &path) : file(FileHandle::OpenRead(path)) {}
    [[nodiscard]] bool IsOpen() const { return file.IsOpen(); }
    [[nodiscard]] quint64 Size() const { return quint64(std::max<qint64>(file.Size(), 0)); }
    [[nodiscard]] bool Holds(quint64 at, quint64 size) const { return at <= Size() && size <= Size() - at; }
    [[nodiscard]] bool Read(quint64 at, void *buffer, size_t size) const
    {
        return lseek(file.Get(), off_t(at), SEEK_SET) >= 0 && file.Read(buffer, size) == ssize_t(size);
    }

private:
    FileHandle file;
};

bool HasData(const ElfImage::SectionHeader &section)
{
    return section.type != TYPE_NOBITS && section.size != 0;
}

/// Reads the section table; the sections' bytes are only looked for, but for the name table's.
int ReadSections(Environment &env, const ElfInput &input, const QByteArray &shown, ElfImage &elf)
{
    const quint64 offset = Get32(elf.header.data() + E_SHOFF);
    const quint64 step = Get16(elf.header.data() + E_SHENTSIZE);
    const quint16 count = Get16(elf.header.data() + E_SHNUM);
    elf.sections.reserve(size_t(count) + 1);
    for (quint16 i = 0; i < count; ++i) {
        Record record;
        const quint64 at = offset + step * i;
        if (!input.Holds(at, record.size()) || !input.Read(at, record.data(), record.size()))
            return Fail(env, "[error] read section head error: ", shown, ElfCode::ReadSectionHeader);
        elf.sections.push_back(Decode(record));
        const ElfImage::SectionHeader &section = elf.sections.back();
        if (!HasData(section))
            continue;
        if (!input.Holds(section.offset, section.size))
            return Fail(env, "[error] could not read section data: ", shown, ElfCode::ReadSectionData);
        if (i == elf.nameTableIndex) {
            elf.nameTable.resize(qsizetype(section.size));
            if (!input.Read(section.offset, elf.nameTable.data(), section.size))
                return Fail(env, "[error] could not read section data: ", shown, ElfCode::ReadSectionData);
        }
    }
    return 0;
}

} // namespace

int ReadElf(Environment &env, const QString &path, ElfImage &elf)
{
    const QByteArray shown = path.toUtf8();
    const ElfInput input(path);
    if (!input.IsOpen())
        return Fail(env, "[error]Could not open file: ", shown, ElfCode::OpenRead);
    elf.inputSize = input.Size();
    if (!input.Read(0, elf.header.data(), elf.header.size()))
        return Fail(env, "[error] read elf head fail: ", shown, ElfCode::ReadHeader);
    const quint64 programHeaders = quint64(Get16(elf.header.data() + E_PHNUM)) * ElfImage::PROGRAM_HEADER_SIZE;
    if (programHeaders && !input.Holds(Get32(elf.header.data() + E_PHOFF), programHeaders))
        return Fail(env, "[error] read program head error: ", shown, ElfCode::ReadProgramHeader);
    elf.nameTableIndex = Get16(elf.header.data() + E_SHSTRNDX);
    if (const int code = ReadSections(env, input, shown, elf))
        return code;
    if (elf.nameTable.isEmpty())
        return Fail(env, "[error] no section name table to put the name .zp_res into: ", shown, ElfCode::NoNameTable);
    if (elf.sections.size() == 0xFFFF)
        return Fail(env, "[error] no room for one more section: ", shown, ElfCode::TooLarge);

    ElfImage::SectionHeader &names = elf.sections[elf.nameTableIndex];
    if (names.size > 0xFFFFFFFFu - sizeof SECTION_NAME)
        return Fail(env, "[error] section name table too large: ", shown, ElfCode::TooLarge);
    elf.sections.push_back({});
    elf.sections.back().name = elf.sections[elf.nameTableIndex].size;
    elf.nameTable.append(SECTION_NAME, sizeof SECTION_NAME);
    elf.sections[elf.nameTableIndex].size += quint32(sizeof SECTION_NAME);
    Put16(elf.header.data() + E_SHNUM, quint16(elf.sections.size()));
    return 0;
}

int AddResSection(ElfImage &elf, QByteArrayView payload)
{
    elf.payload = payload;
    ElfImage::SectionHeader &section = elf.sections.back();
    section.type = TYPE_PROGBITS;
    section.flags = FLAG_ALLOC;
    section.size = quint32(payload.size());
    return 0;
}

int SetElfLayout(Environment &env, ElfImage &elf)
{
    const quint64 payload = elf.PayloadOffset();
    const quint64 table = payload + quint64(elf.payload.size());
    const quint64 names = table + ElfImage::SECTION_HEADER_SIZE * elf.sections.size();
    if (names + quint64(elf.nameTable.size()) > 0xFFFFFFFFu) {
        env.DebugTrace("[error] the grown file would be more than 32 bits can tell");
        return int(ElfCode::TooLarge);
    }
    elf.sections.back().offset = quint32(payload);
    elf.sections[elf.nameTableIndex].offset = quint32(names);
    Put32(elf.header.data() + E_SHOFF, quint32(table));
    return 0;
}

namespace {

int AppendTail(Environment &env, const ElfImage &elf, const QByteArray &host, const QByteArray &shown)
{
    const FileHandle file(open(host.constData(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666));
    if (!file.IsOpen()) {
        const int error = errno;
        env.DebugTrace("[error] could not open file while write data to file: %s", shown.constData());
        return error;
    }
    static constexpr char ZEROS[4] = {};
    const auto failed = [&env] {
        env.DebugTrace("[error] write res data to file error.\n");
        return int(ElfCode::Write);
    };
    if (!file.WriteAll(ZEROS, size_t(elf.PayloadOffset() - elf.inputSize)) ||
        !file.WriteAll(elf.payload.data(), size_t(elf.payload.size())))
        return failed();
    QByteArray table;
    table.reserve(qsizetype(elf.sections.size() * ElfImage::SECTION_HEADER_SIZE));
    for (const ElfImage::SectionHeader &section : elf.sections) {
        const Record record = Encode(section);
        table.append(record.data(), qsizetype(record.size()));
    }
    if (!file.WriteAll(table.constData(), size_t(table.size())))
        env.DebugTrace("[error] write section head error: %s", shown.constData());
    if (!file.WriteAll(elf.nameTable.constData(), size_t(elf.nameTable.size())))
        return failed();
    return 0;
}

} // namespace

int WriteElf(Environment &env, const ElfImage &elf, const QString &path)
{
    const QByteArray host = HostPath(path);
    const QByteArray shown = path.toUtf8();
    if (const int code = AppendTail(env, elf, host, shown))
        return code;
    const FileHandle file(open(host.constData(), O_RDWR | O_CLOEXEC));
    if (!file.IsOpen()) {
        const int error = errno;
        env.DebugTrace("[error] could not open file while write data to file: %s", shown.constData());
        return error;
    }
    if (lseek(file.Get(), 0, SEEK_SET) != 0)
        return Fail(env, "[error]Could not seek file: ", shown, ElfCode::SeekProgramHeaders);
    if (!file.WriteAll(elf.header.data(), elf.header.size()))
        return Fail(env, "[error] write elf head error: ", shown, ElfCode::WriteHeader);
    return 0;
}
