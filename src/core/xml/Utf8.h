// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringDecoder>

/// Converts a text to UTF-8. A lone surrogate becomes U+FFFD.
[[nodiscard]] inline QByteArray ToUtf8(QStringView text)
{
    if (text.isValidUtf16())
        return text.toUtf8();
    QString valid = text.toString();
    for (qsizetype i = 0; i < valid.size(); ++i) {
        if (valid[i].isHighSurrogate() && i + 1 < valid.size() && valid[i + 1].isLowSurrogate())
            ++i;
        else if (valid[i].isSurrogate())
            valid[i] = QChar::ReplacementCharacter;
    }
    return valid.toUtf8();
}

/// Converts UTF-8 to a text. A byte order mark at the beginning is an ordinary character.
[[nodiscard]] inline QString FromUtf8(QByteArrayView utf8)
{
    if (!utf8.startsWith("\xEF\xBB\xBF"))
        return QString::fromUtf8(utf8);
    return QStringDecoder(QStringConverter::Utf8, QStringConverter::Flag::ConvertInitialBom)(utf8);
}
