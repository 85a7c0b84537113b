// SPDX-License-Identifier: MIT
#include "TextRules.h"

#include "TextPair.h"

using namespace Qt::StringLiterals;

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
