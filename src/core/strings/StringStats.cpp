// SPDX-License-Identifier: MIT
#include "StringStats.h"

#include "ResModel.h"

namespace
{

void Count(LanguageStats &language, const QString &text, const QString &first)
{
    ++(text.isEmpty() ? language.missing : language.texts);
    language.sameAsFirst += !text.isEmpty() && text == first;
}

QString TextIn(CStringRes &head, qint32 language)
{
    const CStringRes *cell = head.FindLanguage(language);
    return cell ? cell->text : QString();
}

} // namespace

std::vector<LanguageStats> StringStats(const CResModel &document, int &rows)
{
    std::vector<LanguageStats> languages;
    rows = 0;
    const CResFolder *strings = document.root.FindFolder(KIND_STRINGS, 2);
    if (!strings || strings->subfolders.empty())
        return languages;
    for (size_t n = 1; n < strings->subfolders.size(); ++n)
        languages.push_back({strings->subfolders[n]->index, strings->subfolders[n]->title});
    for (CBaseRes *res : strings->subfolders.front()->resources) {
        auto &head = static_cast<CStringRes &>(*res);
        ++rows;
        QString first;
        for (LanguageStats &language : languages) {
            const bool isFirst = &language == &languages.front();
            const QString text = TextIn(head, language.number);
            Count(language, text, isFirst ? QString() : first);
            if (isFirst)
                first = text;
        }
    }
    return languages;
}
