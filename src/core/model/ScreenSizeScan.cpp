// SPDX-License-Identifier: MIT
#include "ScreenSizeScan.h"

#include <algorithm>
#include <limits>

namespace
{

bool IsBlank(QChar c)
{
    return c == u' ' || (c >= u'\t' && c <= u'\r');
}

bool IsDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

/// Removes from the front of `text` what "%d" would read. Returns false if that isn't a number.
bool TakeNumber(QStringView &text, int &number)
{
    qsizetype at = 0;
    while (at < text.size() && IsBlank(text[at]))
        ++at;
    const bool negative = at < text.size() && text[at] == u'-';
    if (negative || (at < text.size() && text[at] == u'+'))
        ++at;
    if (at >= text.size() || !IsDigit(text[at]))
        return false;
    constexpr qint64 bound = qint64(std::numeric_limits<int>::max()) + 1; // the absolute value of the smallest number
    qint64 size = 0;
    for (; at < text.size() && IsDigit(text[at]); ++at)
        size = std::min(size * 10 + (text[at].unicode() - u'0'), bound);
    number = int(negative ? -size : std::min(size, bound - 1));
    text = text.sliced(at);
    return true;
}

} // namespace

std::optional<ScreenSize> ScanScreenSize(QStringView text, QStringView separators)
{
    ScreenSize size;
    if (!TakeNumber(text, size.width))
        return std::nullopt;
    const auto end = std::find_if(text.begin(), text.end(), [&](QChar c) { return !separators.contains(c); });
    const qsizetype count = end - text.begin();
    text = text.sliced(count);
    if (count == 0 || !TakeNumber(text, size.height))
        return std::nullopt;
    return size;
}
