// SPDX-License-Identifier: MIT
#include "XlsxText.h"

#include "Utf8.h"

#include <optional>

namespace
{

constexpr qsizetype ESCAPE_SIZE = 7; // "_xHHHH_"

/// Returns the unit that is escaped at `at`; nullopt when there is no escape.
std::optional<QChar> EscapeAt(QStringView text, qsizetype at)
{
    if (text.size() - at < ESCAPE_SIZE || text[at] != u'_' || text[at + 1] != u'x' || text[at + 6] != u'_')
        return std::nullopt;
    ushort unit = 0;
    for (const QChar c : text.sliced(at + 2, 4)) {
        const char16_t digit = c.toLower().unicode();
        if (digit >= u'0' && digit <= u'9')
            unit = ushort(unit << 4 | (digit - u'0'));
        else if (digit >= u'a' && digit <= u'f')
            unit = ushort(unit << 4 | (digit - u'a' + 10));
        else
            return std::nullopt;
    }
    return QChar(unit);
}

bool NeedsEscape(QStringView text, qsizetype at)
{
    const char16_t unit = text[at].unicode();
    return unit == 0 || unit >= 0xFFFE || EscapeAt(text, at);
}

} // namespace

QString DecodeXlsxText(QByteArrayView utf8)
{
    const QString raw = FromUtf8(utf8);
    if (!raw.contains(u'_'))
        return raw;
    QString text;
    text.reserve(raw.size());
    for (qsizetype i = 0; i < raw.size();) {
        const auto escaped = EscapeAt(raw, i);
        text += escaped.value_or(raw[i]);
        i += escaped ? ESCAPE_SIZE : 1;
    }
    return text;
}

QByteArray EncodeXlsxText(QStringView text)
{
    QString escaped;
    qsizetype done = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!NeedsEscape(text, i))
            continue;
        escaped += text.sliced(done, i - done);
        escaped += QStringLiteral("_x%1_").arg(QString::number(text[i].unicode(), 16).toUpper(), 4, QLatin1Char('0'));
        done = i + 1;
    }
    return ToUtf8(done == 0 ? text : QStringView(escaped += text.sliced(done)));
}
