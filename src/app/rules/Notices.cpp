// SPDX-License-Identifier: MIT
#include "Notices.h"

void Notices::Add(const QString &text)
{
    if (!text.isEmpty() && !texts.contains(text))
        texts.append(text);
}

void Notices::Dismiss()
{
    if (texts.isEmpty())
        return;
    texts.removeFirst();
    dismissed = texts.isEmpty() ? 0 : dismissed + 1;
}

QString Notices::Place() const
{
    const qsizetype all = dismissed + texts.size();
    return all < 2 ? QString() : QStringLiteral("%1 of %2").arg(dismissed + 1).arg(all);
}
