// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>

#include <optional>

/// The names of the IDs whose numbers are in a pack.
class PackNames
{
public:
    /// A number that has a name already keeps it.
    void Add(quint32 number, const QString &name);
    [[nodiscard]] bool IsEmpty() const { return names.isEmpty(); }
    /// The name of a number; empty if it has none.
    [[nodiscard]] QString Of(quint32 number) const { return names.value(number); }
    [[nodiscard]] std::optional<quint32> NumberOf(const QString &name) const;

private:
    QHash<quint32, QString> names;
    QHash<QString, quint32> numbers;
};
