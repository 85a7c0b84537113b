// SPDX-License-Identifier: MIT
#include "LayoutTables.h"

namespace
{

constexpr size_t MOST_NUMBERS = 0xFFFF; // numbers have 16 bits

constexpr char BANNER[] = "/* Numbers of layouts, made by zul_xml_conv.exe from the catalogue of components.\n"
                          " * Define the macros before you include it, or use LayoutID.h, which is made from it. */\n";
constexpr char STAMP_LINE[] = "\nZUL_TABLE(0x";

/// FNV-1a: a change of the text gives another number.
quint32 HashOf(QByteArrayView text)
{
    quint32 hash = 0x811C9DC5;
    for (const char c : text)
        hash = (hash ^ quint8(c)) * 0x01000193;
    return hash;
}

void AddNumber(std::vector<NarrowText> &names, QHash<NarrowText, quint16> &numbers, const NarrowText &name)
{
    if (numbers.contains(name))
        return;
    names.push_back(name);
    numbers.insert(name, quint16(names.size()));
}

} // namespace

LayoutTables::LayoutTables(const ClassCatalogue &catalogue) : types(catalogue)
{
    for (const auto &entry : catalogue.entries) {
        if (entry->kind == CLASS_CLASS)
            AddNumber(classes, classNumbers, entry->name);
        if (entry->kind == CLASS_CLASS || entry->kind == CLASS_STRUCTURE) {
            for (const ClassDescriptor::Item &member : entry->items)
                AddNumber(properties, propertyNumbers, member.name);
        }
    }
    if (catalogue.entries.empty())
        return;
    stamp = HashOf(TableLines() + EnumLines());
    stamp += stamp == 0; // 0 would mean that there are no tables
}

bool LayoutTables::Fit() const
{
    return classes.size() <= MOST_NUMBERS && properties.size() <= MOST_NUMBERS;
}

QByteArray LayoutTables::TableLines() const
{
    QByteArray text;
    const auto lines = [&text](const char *macro, const std::vector<NarrowText> &names) {
        int number = 0;
        for (const NarrowText &name : names)
            text += macro + QByteArray::number(++number) + ", " + name + ")\n";
    };
    lines("ZUL_CLASS(", classes);
    lines("ZUL_PROPERTY(", properties);
    return text;
}

QByteArray LayoutTables::EnumLines() const
{
    QByteArray text;
    for (const auto &entry : types.entries) {
        int number = 0;
        if (entry->kind == CLASS_ENUMERATION) {
            for (const ClassDescriptor::Item &item : entry->items)
                text +=
                    "ZUL_ENUMERATOR(" + entry->name + ", " + QByteArray::number(number++) + ", " + item.name + ")\n";
        }
    }
    return text;
}

QByteArray LayoutTables::TableFile() const
{
    return BANNER + (STAMP_LINE + QByteArray::number(stamp, 16).rightJustified(8, '0').toUpper()) + ")\n" +
           TableLines();
}

QByteArray LayoutTables::EnumFile() const
{
    return BANNER + ('\n' + EnumLines());
}

quint32 LayoutTables::StampOf(QByteArrayView tableFile)
{
    constexpr qsizetype DIGITS = 8;
    const qsizetype at = tableFile.indexOf(STAMP_LINE);
    const qsizetype number = at + qsizetype(sizeof STAMP_LINE) - 1;
    if (at < 0 || tableFile.size() - number < DIGITS)
        return 0;
    return tableFile.sliced(number, DIGITS).toUInt(nullptr, 16);
}
