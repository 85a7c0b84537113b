// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The texts that an import reads, by their row and column in the file; both are from 0.
class IImportSource
{
public:
    virtual ~IImportSource() = default;
    /// Returns the ID of a row's string; empty when it has none.
    [[nodiscard]] virtual QString Id(quint32 row) const = 0;
    /// Returns the text of a cell; empty when it has none.
    [[nodiscard]] virtual QString Text(quint32 row, quint32 column) const = 0;
    /// Returns the number of the last column with a text in a row, plus one.
    [[nodiscard]] virtual quint32 EndColumn(quint32 row) const = 0;
};
