// SPDX-License-Identifier: MIT
#include "LanguageChoice.h"

#include "ResModel.h"
#include "StringFileFormat.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

/// Returns whether the user may have meant a language: its name contains the text, or begins with the same letters.
bool IsSimilar(const QString &name, const QString &text)
{
    constexpr qsizetype START = 3;
    return text.size() >= START && (name.contains(text, Qt::CaseInsensitive) ||
                                    name.startsWith(QStringView(text).first(START), Qt::CaseInsensitive));
}

} // namespace

const KnownLanguage *FindLanguage(const std::vector<KnownLanguage> &languages, QStringView text)
{
    const auto found = std::find_if(languages.begin(), languages.end(), [&](const KnownLanguage &language) {
        return text == QString::number(language.number) || text.compare(language.name, Qt::CaseInsensitive) == 0 ||
               (!language.code.isEmpty() && text.compare(language.code, Qt::CaseInsensitive) == 0);
    });
    return found == languages.end() ? nullptr : &*found;
}

QString WhyLanguageUnknown(const std::vector<KnownLanguage> &languages, const QString &text)
{
    if (languages.empty())
        return u"the file tuvik.ini beside the program has no languages, or doesn't exist; install it again"_s;
    QStringList similar;
    for (const KnownLanguage &language : languages) {
        if (IsSimilar(language.name, text))
            similar.append(u"\"%1\""_s.arg(language.name));
    }
    const QString known = u"the file tuvik.ini beside the program has no such language; write a name, a number or a "
                          u"code from it"_s;
    return similar.isEmpty() ? known + u", such as German, 8 or de"_s : known + u", such as "_s + similar.join(u", "_s);
}

std::vector<KnownLanguage> ProjectLanguages(const CResModel &model)
{
    const std::vector<KnownLanguage> known = KnownLanguages(model.env);
    std::vector<KnownLanguage> languages;
    const CResFolder *strings = model.root.FindFolder(KIND_STRINGS, 2);
    if (!strings)
        return languages;
    for (const auto &folder : strings->subfolders) {
        if (folder->index == StringFileFormat::DESCRIPTION)
            continue;
        const KnownLanguage *const same = FindLanguage(known, QString::number(folder->index));
        languages.push_back({folder->title, folder->index, same ? same->code : QString()});
    }
    return languages;
}
