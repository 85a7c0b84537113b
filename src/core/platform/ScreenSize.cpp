// SPDX-License-Identifier: MIT
#include "ScreenSize.h"

#include "Text.h"

#include <algorithm>

namespace
{

bool IsDigits(QStringView text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

} // namespace

std::optional<ScreenSize> ParseScreenSize(QStringView text)
{
    const auto by = std::find_if(text.begin(), text.end(), [](QChar c) { return QStringView(u"xX*").contains(c); });
    const qsizetype at = by - text.begin();
    if (by == text.end() || !IsDigits(text.first(at)) || !IsDigits(text.sliced(at + 1)))
        return std::nullopt;
    const ScreenSize size{LeadingNumber(text.first(at)), LeadingNumber(text.sliced(at + 1))};
    if (size.width == 0 || size.height == 0)
        return std::nullopt;
    return size;
}
