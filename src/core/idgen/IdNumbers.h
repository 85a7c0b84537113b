// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <QHash>

#include <optional>
#include <vector>

/// The numbers of the IDs, as the generated header has them.
class IdNumbers
{
public:
    /// Reads the lines `#define NAME NUMBER` and ignores all others. If a name occurs twice, the first line counts.
    void Read(QByteArrayView header);
    /// Adds an ID whose name isn't there yet, without a line.
    void Add(const NarrowText &name, quint32 number);
    [[nodiscard]] std::optional<quint32> Find(const NarrowText &name) const;

    struct Entry
    {
        NarrowText name;
        quint32 number = 0;
        int line = 0; ///< from 1; 0 if it wasn't read from a header
    };
    /// The IDs in the order of the header.
    [[nodiscard]] const std::vector<Entry> &All() const { return entries; }

private:
    std::vector<Entry> entries;
    QHash<NarrowText, quint32> numbers;
};
