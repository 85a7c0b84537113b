// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// The text of the box that lists the files that were refused, one line for each. Of more than MOST_REFUSALS files it
/// lists the first ones.
[[nodiscard]] QString RefusalText(const QStringList &refusals);
/// The most files that the box lists.
inline constexpr qsizetype MOST_REFUSALS = 20;
