// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <string_view>

/// Text in the ANSI code page: ID names, paths in records, everything in XML. Wide text is QString.
using NarrowText = QByteArray;

/// Returns a text for the functions that don't need Qt.
[[nodiscard]] inline std::u16string_view UnitsOf(QStringView text)
{
    return {text.utf16(), size_t(text.size())};
}

/// Returns whether two texts are equal without regard to case, one character at a time (Unicode simple case mapping).
[[nodiscard]] bool EqualsNoCase(QStringView a, QStringView b);

/// Converts to upper case, character by character. Never changes the number of characters ("ß" stays).
[[nodiscard]] QString ToUpperSimple(QStringView text);

/// Converts to lower case, character by character.
[[nodiscard]] QString ToLowerSimple(QStringView text);

/// Returns whether a character ends a line: a line feed, a carriage return, a vertical tab, a form feed, or one of
/// Unicode's own.
[[nodiscard]] constexpr bool EndsLine(QChar c)
{
    return (c >= u'\n' && c <= u'\r') || c == u'\x85' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

/// Returns the decimal number that a text begins with (blanks, a sign, digits), or 0 if there is none. For a number
/// beyond 32 bits, returns the nearest 32-bit number.
[[nodiscard]] int LeadingNumber(QStringView text);

/// Converts a text to UTF-8 for a %s of the log. Takes only its first 512 characters, because the log shows no more.
[[nodiscard]] QByteArray Shown(QStringView text);

/// Shortens a text that a message quotes: returns the whole text, or its first 60 characters and "...".
[[nodiscard]] QString Cut(QStringView text);

/// Returns a text (UTF-8) in double quotes, with a "\" before each double quote and each "\". `escape(to, c)` appends
/// the escape sequence of a control character.
template <typename Escape> [[nodiscard]] QByteArray Quoted(const QByteArray &utf8, const Escape &escape)
{
    QByteArray quoted = "\"";
    for (const char c : utf8) {
        if (c == '"' || c == '\\')
            (quoted += '\\') += c;
        else if (quint8(c) < ' ' || c == '\x7F')
            escape(quoted, c);
        else
            quoted += c;
    }
    return quoted + '"';
}

/// Converts between wide text and the code page that is used as the ANSI code page.
///
/// The code page is UTF-8 unless another is selected. A character that the code page lacks becomes "?". Bytes that are
/// invalid in the code page become U+FFFD. Texts are never cut.
class CodePage
{
public:
    /// Selects UTF-8.
    CodePage();
    ~CodePage();
    CodePage(const CodePage &) = delete;
    CodePage &operator=(const CodePage &) = delete;

    /// Selects the code page of that name ("utf-8", "936", "1252", or a name that ICU knows). Returns false, and
    /// changes nothing, when there is no such code page.
    bool Select(const QByteArray &name);

    [[nodiscard]] bool IsUtf8() const { return !converter; }
    [[nodiscard]] NarrowText FromWide(QStringView text) const;
    [[nodiscard]] QString ToWide(QByteArrayView text) const;
    /// Returns the first character of a text that the code page lacks; empty when it has all of them.
    [[nodiscard]] QString FirstMissing(const QString &text) const;

private:
    void *converter = nullptr; // UConverter, null for UTF-8
    bool keepsAscii = false;   // ASCII isn't converted; the converter's tables change some control characters
};
