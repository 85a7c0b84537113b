// SPDX-License-Identifier: MIT
#include "TextFeatures.h"
#include "TextPair.h"
#include "TextRules.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

qsizetype BlanksBefore(QStringView text)
{
    return std::find_if_not(text.begin(), text.end(), [](QChar c) { return c.isSpace(); }) - text.begin();
}

qsizetype BlanksAfter(QStringView text)
{
    qsizetype size = text.size();
    while (size > 0 && text[size - 1].isSpace())
        --size;
    return text.size() - size;
}

/// Returns whether a character is punctuation of Chinese and Japanese, whose glyph includes the blank, such as "：".
bool HasOwnBlank(QChar c)
{
    return (c >= u'\u3000' && c <= u'\u303F') || (c >= u'\uFF01' && c <= u'\uFF65' && !c.isLetterOrNumber());
}

} // namespace

QString BlankEdge(const TextPair &pair, const TextContext & /*context*/)
{
    if (!pair.IsTranslation())
        return {};
    struct Edge
    {
        qsizetype expected, present;
        bool isReplaced;
        QStringView word;
    };
    const Edge edges[] = {
        {BlanksBefore(pair.source), BlanksBefore(pair.text), HasOwnBlank(pair.text.front()), u"beginning"},
        {BlanksAfter(pair.source), BlanksAfter(pair.text), HasOwnBlank(pair.text.back()), u"end"},
    };
    for (const Edge &edge : edges) {
        if (edge.expected != edge.present && !(edge.present == 0 && edge.isReplaced)) {
            return u"blanks at the %1: %2 here, %3 in %4"_s.arg(
                edge.word, QString::number(edge.present), QString::number(edge.expected), pair.sourceLanguage.name);
        }
    }
    return {};
}

QString BlankOnly(const TextPair &pair, const TextContext & /*context*/)
{
    if (!(pair.features & IS_BLANK))
        return {};
    if (!pair.IsSource() && (pair.sourceFeatures & IS_BLANK))
        return {}; // the finding about the source text is enough
    return u"the text has only blanks"_s;
}

QString DoubleBlank(const TextPair &pair, const TextContext & /*context*/)
{
    if (!(pair.features & HAS_BLANK_PAIR) || (!pair.IsSource() && (pair.sourceFeatures & HAS_BLANK_PAIR)))
        return {}; // reported for the source text
    const QStringView inner = pair.text.trimmed();
    for (qsizetype at = inner.indexOf(u"  "); at >= 0; at = inner.indexOf(u"  ", at + 1)) {
        const QStringView before = inner.first(at);
        const bool isIndented = before.endsWith(u"\\n") || before.endsWith(u"\\t") || before.endsWith(u' ');
        if (!isIndented)
            return u"two blanks one after the other"_s;
    }
    return {};
}
