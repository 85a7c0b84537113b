// SPDX-License-Identifier: MIT
#include "TranslationFormats.h"

#include "Locale.h"

namespace
{

constexpr TranslationFormat FORMATS[] = {
    {u"po", ReadPo, WritePo, FitsPo, FitsPoNote, /*isTemplate=*/false, /*hasLocales=*/true},
    {u"pot", ReadPo, WritePo, FitsPo, FitsPoNote, /*isTemplate=*/true, /*hasLocales=*/true},
    {u"xlf", ReadXliff, WriteXliff, FitsXliff, FitsXliff, /*isTemplate=*/false, /*hasLocales=*/false},
    {u"xliff", ReadXliff, WriteXliff, FitsXliff, FitsXliff, /*isTemplate=*/false, /*hasLocales=*/false},
};

} // namespace

std::span<const TranslationFormat> TranslationFormats()
{
    return FORMATS;
}

const TranslationFormat *TranslationFormatOf(const QString &path)
{
    for (const TranslationFormat &format : FORMATS) {
        const QStringView extension(format.extension);
        if (path.size() > extension.size() && path.endsWith(extension, Qt::CaseInsensitive) &&
            path[path.size() - extension.size() - 1] == u'.')
            return &format;
    }
    return nullptr;
}

QString FileNameOf(const QString &code, const TranslationFormat &format)
{
    return (format.hasLocales ? LocaleOfCode(code) : code) + u'.' + QStringView(format.extension).toString();
}
