// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string>

/// When messages have colours.
enum class ColorMode
{
    Auto, ///< if standard error is a terminal that has colours, and the user doesn't forbid them (NO_COLOR, TERM=dumb)
    Always,
    Never,
};

/// Sets when messages have colours, by the value of the option `--color`. Without a call it is `Auto`.
void SetColorMode(const std::string &value);

/// Returns whether text for a file of this process has colours.
[[nodiscard]] bool HasColors(int descriptor);

/// Writes "morvanite-cli: " and the text to standard error.
void Complain(const QString &text);
