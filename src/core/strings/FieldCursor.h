#pragma once

#include <QStringView>

/// Walks the fields of one line from left to right. A tab, a carriage return or a line feed ends a field; nothing is
/// quoted. The line must end in a line feed.
class FieldCursor
{
public:
    explicit FieldCursor(QStringView line) : at(line.utf16()), end(at + line.size()) {}

    [[nodiscard]] bool AtEnd() const { return at == end; }

    /// The next field, without what ends it; empty behind the end of the line.
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
