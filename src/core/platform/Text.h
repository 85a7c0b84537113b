#pragma once

#include <QByteArray>
#include <QString>

/// Text in the ANSI code page: ID names, paths in records, everything in XML. Wide text is QString.
using NarrowText = QByteArray;

/// Says whether two texts are equal without regard to case, one character at a time (Unicode simple case mapping).
[[nodiscard]] bool EqualsNoCase(QStringView a, QStringView b);

/// Upper case, one character to one: never changes the number of characters ("ß" stays).
[[nodiscard]] QString ToUpperSimple(QStringView text);

/// Lower case, one character to one.
[[nodiscard]] QString ToLowerSimple(QStringView text);

/// The decimal number that a text begins with: leading blanks, a sign, digits; 0 if there is none. A number beyond 32
/// bits gives the nearest that fits.
[[nodiscard]] int LeadingNumber(QStringView text);

/// A text for a %s of the log in UTF-8: its first 512 characters, since the log shows no more of it.
[[nodiscard]] QByteArray Shown(QStringView text);

/// How a message that quotes a text shows it: whole, or its first 60 characters and "...".
[[nodiscard]] QString Cut(QStringView text);

/// A text (UTF-8) in double quotes, with a "\" in front of each double quote and "\"; `escape(to, c)` appends what
/// stands for a control character.
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

/// Conversion between wide text and the code page that stands for the ANSI one.
///
/// UTF-8 unless another is named. A character that the code page lacks becomes "?"; bytes that are no text of the code
/// page become U+FFFD. Nothing is ever cut.
class CodePage
{
public:
    /// UTF-8.
    CodePage();
    ~CodePage();
    CodePage(const CodePage &) = delete;
    CodePage &operator=(const CodePage &) = delete;

    /// Takes the code page of that name ("utf-8", "936", "1252", or a name that ICU knows). False, and no change, when
    /// there is no such code page.
    bool Select(const QByteArray &name);

    [[nodiscard]] bool IsUtf8() const { return !converter; }
    [[nodiscard]] NarrowText FromWide(QStringView text) const;
    [[nodiscard]] QString ToWide(QByteArrayView text) const;
    /// The first character of a text that the code page lacks; empty when it has all.
    [[nodiscard]] QString FirstMissing(const QString &text) const;

private:
    void *converter = nullptr; // UConverter, null for UTF-8
    bool keepsAscii = false;   // ASCII goes without it; its tables shift some control characters
};
