// SPDX-License-Identifier: MIT
#include "SourceScanner.h"

#include <QByteArray>

#include <algorithm>
#include <cstring>

namespace
{

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Bytes from 0x80 on belong to letters in UTF-8.
bool IsNameStart(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '$' || quint8(c) >= 0x80;
}

bool IsNamePart(char c)
{
    return IsNameStart(c) || IsDigit(c);
}

bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\f' || c == '\v';
}

bool IsRawPrefix(QByteArrayView word)
{
    return word == "R" || word == "u8R" || word == "uR" || word == "UR" || word == "LR";
}

} // namespace

bool SourceScanner::Next(SourceName &name)
{
    while (at < source.size()) {
        if (!IsNameStart(source[at])) {
            SkipOther();
            continue;
        }
        const qsizetype begin = at;
        const QByteArrayView word = TakeWord();
        const bool isPart = isAfterPaste || IsPastedWithNext();
        name = {word, line, source.sliced(lineStart, begin - lineStart), isAfterDefine};
        isAtLineStart = isAfterPaste = isAfterDefine = false;
        if (At(at) == '"' && IsRawPrefix(word))
            SkipRaw();
        else if (!isPart)
            return true;
    }
    return false;
}

/// Skips something that isn't a name.
void SourceScanner::SkipOther()
{
    const char c = source[at];
    if (c == '\n') {
        ++at;
        BeginLine();
        return;
    }
    if (IsBlank(c)) {
        ++at;
        return;
    }
    if (SkipComment() || SkipJoinedLine())
        return;
    if (c == '#' && isAtLineStart) {
        ReadDirective();
        return;
    }
    isAtLineStart = isAfterDefine = false;
    isAfterPaste = c == '#' && At(at + 1) == '#';
    if (c == '"' || c == '\'')
        SkipQuoted(c);
    else if (IsDigit(c) || (c == '.' && IsDigit(At(at + 1))))
        SkipNumber();
    else
        at += isAfterPaste ? 2 : 1;
}

void SourceScanner::BeginLine()
{
    ++line;
    lineStart = at;
    isAtLineStart = true;
    isAfterPaste = isAfterDefine = false;
}

bool SourceScanner::SkipComment()
{
    if (source[at] != '/' || (At(at + 1) != '/' && At(at + 1) != '*'))
        return false;
    if (At(at + 1) == '/') {
        SkipToLineEnd();
        return true;
    }
    const qsizetype found = source.indexOf("*/", at + 2);
    const qsizetype end = found < 0 ? source.size() : found + 2;
    for (; at < end; ++at) {
        if (source[at] == '\n') {
            ++line;
            lineStart = at + 1;
        }
    }
    return true;
}

/// Skips a backslash at the end of a line, which joins the line with the next.
bool SourceScanner::SkipJoinedLine()
{
    const qsizetype length = source[at] != '\\'                         ? 0
                             : At(at + 1) == '\n'                       ? 2
                             : At(at + 1) == '\r' && At(at + 2) == '\n' ? 3
                                                                        : 0;
    if (length == 0)
        return false;
    at += length;
    ++line;
    lineStart = at;
    return true;
}

/// Skips the rest of a line and of those joined with it, but not the line end.
void SourceScanner::SkipToLineEnd()
{
    while (at < source.size() && source[at] != '\n') {
        if (!SkipJoinedLine())
            ++at;
    }
}

/// Skips a string or a character. It ends with its line at the latest.
void SourceScanner::SkipQuoted(char quote)
{
    ++at;
    while (at < source.size() && source[at] != '\n') {
        if (SkipJoinedLine())
            continue;
        const char c = source[at];
        at += c == '\\' && At(at + 1) != '\n' ? 2 : 1;
        if (c == quote)
            break;
    }
    at = std::min(at, source.size());
}

/// Skips a raw string, R"delimiter(...)delimiter", from its first quote.
void SourceScanner::SkipRaw()
{
    constexpr qsizetype LONGEST_DELIMITER = 16;
    const qsizetype open = source.indexOf('(', at);
    if (open < 0 || open - at - 1 > LONGEST_DELIMITER)
        return SkipQuoted('"');
    const QByteArray close = ')' + source.sliced(at + 1, open - at - 1).toByteArray() + '"';
    const qsizetype found = source.indexOf(close, open);
    const qsizetype end = found < 0 ? source.size() : found + close.size();
    for (; at < end; ++at) {
        if (source[at] == '\n') {
            ++line;
            lineStart = at + 1;
        }
    }
}

/// Skips a number with its suffix and digit separators, such as 1'000u or 0x1p+3.
void SourceScanner::SkipNumber()
{
    while (at < source.size()) {
        const char c = source[at];
        const bool isSign = (c == '+' || c == '-') && at > 0 && std::strchr("eEpP", source[at - 1]);
        const bool isSeparator = c == '\'' && IsNamePart(At(at + 1));
        if (!IsNamePart(c) && c != '.' && !isSign && !isSeparator)
            return;
        ++at;
    }
}

void SourceScanner::ReadDirective()
{
    ++at;
    while (at < source.size() && (source[at] == ' ' || source[at] == '\t'))
        ++at;
    const QByteArrayView word = TakeWord();
    isAtLineStart = false;
    isAfterDefine = word == "define";
    if (word == "include" || word == "include_next" || word == "error" || word == "warning")
        SkipToLineEnd();
}

QByteArrayView SourceScanner::TakeWord()
{
    const qsizetype begin = at;
    while (at < source.size() && IsNamePart(source[at]))
        ++at;
    return source.sliced(begin, at - begin);
}

bool SourceScanner::IsPastedWithNext() const
{
    qsizetype next = at;
    while (At(next) == ' ' || At(next) == '\t')
        ++next;
    return At(next) == '#' && At(next + 1) == '#';
}
