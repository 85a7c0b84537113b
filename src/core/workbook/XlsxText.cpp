// SPDX-License-Identifier: MIT
#include "XlsxText.h"

#include "Utf8.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace
{

constexpr qsizetype ESCAPE_SIZE = 7; // "_xHHHH_"

/// Returns the unit that is escaped at `at`; nullopt when there is no escape.
std::optional<QChar> EscapeAt(QStringView text, qsizetype at)
{
    if (text.size() - at < ESCAPE_SIZE || text[at] != u'_' || text[at + 1] != u'x' || text[at + 6] != u'_')
        return std::nullopt;
    ushort unit = 0;
    for (const QChar c : text.sliced(at + 2, 4)) {
        const char16_t digit = c.toLower().unicode();
        if (digit >= u'0' && digit <= u'9')
            unit = ushort(unit << 4 | (digit - u'0'));
        else if (digit >= u'a' && digit <= u'f')
            unit = ushort(unit << 4 | (digit - u'a' + 10));
        else
            return std::nullopt;
    }
    return QChar(unit);
}

char *PutEscape(char *to, char16_t unit)
{
    constexpr char DIGITS[] = "0123456789ABCDEF";
    *to++ = '_';
    *to++ = 'x';
    for (int shift = 12; shift >= 0; shift -= 4)
        *to++ = DIGITS[unit >> shift & 0xF];
    *to++ = '_';
    return to;
}

char *Put(char *to, std::string_view piece)
{
    return std::copy(piece.begin(), piece.end(), to);
}

/// Puts the unit at `at`, which is below 128.
char *PutAscii(char *to, QStringView text, qsizetype at)
{
    const char16_t unit = text[at].unicode();
    if (unit == u'&')
        return Put(to, "&amp;");
    if (unit == u'<')
        return Put(to, "&lt;");
    if (unit == u'>')
        return Put(to, "&gt;");
    if ((unit < u' ' && unit != u'\t' && unit != u'\n') || (unit == u'_' && EscapeAt(text, at)))
        return PutEscape(to, unit);
    *to++ = char(unit);
    return to;
}

/// Puts a character of 128 or more, in UTF-8.
char *PutWide(char *to, char32_t character)
{
    if (character < 0x800) {
        *to++ = char(0xC0 | character >> 6);
    } else {
        if (character < 0x10000) {
            *to++ = char(0xE0 | character >> 12);
        } else {
            *to++ = char(0xF0 | character >> 18);
            *to++ = char(0x80 | (character >> 12 & 0x3F));
        }
        *to++ = char(0x80 | (character >> 6 & 0x3F));
    }
    *to++ = char(0x80 | (character & 0x3F));
    return to;
}

} // namespace

bool IsPlainXlsxText(QByteArrayView utf8)
{
    return std::all_of(utf8.begin(), utf8.end(), [](char c) { return uchar(c) < 0x80 && c != '_'; });
}

QString DecodeXlsxText(QByteArrayView utf8)
{
    const QString raw = FromUtf8(utf8);
    if (!raw.contains(u'_'))
        return raw;
    QString text;
    text.reserve(raw.size());
    for (qsizetype i = 0; i < raw.size();) {
        const auto escaped = EscapeAt(raw, i);
        text += escaped.value_or(raw[i]);
        i += escaped ? ESCAPE_SIZE : 1;
    }
    return text;
}

char *PutXlsxText(char *to, QStringView text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar unit = text[i];
        if (unit.unicode() < 0x80) {
            to = PutAscii(to, text, i);
        } else if (unit.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            to = PutWide(to, QChar::surrogateToUcs4(unit, text[++i]));
        } else if (unit.unicode() >= 0xFFFE) {
            to = PutEscape(to, unit.unicode());
        } else {
            to = PutWide(to, unit.isSurrogate() ? char32_t(QChar::ReplacementCharacter) : unit.unicode());
        }
    }
    return to;
}
