// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <zlib.h>

#include <utility>
#include <vector>

/// Makes a ZIP file, by default the package of a workbook with one empty sheet.
///
///     Package().Rows("<row><c><v>1</v></c></row>").Build()
class Package
{
public:
    struct Part
    {
        QByteArray name;
        QByteArray bytes;
        bool isDeflated = false;
    };

    static constexpr char RELATIONSHIPS[] = "<Relationships xmlns='http://schemas.openxmlformats.org/package/2006/"
                                            "relationships'>%1</Relationships>";
    static constexpr char SHEET[] = "<worksheet xmlns='http://schemas.openxmlformats.org/spreadsheetml/2006/main'>"
                                    "<sheetData>%1</sheetData></worksheet>";
    static constexpr char STRINGS[] = "<sst xmlns='http://schemas.openxmlformats.org/spreadsheetml/2006/main'>%1</sst>";

    Package()
    {
        Links("_rels/.rels", {{"officeDocument", "xl/workbook.xml"}});
        Properties("");
        Links("xl/_rels/workbook.xml.rels", {{"worksheet", "sheet.xml"}, {"sharedStrings", "strings.xml"}});
        Strings("");
        Rows("");
    }

    /// Sets what the workbook part has before the list of sheets.
    Package &Properties(const QByteArray &xml)
    {
        return Set("xl/workbook.xml", "<workbook xmlns='http://schemas.openxmlformats.org/spreadsheetml/2006/main' "
                                      "xmlns:r='http://schemas.openxmlformats.org/officeDocument/2006/relationships'>" +
                                          xml +
                                          "<sheets><sheet name='Strings' sheetId='1' r:id='r1'/></sheets></workbook>");
    }

    Package &Rows(const QByteArray &xml) { return Set("xl/sheet.xml", QByteArray(SHEET).replace("%1", xml)); }

    Package &Strings(const QByteArray &xml, bool isDeflated = false)
    {
        return Set("xl/strings.xml", QByteArray(STRINGS).replace("%1", xml), isDeflated);
    }

    /// Adds relationships r1, r2 and so on, each with a kind and a target.
    Package &Links(const QByteArray &part, const std::vector<std::pair<QByteArray, QByteArray>> &links)
    {
        QByteArray xml;
        int number = 0;
        for (const auto &[kind, target] : links)
            xml += "<Relationship Id='r" + QByteArray::number(++number) +
                   "' Type='http://schemas.openxmlformats.org/officeDocument/2006/relationships/" + kind +
                   "' Target='" + target + "'/>";
        return Set(part, QByteArray(RELATIONSHIPS).replace("%1", xml));
    }

    /// Replaces the part of that name, or adds it after all others.
    Package &Set(const QByteArray &name, const QByteArray &bytes, bool isDeflated = false)
    {
        for (Part &part : parts) {
            if (part.name == name) {
                part = {name, bytes, isDeflated};
                return *this;
            }
        }
        return Add(name, bytes, isDeflated);
    }

    Package &Add(const QByteArray &name, const QByteArray &bytes, bool isDeflated = false)
    {
        parts.push_back({name, bytes, isDeflated});
        return *this;
    }

    Package &Remove(const QByteArray &name)
    {
        std::erase_if(parts, [&name](const Part &part) { return part.name == name; });
        return *this;
    }

    Package &Rename(const QByteArray &from, const QByteArray &to)
    {
        for (Part &part : parts)
            part.name = part.name == from ? to : part.name;
        return *this;
    }

    [[nodiscard]] QByteArray Build() const
    {
        QByteArray file;
        QByteArray directory;
        for (const Part &part : parts) {
            const QByteArray data = part.isDeflated ? Deflated(part.bytes) : part.bytes;
            const auto crc =
                quint32(crc32_z(0, reinterpret_cast<const Bytef *>(part.bytes.data()), size_t(part.bytes.size())));
            const QByteArray common = U16({0, quint16(part.isDeflated ? 8 : 0), 0, 0x21}) +
                                      U32({crc, quint32(data.size()), quint32(part.bytes.size())}) +
                                      U16({quint16(part.name.size()), 0});
            directory +=
                "PK\1\2" + U16({20, 20}) + common + U16({0, 0, 0, 0, 0}) + U32({quint32(file.size())}) + part.name;
            file += "PK\3\4" + U16({20}) + common + part.name + data;
        }
        const auto count = quint16(parts.size());
        return file + directory + "PK\5\6" + U16({0, 0, count, count}) +
               U32({quint32(directory.size()), quint32(file.size())}) + U16({0});
    }

    static QByteArray U16(std::initializer_list<quint16> numbers) { return Bytes(numbers); }
    static QByteArray U32(std::initializer_list<quint32> numbers) { return Bytes(numbers); }

private:
    template <typename T> static QByteArray Bytes(std::initializer_list<T> numbers)
    {
        QByteArray bytes;
        for (const T number : numbers) {
            for (size_t i = 0; i < sizeof(T); ++i)
                bytes += char(number >> (8 * i));
        }
        return bytes;
    }

    static QByteArray Deflated(const QByteArray &bytes)
    {
        return qCompress(bytes, Z_BEST_SPEED).sliced(6).chopped(4); // without the headers and the checksum of zlib
    }

    std::vector<Part> parts;
};
