// SPDX-License-Identifier: MIT
#include "SelectString.h"

int SelectString(const QStringList &choices, QStringView text)
{
    if (text.isEmpty())
        return -1;
    for (qsizetype i = 1; i <= choices.size(); ++i) {
        const qsizetype choice = i % choices.size();
        if (choices[choice].startsWith(text, Qt::CaseInsensitive))
            return int(choice);
    }
    return -1;
}
