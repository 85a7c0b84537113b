// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

/// Reads the fields of one line from left to right. A tab, a carriage return or a line feed ends a field; quotes have
/// no meaning. The line must end with a line feed.
class FieldCursor
{
public:
    explicit FieldCursor(QStringView line) : at(line.utf16()), end(at + line.size()) {}

    [[nodiscard]] bool AtEnd() const { return at == end; }

    /// Returns the next field, without the character that ends it; empty after the end of the line.
    [[nodiscard]] QStringView Next()
    {
        if (at == end)
            return {};
        const char16_t *const start = at;
        while (*at > u'\r' || (*at != u'\t' && *at != u'\r' && *at != u'\n'))
            ++at;
        return QStringView(start, at++ - start);
    }

private:
    const char16_t *at;
    const char16_t *end;
};
