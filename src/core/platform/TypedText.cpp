// SPDX-License-Identifier: MIT
#include "TypedText.h"

#include <QUtf8StringView>

namespace
{

/// Returns the size in bytes of the UTF-8 character that `bytes` begin with; 0 when they begin with none.
qsizetype FirstCharacter(QByteArrayView bytes)
{
    constexpr qsizetype LONGEST = 4;
    for (qsizetype size = 1; size <= qMin(LONGEST, bytes.size()); ++size) {
        if (QUtf8StringView(bytes.first(size)).isValidUtf8())
            return size;
    }
    return 0;
}

} // namespace

QString WhyNotUsable(QByteArrayView typed)
{
    if (QUtf8StringView(typed).isValidUtf8())
        return {};
    QString shown;
    for (QByteArrayView rest = typed; !rest.isEmpty();) {
        const qsizetype size = FirstCharacter(rest);
        shown += size > 0 ? QString::fromUtf8(rest.first(size))
                          : QStringLiteral("\\x%1").arg(quint8(rest[0]), 2, 16, QLatin1Char('0'));
        rest = rest.sliced(qMax<qsizetype>(size, 1));
    }
    return QStringLiteral("the name \"%1\" is not UTF-8, so it can't be used; rename the file or folder").arg(shown);
}
