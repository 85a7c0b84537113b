#pragma once

#include <QString>

/// The texts that an import reads, by row and column as the file has them; both count from 0.
class IImportSource
{
public:
    virtual ~IImportSource() = default;
    /// The ID of a row's string; empty when it has none.
    [[nodiscard]] virtual QString Id(quint32 row) const = 0;
    /// Empty when there is none.
    [[nodiscard]] virtual QString Text(quint32 row, quint32 column) const = 0;
    /// One behind the last column of a row that has a text.
    [[nodiscard]] virtual quint32 EndColumn(quint32 row) const = 0;
};
