// SPDX-License-Identifier: MIT
#include "ListLines.h"

#include <algorithm>

bool ListLines::Next()
{
    while (at < bytes.size()) {
        number += isLineEnded;
        const qsizetype limit = std::min(bytes.size(), at + LONGEST);
        const qsizetype feed = std::find(bytes.cbegin() + at, bytes.cbegin() + limit, '\n') - bytes.cbegin();
        const qsizetype end = std::min(feed + 1, limit);
        const auto endsText = [](char c) { return c == '\r' || c == '\n' || c == '\0'; };
        const qsizetype textEnd = std::find_if(bytes.cbegin() + at, bytes.cbegin() + end, endsText) - bytes.cbegin();
        text = bytes.mid(at, textEnd - at);
        isLineEnded = feed < limit;
        isCut = !isLineEnded && end < bytes.size() && textEnd == end && bytes[end] != '\r' && bytes[end] != '\n';
        at = end;
        if (!text.isEmpty())
            return true; // an empty line would name the folder itself
    }
    return false;
}
