// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

/// Calls `take` for each line of a text. A string file has no line ends in texts, so a line ends with the escape
/// sequence "\n", as the C compiler and the device read it; a "\" before it that is itself escaped doesn't count.
template <typename Take> void ForEachLine(QStringView text, const Take &take)
{
    qsizetype start = 0;
    for (qsizetype i = 0; i + 1 < text.size(); ++i) {
        if (text[i] != u'\\')
            continue;
        ++i; // the escaped character
        if (text[i] != u'n')
            continue;
        take(text.sliced(start, i - 1 - start));
        start = i + 1;
    }
    take(text.sliced(start));
}
