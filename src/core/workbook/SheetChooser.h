// SPDX-License-Identifier: MIT
#pragma once

#include "Workbook.h"

#include <QStringList>

/// Chooses the sheet of a workbook that is read: the one with the wanted name, or else the one with that number among
/// those with cells, or the first one if nothing is wanted.
///
///     SheetChooser chooser(sheet.wanted);
///     for (each sheet with cells, in their order)
///         if (chooser.Take(name)) ... // better than all before it
///     if (!chooser.HasChosen()) return chooser.None();
class SheetChooser
{
public:
    /// `nameOrNumber` is a name, or a number from 1; empty: the first sheet.
    explicit SheetChooser(const QString &nameOrNumber) : wanted(nameOrNumber), number(wanted.toInt()) {}

    [[nodiscard]] bool Take(const QString &name)
    {
        names.append(name);
        const bool isNamed = !wanted.isEmpty() && name.compare(wanted, Qt::CaseInsensitive) == 0;
        const bool isNumbered = wanted.isEmpty() ? names.size() == 1 : names.size() == number;
        if (hasNamed || !(isNamed || isNumbered))
            return false;
        hasNamed = isNamed;
        return hasChosen = true;
    }

    [[nodiscard]] bool HasChosen() const { return hasChosen; }
    /// Returns whether no other sheet can be better.
    [[nodiscard]] bool IsSure() const { return hasChosen && (hasNamed || wanted.isEmpty()); }
    /// Returns the failure if none was chosen.
    [[nodiscard]] WorkbookResult None() const
    {
        if (names.isEmpty())
            return {WorkbookFault::Broken, QStringLiteral("it has no worksheet")};
        constexpr qsizetype SHOWN = 10;
        return {WorkbookFault::Broken,
                QStringLiteral("it has no sheet \"%1\"; its sheets are %2%3")
                    .arg(wanted, names.first(qMin(names.size(), SHOWN)).join(QStringLiteral(", ")),
                         names.size() > SHOWN ? QStringLiteral(", ...") : QString())};
    }

private:
    const QString wanted;
    const int number;
    QStringList names;
    bool hasNamed = false;
    bool hasChosen = false;
};
