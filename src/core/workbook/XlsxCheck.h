#pragma once

#include "Workbook.h"

#include <QByteArray>

/// What the cells of a sheet come to: how many there are, and a checksum of their places and texts, in the order of
/// adding. Only sums of the same run of the program can be compared.
struct CellSum
{
    /// `place` is the cell's name, such as "AA3"; `text` is as `EncodeXlsxText` gives it.
    void Add(QByteArrayView place, QByteArrayView text);
    bool operator==(const CellSum &) const = default;

    qsizetype count = 0;
    size_t sum = 0;
};

/// Reads a workbook back that `WriteXlsx` has made: the checksum of every part, each as XML to its end, and the cells,
/// which have to come to `written`. The reason names the part that is damaged.
[[nodiscard]] WorkbookResult CheckXlsx(QByteArrayView file, const CellSum &written);
