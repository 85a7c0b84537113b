// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <QHash>

#include <optional>

/// The numbers of the IDs, as the generated header has them.
class IdNumbers
{
public:
    /// Reads the lines `#define NAME NUMBER` and ignores all others. If a name occurs twice, the first line counts.
    void Read(QByteArrayView header);
    [[nodiscard]] std::optional<quint32> Find(const NarrowText &name) const;

private:
    QHash<NarrowText, quint32> numbers;
};
