// SPDX-License-Identifier: MIT
#include "TextRules.h"

#include "TextPair.h"

using namespace Qt::StringLiterals;

QString OccursDifferently(QStringView what, int here, int inSource, const TextPair &pair)
{
    const auto times = [](int count) { return count == 1 ? u"1 time"_s : u"%1 times"_s.arg(count); };
    return u"%1 occurs %2 here and %3 in %4"_s.arg(what, times(here), times(inSource), pair.sourceLanguage.name);
}

QString TranslationMissing(const TextPair &pair, const TextContext & /*context*/)
{
    if (pair.IsSource() || pair.source.isEmpty() || !pair.text.isEmpty())
        return {};
    return u"the translation is missing"_s;
}

QString SourceMissing(const TextPair &pair, const TextContext & /*context*/)
{
    if (pair.IsSource() || pair.text.isEmpty() || !pair.source.isEmpty())
        return {};
    return u"%1 has no text, but this language has one"_s.arg(pair.sourceLanguage.name);
}
