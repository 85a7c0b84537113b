// SPDX-License-Identifier: MIT
#include "TargetKind.h"

#include <algorithm>

namespace
{

/// Returns whether a text is a word of lower-case ASCII letters, without regard to case.
bool IsWord(std::string_view text, std::string_view word)
{
    return std::equal(text.begin(), text.end(), word.begin(), word.end(),
                      [](char a, char b) { return (a >= 'A' && a <= 'Z' ? char(a - 'A' + 'a') : a) == b; });
}

} // namespace

std::optional<TargetKind> ParseTargetKind(std::string_view text)
{
    if (IsWord(text, "axf"))
        return TargetKind::Axf;
    if (IsWord(text, "dll"))
        return TargetKind::Dll;
    return std::nullopt;
}
