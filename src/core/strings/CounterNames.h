#pragma once

#include "Text.h"

#include <QString>

#include <optional>

class CResModel;

/// A template of names that are counted, such as "ID_STRING_%04X" or "%s_COPY_%04X": "%s" takes a source's name, and
/// one
/// "%d", "%u", "%x" or "%X", with a width and a leading 0 if need be, takes the number. Nothing else is a format.
class CounterNames
{
public:
    explicit CounterNames(const QString &format);

    [[nodiscard]] QString Name(quint32 number, const QString &source = {}) const;
    /// The number of a name without a source; nothing for a name that the template doesn't make.
    [[nodiscard]] std::optional<quint32> NumberOf(QStringView name) const;
    /// The first name from `first` on that no record of the model's pool bears; empty when the template has no number
    /// and its only name is taken. Sets `first` to its number.
    [[nodiscard]] QString Free(CResModel &model, quint32 &first, const QString &source = {}) const;

private:
    QString before;
    QString behind;
    int width = 0;
    bool zeros = false;
    char kind = 0; // of the number; 0: there is none
};
