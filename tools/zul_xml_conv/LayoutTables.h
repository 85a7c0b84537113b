// SPDX-License-Identifier: MIT
#pragma once

#include "ClassCatalogue.h"

#include <QHash>

#include <vector>

/// The numbers of a catalogue's classes and properties, which replace their names in a converted layout.
///
/// Both are numbered from 1 in the order of the catalogue; a property's name has the same number in all classes. The
/// enumerators of an enumeration are numbered from 0.
class LayoutTables
{
public:
    explicit LayoutTables(const ClassCatalogue &catalogue);

    /// 0 if there is none.
    [[nodiscard]] quint16 Class(const NarrowText &name) const { return classNumbers.value(name); }
    [[nodiscard]] quint16 Property(const NarrowText &name) const { return propertyNumbers.value(name); }

    /// A number that depends on every name and number. 0 for the tables of an empty catalogue.
    [[nodiscard]] quint32 Stamp() const { return stamp; }
    /// False if there are more names than numbers.
    [[nodiscard]] bool Fit() const;

    /// The contents of the files that a run writes on request, for inclusion in C or for the sub-tool.
    [[nodiscard]] QByteArray TableFile() const;
    [[nodiscard]] QByteArray EnumFile() const;
    /// The stamp of a table file; 0 for a file of another kind.
    static quint32 StampOf(QByteArrayView tableFile);

    static constexpr char TABLE_FILE[] = "zul_xml_table.i";
    static constexpr char ENUM_FILE[] = "zul_xml_enum.i";
    static constexpr char HEADER_FILE[] = "LayoutID.h";

private:
    [[nodiscard]] QByteArray TableLines() const;
    [[nodiscard]] QByteArray EnumLines() const;

    const ClassCatalogue &types;
    std::vector<NarrowText> classes;
    std::vector<NarrowText> properties;
    QHash<NarrowText, quint16> classNumbers;
    QHash<NarrowText, quint16> propertyNumbers;
    quint32 stamp = 0;
};
