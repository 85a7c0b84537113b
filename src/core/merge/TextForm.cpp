// SPDX-License-Identifier: MIT
#include "TextForm.h"

#include <QStringDecoder>

#include <cstring>

static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN, "UTF-16 is used as it is in memory");

namespace
{

constexpr QByteArrayView UTF16_MARK("\xFF\xFE", 2);
constexpr QByteArrayView UTF16_OTHER_MARK("\xFE\xFF", 2); // of the other byte order
constexpr QByteArrayView UTF8_MARK("\xEF\xBB\xBF", 3);
constexpr qsizetype UNIT = qsizetype(sizeof(char16_t));

} // namespace

QString TextForm::Decode(QByteArrayView bytes, QString &text)
{
    isUtf16 = bytes.startsWith(UTF16_MARK);
    hasMark = isUtf16 || bytes.startsWith(UTF8_MARK);
    if (isUtf16) {
        if (bytes.size() % UNIT != 0)
            return QStringLiteral("the file is cut short: UTF-16 has an even number of bytes");
        text = QString(bytes.size() / UNIT - 1, Qt::Uninitialized);
        std::memcpy(text.data(), bytes.data() + UNIT, size_t(text.size() * UNIT));
    } else {
        const QByteArrayView content = bytes.sliced(hasMark ? UTF8_MARK.size() : 0);
        if (!content.isValidUtf8())
            return QStringLiteral("the file is neither UTF-16 with a byte order mark (FF FE) nor UTF-8");
        text = QString::fromUtf8(content);
    }
    const qsizetype feed = text.indexOf(u'\n');
    hasCarriageReturn = feed > 0 && text[feed - 1] == u'\r';
    return {};
}

std::optional<QByteArray> TextForm::Encode(QStringView text) const
{
    QByteArray bytes;
    if (isUtf16) {
        bytes.reserve((text.size() + 1) * UNIT);
        bytes.append(UTF16_MARK);
        return bytes.append(QByteArrayView(reinterpret_cast<const char *>(text.utf16()), text.size() * UNIT));
    }
    if (!text.isValidUtf16())
        return std::nullopt;
    return hasMark ? UTF8_MARK.toByteArray() + text.toUtf8() : text.toUtf8();
}

QByteArray ReadableText(QByteArrayView bytes)
{
    QByteArray text;
    if (bytes.startsWith(UTF16_MARK) || bytes.startsWith(UTF16_OTHER_MARK))
        text = QString(QStringDecoder(QStringDecoder::Utf16)(bytes)).toUtf8();
    else
        text = bytes.sliced(bytes.startsWith(UTF8_MARK) ? UTF8_MARK.size() : 0).toByteArray();
    return text.replace("\r\n", "\n");
}
