// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <QString>

#include <optional>

class CResModel;

/// A template of names with a number, such as "ID_STRING_%04X" or "%s_COPY_%04X". "%s" is replaced by the name of a
/// source, and one "%d", "%u", "%x" or "%X", with an optional width and an optional leading 0, by the number. No other
/// formats are recognized.
class CounterNames
{
public:
    explicit CounterNames(const QString &format);

    [[nodiscard]] QString Name(quint32 number, const QString &source = {}) const;
    /// Returns the number of a name without a source; nullopt for a name that the template doesn't make.
    [[nodiscard]] std::optional<quint32> NumberOf(QStringView name) const;
    /// Returns the first name, for a number from `first` on, that no record of the model's pool has. Empty when the
    /// template has no number and its only name is taken. Sets `first` to the number of the name.
    [[nodiscard]] QString Free(CResModel &model, quint32 &first, const QString &source = {}) const;

private:
    QString before;
    QString behind;
    int width = 0;
    bool zeros = false;
    char kind = 0; // the number's format character; 0: there is no number
};
