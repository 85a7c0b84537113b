// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>

/// Reads a text piece by piece with the rules of scanf, but without its undefined cases: a number beyond 64 bits gives
/// the nearest that fits, and the locale has no effect. As with scanf, results after a piece that doesn't match have no
/// meaning.
///
///     TextScan scan("(3, 4)");
///     scan.Char('(') && scan.Number(x) && scan.Char(',') && scan.Number(y)     // "(%lld,%lld"
class TextScan
{
public:
    explicit TextScan(QByteArrayView text) : at(text.data()), end(at + qstrnlen(at, size_t(text.size()))) {}

    [[nodiscard]] static bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
    [[nodiscard]] static bool IsDigit(char c) { return c >= '0' && c <= '9'; }

    /// A literal character of the format.
    bool Char(char c)
    {
        if (at == end || *at != c)
            return false;
        ++at;
        return true;
    }

    bool Text(QByteArrayView text)
    {
        for (const char c : text) {
            if (!Char(c))
                return false;
        }
        return true;
    }

    /// " "
    void SkipSpace()
    {
        while (at < end && IsSpace(*at))
            ++at;
    }

    /// "%lld"
    bool Number(qint64 &value)
    {
        SkipSpace();
        const bool negative = Char('-');
        if (!negative)
            Char('+');
        if (at == end || !IsDigit(*at))
            return false;
        // Accumulated as a negative number, since there is one more of these.
        qint64 below = 0;
        for (; at < end && IsDigit(*at); ++at) {
            if (__builtin_mul_overflow(below, 10, &below) || __builtin_sub_overflow(below, *at - '0', &below)) {
                below = INT64_MIN;
                while (at < end && IsDigit(*at))
                    ++at;
                break;
            }
        }
        value = negative ? below : below == INT64_MIN ? INT64_MAX : -below;
        return true;
    }

    /// "%d": a number that doesn't fit loses its upper bits.
    bool Number(qint32 &value)
    {
        qint64 wide = 0;
        if (!Number(wide))
            return false;
        value = qint32(wide);
        return true;
    }

    /// "%02x": a sign and "0x" count towards the two characters.
    bool HexByte(quint8 &value)
    {
        SkipSpace();
        int width = 2;
        const bool negative = at < end && *at == '-';
        if (negative || (at < end && *at == '+')) {
            ++at;
            --width;
        }
        quint32 number = 0;
        bool found = false;
        for (; width > 0 && at < end; --width, ++at) {
            const int digit = HexDigit(*at);
            if (digit < 0) {
                if (width == 1 && found && number == 0 && (*at == 'x' || *at == 'X'))
                    ++at;
                break;
            }
            number = number * 16 + quint32(digit);
            found = true;
        }
        if (found)
            value = quint8(negative ? 0U - number : number);
        return found;
    }

    /// "%[^)]": true if there is text before `c`.
    [[nodiscard]] bool HasTextBefore(char c) const { return at < end && *at != c; }

    /// "%s"; empty when there is nothing.
    QByteArrayView Word()
    {
        SkipSpace();
        const char *const start = at;
        while (at < end && !IsSpace(*at))
            ++at;
        return {start, at - start};
    }

private:
    [[nodiscard]] static int HexDigit(char c)
    {
        if (IsDigit(c))
            return c - '0';
        const char lower = char(c | 0x20);
        return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
    }

    const char *at;
    const char *end;
};
