// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Returns a text for trying out an application before it is translated: the source text in "⟦ ⟧", with accents on its
/// letters and 35 % longer with "~". Placeholders of the given kinds (PlaceholderKind) and escape sequences stay as
/// they are and don't count. `isRightToLeft` puts U+202E and U+202C around each word, so that it is shown from right to
/// left. An empty text stays empty.
[[nodiscard]] QString PseudoText(QStringView source, quint32 placeholderKinds, bool isRightToLeft);
