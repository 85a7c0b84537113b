// SPDX-License-Identifier: MIT
#pragma once

#include "Messages.h"

#include <QString>

/// Writes "morvanite-cli: " and the text to standard error.
inline void Complain(const QString &text)
{
    ComplainUtf8(text.toStdString());
}
