#pragma once

#include "BiffWriter.h"

#include <QString>

#include <unordered_map>
#include <vector>

/// The texts that the cells of a workbook share, each once, in the order in which they came.
class XlsTextTable
{
public:
    /// The number of a text in the table, which a cell is written with.
    quint32 NumberOf(QStringView text);

    /// Writes the table's record and its CONTINUE records.
    void Write(BiffWriter &writer) const;

private:
    struct Hash
    {
        using is_transparent = void;
        size_t operator()(QStringView text) const { return qHash(text); }
    };
    struct Same
    {
        using is_transparent = void;
        bool operator()(QStringView a, QStringView b) const { return a == b; }
    };

    std::unordered_map<QString, quint32, Hash, Same> numbers;
    std::vector<QStringView> texts; // views of the keys above
    quint32 uses = 0;
};
