// SPDX-License-Identifier: MIT
#pragma once

#include "Workbook.h"

#include <QByteArray>

/// The number of a sheet's cells, and a checksum of their places and texts, in the order in which they are added. Only
/// sums of the same run of the program can be compared.
struct CellSum
{
    /// `place` is the cell's name, such as "AA3"; `text` is in the form that `EncodeXlsxText` returns.
    void Add(QByteArrayView place, QByteArrayView text);
    bool operator==(const CellSum &) const = default;

    qsizetype count = 0;
    size_t sum = 0;
};

/// Reads back a workbook that `WriteXlsx` has made and checks the checksum of each part, that each part is complete
/// XML, and that the sum of the cells is `written`. The reason names the damaged part.
[[nodiscard]] WorkbookResult CheckXlsx(QByteArrayView file, const CellSum &written);
