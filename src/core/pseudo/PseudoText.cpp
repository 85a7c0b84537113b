// SPDX-License-Identifier: MIT
#include "PseudoText.h"

#include "Placeholders.h"

namespace
{

constexpr QChar OVERRIDE(0x202E); // what follows is shown from right to left
constexpr QChar POP(0x202C);

QChar WithAccent(QChar c)
{
    constexpr QStringView SMALL = u"åƀçðéƒĝĥîĵķļɱñöþǫŕšţûṽŵẋýž";
    constexpr QStringView CAPITAL = u"ÅƁÇÐÉƑĜĤÎĴĶĻṀÑÖÞǪŔŠŢÛṼŴẊÝŽ";
    static_assert(SMALL.size() == 26 && CAPITAL.size() == 26);
    if (c >= u'a' && c <= u'z')
        return SMALL[c.unicode() - u'a'];
    return c >= u'A' && c <= u'Z' ? CAPITAL[c.unicode() - u'A'] : c;
}

} // namespace

QString PseudoText(QStringView source, quint32 placeholderKinds, bool isRightToLeft)
{
    constexpr qsizetype PERCENT = 35;
    if (source.isEmpty())
        return {};
    QString text(u'⟦');
    qsizetype characters = 0;
    bool isInWord = false;
    const auto setInWord = [&](bool isWord) {
        if (isRightToLeft && isWord != isInWord)
            text += isWord ? OVERRIDE : POP;
        isInWord = isWord;
    };
    for (qsizetype at = 0; at < source.size();) {
        const qsizetype markup = MarkupSizeAt(source, at, placeholderKinds);
        const QChar c = source[at];
        setInWord(markup == 0 && !c.isSpace());
        if (markup > 0) {
            text += source.sliced(at, markup);
        } else {
            text += WithAccent(c);
            characters += c.isLowSurrogate() ? 0 : 1;
        }
        at += qMax<qsizetype>(markup, 1);
    }
    setInWord(false);
    return text + QString((characters * PERCENT + 99) / 100, u'~') + u'⟧';
}
