// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The first `most` UTF-16 units of a text, or one less if the cut would split a surrogate pair.
[[nodiscard]] QStringView WholePart(QStringView text, qsizetype most);

/// The number of characters of a text that a cell of a list shows at most. A view takes seconds to lay out much longer
/// lines.
inline constexpr qsizetype LONGEST_SHOWN = 300;

/// A text as a cell of a list shows it: in one line, cut as by `WholePart`, with "…" appended if it was cut. A line end
/// becomes "↵", and any other control character a blank. The running time doesn't depend on the part that is cut off.
[[nodiscard]] QString CellLine(const QString &text, qsizetype most);
/// The same for a text that isn't a QString: only what is shown is copied.
[[nodiscard]] QString CellLine(QStringView text, qsizetype most);
