// SPDX-License-Identifier: MIT
#include "WarningLimit.h"

#include <algorithm>

WarningLimit::Kind *WarningLimit::Count(std::string_view code)
{
    if (!isOn)
        return nullptr;
    auto kind = std::find_if(kinds.begin(), kinds.end(), [code](const Kind &known) { return known.code == code; });
    if (kind == kinds.end())
        kind = kinds.insert(kinds.end(), Kind{code, 0, {}});
    ++kind->count;
    return &*kind;
}
