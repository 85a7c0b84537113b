#pragma once

#include "Text.h"

#include <QHash>

#include <optional>

/// The numbers of the IDs, as the generated header has them.
class IdNumbers
{
public:
    /// Takes the lines `#define NAME NUMBER`; all others are passed over. Of two with one name the first counts.
    void Read(QByteArrayView header);
    [[nodiscard]] std::optional<quint32> Find(const NarrowText &name) const;

private:
    QHash<NarrowText, quint32> numbers;
};
