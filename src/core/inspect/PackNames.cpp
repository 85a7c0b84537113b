// SPDX-License-Identifier: MIT
#include "PackNames.h"

void PackNames::Add(quint32 number, const QString &name)
{
    if (names.contains(number) || numbers.contains(name))
        return;
    names.insert(number, name);
    numbers.insert(name, number);
}

std::optional<quint32> PackNames::NumberOf(const QString &name) const
{
    const auto found = numbers.constFind(name);
    return found == numbers.constEnd() ? std::nullopt : std::optional(*found);
}
