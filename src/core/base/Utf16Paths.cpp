// SPDX-License-Identifier: MIT
#include "Utf16Paths.h"

#include <algorithm>
#include <vector>

namespace
{

constexpr std::u16string_view SEPARATORS = u"\\/";

bool IsRooted(std::u16string_view path)
{
    return path.starts_with(u'/') || path.starts_with(u"\\\\");
}

bool HasDrive(std::u16string_view path)
{
    return path.size() > 1 && path[1] == u':';
}

} // namespace

bool IsRelativeUtf16Path(std::u16string_view path)
{
    return !IsRooted(path) && !HasDrive(path);
}

std::u16string CanonicalUtf16Path(std::u16string_view path)
{
    const bool isRooted = IsRooted(path);
    const bool hasDrive = HasDrive(path);
    std::vector<std::u16string_view> kept;
    for (size_t at = 0; at <= path.size();) {
        const size_t end = std::min(path.find_first_of(SEPARATORS, at), path.size());
        const std::u16string_view part = path.substr(at, end - at);
        at = end + 1;
        if (part.empty() || part == u".")
            continue;
        if (part != u"..")
            kept.push_back(part);
        else if (!kept.empty() && kept.back() != u"..")
            kept.resize(kept.size() - (hasDrive && kept.size() == 1 ? 0 : 1));
        else if (!isRooted)
            kept.push_back(part);
    }
    std::u16string joined;
    joined.reserve(path.size() + 1);
    for (const std::u16string_view part : kept) {
        if (isRooted || !joined.empty())
            joined += u'/';
        joined += part;
    }
    if (joined.empty())
        joined = isRooted ? u"/" : u".";
    return joined;
}
