// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

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

/// Writes "morvanite-cli: " and the text (UTF-8) to standard error.
void ComplainUtf8(std::string_view text);

/// Says that the value of an option must be `right`, such as "a number from 1 to 64". All texts are UTF-8.
void ComplainOfValue(std::string_view option, std::string_view value, std::string_view right);

/// Writes a text (UTF-8) to standard output. Returns false, with a message unless the reader has gone, if that fails.
[[nodiscard]] bool Print(std::string_view text);
