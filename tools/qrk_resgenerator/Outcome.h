// SPDX-License-Identifier: MIT
#pragma once

#include <cstdarg>
#include <cstdio>

/// The result of a step: success, or a text that says what was found and what was expected.
///
/// A value without allocated memory, so that it can be returned when memory has run out.
class [[nodiscard]] Outcome
{
public:
    static Outcome Done() { return {}; }

    /// `format` is printf's. The text is truncated to 240 bytes.
    [[gnu::format(printf, 1, 2)]] static Outcome Failed(const char *format, ...)
    {
        Outcome outcome;
        std::va_list arguments;
        va_start(arguments, format);
        std::vsnprintf(outcome.m_text, sizeof m_text, format, arguments);
        va_end(arguments);
        return outcome;
    }

    bool HasFailed() const { return m_text[0] != '\0'; }
    const char *Text() const { return m_text; }

private:
    char m_text[240] = {};
};
