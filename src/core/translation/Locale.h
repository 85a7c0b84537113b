// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Returns the locale of a language's code (BCP 47): "pt_BR" for "pt-BR", and "zh_CN" and "zh_TW" for Simplified and
/// Traditional Chinese.
[[nodiscard]] QString LocaleOfCode(const QString &code);

/// Returns the code of a locale, whose encoding and modifier are ignored ("de_DE.UTF-8@euro"). A code stays as it is.
[[nodiscard]] QString CodeOfLocale(const QString &locale);
