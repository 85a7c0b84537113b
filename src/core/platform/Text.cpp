// SPDX-License-Identifier: MIT
#include "Text.h"

#include <QStringDecoder>
#include <unicode/ucnv.h>

#include <algorithm>
#include <limits>

namespace
{

// Qt looks every character up in its tables, also those of ASCII, which nearly all names consist of.
char16_t Upper(char16_t c)
{
    return c >= 0x80 ? QChar(c).toUpper().unicode() : c >= u'a' && c <= u'z' ? char16_t(c - u'a' + u'A') : c;
}

char16_t Lower(char16_t c)
{
    return c >= 0x80 ? QChar(c).toLower().unicode() : c >= u'A' && c <= u'Z' ? char16_t(c - u'A' + u'a') : c;
}

} // namespace

bool EqualsNoCase(QStringView a, QStringView b)
{
    return a.size() == b.size() && std::equal(a.utf16(), a.utf16() + a.size(), b.utf16(),
                                              [](char16_t x, char16_t y) { return x == y || Upper(x) == Upper(y); });
}

QString ToUpperSimple(QStringView text)
{
    QString result(text.size(), Qt::Uninitialized);
    std::transform(text.begin(), text.end(), result.begin(), [](QChar c) { return QChar(Upper(c.unicode())); });
    return result;
}

QString ToLowerSimple(QStringView text)
{
    QString result(text.size(), Qt::Uninitialized);
    std::transform(text.begin(), text.end(), result.begin(), [](QChar c) { return QChar(Lower(c.unicode())); });
    return result;
}

int LeadingNumber(QStringView text)
{
    qsizetype at = 0;
    while (at < text.size() && text[at].isSpace())
        ++at;
    const bool negative = at < text.size() && text[at] == u'-';
    if (at < text.size() && (text[at] == u'-' || text[at] == u'+'))
        ++at;
    constexpr qint64 LIMIT = std::numeric_limits<qint32>::max();
    qint64 number = 0;
    for (; at < text.size() && text[at] >= u'0' && text[at] <= u'9'; ++at)
        number = std::min(number * 10 + (text[at].unicode() - u'0'), LIMIT + 1);
    return int(negative ? -number : std::min(number, LIMIT));
}

QByteArray Shown(QStringView text)
{
    return text.first(qMin(text.size(), qsizetype(512))).toUtf8();
}

QString Cut(QStringView text)
{
    constexpr qsizetype MOST = 60;
    return text.size() <= MOST ? text.toString() : text.first(MOST).toString() + QStringLiteral("...");
}

CodePage::CodePage() = default;

CodePage::~CodePage()
{
    if (converter)
        ucnv_close(static_cast<UConverter *>(converter));
}

namespace
{

/// Returns whether each byte of ASCII text, where a character can begin, is converted to the same ASCII character.
bool KeepsAscii(UConverter *converter)
{
    for (char c = '\t'; c < 0x7F; ++c) {
        const bool isText = c >= ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\x1b';
        UErrorCode status = U_ZERO_ERROR;
        UChar wide[4];
        if (isText &&
            (ucnv_toUChars(converter, wide, 4, &c, 1, &status) != 1 || U_FAILURE(status) || wide[0] != UChar(c)))
            return false;
    }
    return true;
}

} // namespace

bool CodePage::Select(const QByteArray &name)
{
    const QByteArray lower = name.trimmed().toLower();
    UConverter *opened = nullptr;
    if (!lower.isEmpty() && lower != "utf-8" && lower != "utf8" && lower != "65001") {
        bool isNumber = false;
        (void)lower.toInt(&isNumber);
        UErrorCode status = U_ZERO_ERROR;
        opened = ucnv_open((isNumber ? "windows-" + lower : lower).constData(), &status);
        if (!opened && isNumber) {
            status = U_ZERO_ERROR;
            opened = ucnv_open(("cp" + lower).constData(), &status);
        }
        if (!opened)
            return false;
        ucnv_setFallback(opened, false);
    }
    if (converter)
        ucnv_close(static_cast<UConverter *>(converter));
    converter = opened;
    keepsAscii = opened && KeepsAscii(opened);
    return true;
}

namespace
{

bool IsPrivateUse(QStringView text)
{
    return std::any_of(text.begin(), text.end(),
                       [](QChar c) { return c.unicode() >= 0xE000 && c.unicode() <= 0xF8FF; });
}

/// Makes the converter stop at what it can't convert, for the duration of one conversion.
struct StoppingConverter
{
    explicit StoppingConverter(void *opened) : converter(static_cast<UConverter *>(opened))
    {
        UErrorCode status = U_ZERO_ERROR;
        ucnv_setFromUCallBack(converter, UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
        ucnv_setToUCallBack(converter, UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    }
    UConverter *converter;
};

} // namespace

NarrowText CodePage::FromWide(QStringView text) const
{
    if (!converter)
        return text.toUtf8();
    const StoppingConverter stopping(converter);
    NarrowText result;
    for (qsizetype i = 0; i < text.size();) {
        if (keepsAscii && text.at(i).unicode() < 0x80) {
            result.append(char(text.at(i++).unicode()));
            continue;
        }
        const bool isPair = text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        const qsizetype units = isPair ? 2 : 1;
        char bytes[16];
        UErrorCode status = U_ZERO_ERROR;
        const int32_t size =
            IsPrivateUse(text.sliced(i, units))
                ? 0
                : ucnv_fromUChars(stopping.converter, bytes, sizeof bytes, text.utf16() + i, int32_t(units), &status);
        if (U_FAILURE(status) || size <= 0 || size > int32_t(sizeof bytes))
            result.append('?');
        else
            result.append(bytes, size);
        i += units;
    }
    return result;
}

QString CodePage::FirstMissing(const QString &text) const
{
    if (ToWide(FromWide(text)) == text)
        return {};
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype units = text[at].isHighSurrogate() && at + 1 < text.size() ? 2 : 1;
        const QString character = text.sliced(at, units);
        if (ToWide(FromWide(character)) != character)
            return character;
        at += units;
    }
    return {};
}

QString CodePage::ToWide(QByteArrayView text) const
{
    if (!converter)
        return QString::fromUtf8(text);
    const StoppingConverter stopping(converter);
    ucnv_reset(stopping.converter);
    QString result;
    const char *source = text.data();
    const char *const end = text.data() + text.size();
    while (source < end) {
        const char *const start = source;
        while (keepsAscii && source < end && quint8(*source) < 0x80)
            ++source;
        if (source != start) {
            result += QLatin1StringView(start, source - start);
            continue;
        }
        UErrorCode status = U_ZERO_ERROR;
        const UChar32 c = ucnv_getNextUChar(stopping.converter, &source, end, &status);
        const char32_t valid = U_FAILURE(status) || (c >= 0xE000 && c <= 0xF8FF) ? 0xFFFDu : char32_t(c);
        result += QString::fromUcs4(&valid, 1);
        if (source == start)
            ++source;
        if (U_FAILURE(status))
            ucnv_reset(stopping.converter);
    }
    return result;
}
