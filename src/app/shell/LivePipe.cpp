// SPDX-License-Identifier: MIT
#include "LivePipe.h"

#include <QCoreApplication>
#include <QScopedValueRollback>

void LivePipe::Write(QStringView text)
{
    pipe.Write(text);
    Breathe();
}

void LivePipe::Flush()
{
    pipe.Flush();
    Breathe();
}

void LivePipe::Breathe()
{
    constexpr qint64 BETWEEN_MS = 40;
    if (last.isValid() && last.elapsed() < BETWEEN_MS)
        return;
    const QScopedValueRollback breathing(isBreathing, true);
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
    if (serveMeanwhile)
        serveMeanwhile();
    last.start();
}
