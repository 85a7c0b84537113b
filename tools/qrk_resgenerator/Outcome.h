#pragma once

#include <cstdarg>
#include <cstdio>

/// How a step ended: well, or with a text that says what was found and what was wanted.
///
/// A value without memory of its own, so that it can be given back when memory has run out.
class [[nodiscard]] Outcome
{
public:
    static Outcome Done() { return {}; }

    /// `format` is printf's. What doesn't fit into 240 bytes is cut.
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
