#pragma once

#include <QString>

/// The first `most` UTF-16 units of a text; one less where that would leave half a surrogate pair.
[[nodiscard]] QStringView WholePart(QStringView text, qsizetype most);

/// How many characters of a text a cell of a list shows at most: a longer line takes a view seconds to lay out.
inline constexpr qsizetype LONGEST_SHOWN = 300;

/// A text as a cell of a list shows it: in one line, and cut as by `WholePart`, with "…" behind what is left. A line
/// end becomes "↵", any other control character a blank. The time doesn't grow with what is cut.
[[nodiscard]] QString CellLine(const QString &text, qsizetype most);
