#pragma once

#include <QByteArray>
#include <QtEndian>

#include <type_traits>
#include <utility>
#include <vector>

/// Builds a small ELF file for the device. Each part can be bent, since nothing in such a file is checked before it is
/// grown.
///
///     ArmElf().Segment().Section(".text", 64).Bytes()
///
/// In the file: header, program headers, the sections' data, the name table (always the last section), the section
/// table.
class ArmElf
{
public:
    static constexpr quint32 PROGBITS = 1;
    static constexpr quint32 NOBITS = 8;

    /// A section of `size` bytes, a pattern of its own.
    ArmElf &Section(const QByteArray &name, quint32 size, quint32 type = PROGBITS)
    {
        sections.push_back({name, size, type});
        return *this;
    }
    /// A program header that covers the whole file.
    ArmElf &Segment()
    {
        ++segments;
        return *this;
    }
    /// Bytes behind the section table, for an input of any size.
    ArmElf &Tail(qsizetype size)
    {
        tail = size;
        return *this;
    }
    /// The distance from one section header to the next.
    ArmElf &HeaderStep(quint16 bytes)
    {
        step = bytes;
        return *this;
    }
    ArmElf &NameTableType(quint32 type)
    {
        nameTableType = type;
        return *this;
    }

    [[nodiscard]] QByteArray Bytes() const
    {
        QByteArray names(1, '\0');
        QByteArray body;
        std::vector<QByteArray> headers{QByteArray(SECTION_HEADER, '\0')};
        const qsizetype start = HEADER + PROGRAM_HEADER * segments;
        for (const auto &[name, size, type] : sections) {
            headers.push_back(Header(names, name, type, start + body.size(), size));
            for (quint32 i = 0; type != NOBITS && i < size; ++i)
                body += char(i * 7 + headers.size());
        }
        headers.push_back(Header(names, ".shstrtab", nameTableType, start + body.size(), 0));
        qToLittleEndian(quint32(names.size()), headers.back().data() + 20);
        body += names;
        QByteArray file = FileHeader(start + body.size(), headers.size());
        for (int i = 0; i < segments; ++i)
            file += Numbers({1, 0, 0x8000, 0x8000, quint32(start + body.size()), quint32(start + body.size()), 5, 4});
        file += body;
        for (size_t i = 0; i < headers.size(); ++i) {
            const qsizetype at = start + body.size() + qsizetype(i) * step;
            if (file.size() < at + SECTION_HEADER)
                file.append(at + SECTION_HEADER - file.size(), '\0');
            file.replace(at, SECTION_HEADER, headers[i]);
        }
        return file + QByteArray(tail, 't');
    }

private:
    static constexpr qsizetype HEADER = 52;
    static constexpr qsizetype PROGRAM_HEADER = 32;
    static constexpr qsizetype SECTION_HEADER = 40;

    struct SectionData
    {
        QByteArray name;
        quint32 size;
        quint32 type;
    };

    template <typename T = quint32> static QByteArray Numbers(std::initializer_list<std::type_identity_t<T>> numbers)
    {
        QByteArray bytes;
        for (const T number : numbers) {
            char field[sizeof(T)];
            qToLittleEndian(number, field);
            bytes.append(field, sizeof field);
        }
        return bytes;
    }

    static QByteArray Header(QByteArray &names, const QByteArray &name, quint32 type, qsizetype offset, quint32 size)
    {
        const auto place = quint32(names.size());
        names += name + '\0';
        return Numbers({place, type, 0, 0, quint32(offset), size, 0, 0, 1, 0});
    }

    [[nodiscard]] QByteArray FileHeader(qsizetype table, size_t count) const
    {
        return QByteArray("\x7F"
                          "ELF\1\1\1\0\0\0\0\0\0\0\0\0",
                          16) +
               Numbers<quint16>({2, 40}) +
               Numbers({1, 0x8000, quint32(segments ? HEADER : 0), quint32(table), 0x5000400}) +
               Numbers<quint16>({HEADER, PROGRAM_HEADER, quint16(segments), step, quint16(count), quint16(count - 1)});
    }

    std::vector<SectionData> sections;
    int segments = 0;
    qsizetype tail = 0;
    quint16 step = SECTION_HEADER;
    quint32 nameTableType = 3;
};
