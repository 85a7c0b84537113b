// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// The number of the choice that begins with a text, in either case: the search begins at the second and comes to the
/// first at last. -1 when none does, and for an empty text: a property without a value has chosen nothing.
[[nodiscard]] int SelectString(const QStringList &choices, QStringView text);
