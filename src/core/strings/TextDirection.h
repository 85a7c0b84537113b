// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The writing direction of a language, looked up by its name in English or in the language itself, such as "Arabic".
/// Left to right for an unknown name.
[[nodiscard]] Qt::LayoutDirection DirectionOfLanguage(const QString &name);
