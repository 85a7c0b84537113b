// SPDX-License-Identifier: MIT
#include "Locale.h"

namespace
{

constexpr struct
{
    const char16_t *code;
    const char16_t *locale;
} CHINESE[] = {{u"zh-Hans", u"zh_CN"}, {u"zh-Hant", u"zh_TW"}};

} // namespace

QString LocaleOfCode(const QString &code)
{
    for (const auto &[known, locale] : CHINESE) {
        if (code == QStringView(known))
            return QStringView(locale).toString();
    }
    return QString(code).replace(u'-', u'_');
}

QString CodeOfLocale(const QString &locale)
{
    const QString name = locale.section(u'.', 0, 0).section(u'@', 0, 0).trimmed().replace(u'-', u'_');
    for (const auto &[code, known] : CHINESE) {
        if (name.compare(QStringView(known), Qt::CaseInsensitive) == 0)
            return QStringView(code).toString();
    }
    return QString(name).replace(u'_', u'-');
}
