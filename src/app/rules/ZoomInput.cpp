// SPDX-License-Identifier: MIT
#include "ZoomInput.h"

QString ZoomInput::Message()
{
    return QStringLiteral("Enter an integer between %1 and %2.").arg(LOWEST).arg(HIGHEST);
}

std::optional<int> ZoomInput::Check(const QString &text)
{
    bool isNumber = false;
    const int percent = text.trimmed().toInt(&isNumber);
    if (!isNumber || percent < LOWEST || percent > HIGHEST)
        return std::nullopt;
    return percent;
}
