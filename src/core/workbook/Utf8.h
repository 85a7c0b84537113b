#pragma once

#include <QString>
#include <QStringDecoder>

/// UTF-8 of a text, where a lone surrogate becomes U+FFFD.
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

/// The text that UTF-8 stands for, where a byte order mark in front is a character as any other.
[[nodiscard]] inline QString FromUtf8(QByteArrayView utf8)
{
    if (!utf8.startsWith("\xEF\xBB\xBF"))
        return QString::fromUtf8(utf8);
    return QStringDecoder(QStringConverter::Utf8, QStringConverter::Flag::ConvertInitialBom)(utf8);
}
