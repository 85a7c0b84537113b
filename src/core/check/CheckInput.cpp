// SPDX-License-Identifier: MIT
#include "CheckInput.h"

#include "CResDoc.h"

#include <algorithm>

bool ChecksScreen(const CheckInput &input, qint32 resolution)
{
    if (input.screens.empty() || resolution < 0)
        return true;
    const CResoEntry &entry = input.document.tables.resolutions.At(resolution);
    const ScreenSize size{entry.width, entry.height};
    return std::find(input.screens.begin(), input.screens.end(), size) != input.screens.end();
}
