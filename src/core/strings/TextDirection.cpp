// SPDX-License-Identifier: MIT
#include "TextDirection.h"

#include <QLocale>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

/// The words of a name in lower case, with a blank before, between and after them.
QString WordsOf(const QString &name)
{
    QString words(u' ');
    for (const QChar c : name) {
        if (c.isLetterOrNumber() || c.isMark() || c.isSurrogate())
            words += c.toLower();
        else if (!words.endsWith(u' '))
            words += u' ';
    }
    return words.endsWith(u' ') ? words : words + u' ';
}

/// The English names of languages that run from right to left, in the form of `WordsOf`.
QStringList RightToLeftNames()
{
    // Other names of languages and scripts, some of which QLocale doesn't know.
    QStringList names{u"farsi"_s,  u"dari"_s, u"pushto"_s, u"uighur"_s,  u"dhivehi"_s,   u"maldivian"_s,
                      u"sorani"_s, u"jawi"_s, u"syriac"_s, u"aramaic"_s, u"shahmukhi"_s, u"perso arabic"_s};
    for (int language = QLocale::C + 1; language <= QLocale::LastLanguage; ++language) {
        const QLocale locale(static_cast<QLocale::Language>(language));
        if (locale.language() == language && locale.textDirection() == Qt::RightToLeft)
            names += QLocale::languageToString(locale.language());
    }
    std::transform(names.begin(), names.end(), names.begin(), WordsOf);
    return names;
}

/// Returns whether a text's first letter belongs to a script that runs from right to left.
bool BeginsRightToLeft(const QString &text)
{
    for (const char32_t c : text.toUcs4()) {
        const QChar::Direction direction = QChar::direction(c);
        if (direction == QChar::DirL)
            return false;
        if (direction == QChar::DirR || direction == QChar::DirAL)
            return true;
    }
    return false;
}

} // namespace

Qt::LayoutDirection DirectionOfLanguage(const QString &name)
{
    if (BeginsRightToLeft(name)) // a name in the language itself has the direction of its texts
        return Qt::RightToLeft;
    static const QStringList known = RightToLeftNames();
    const QString words = WordsOf(name);
    const bool isKnown = std::any_of(known.begin(), known.end(), [&](auto &each) { return words.contains(each); });
    return isKnown ? Qt::RightToLeft : Qt::LeftToRight;
}
