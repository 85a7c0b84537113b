// SPDX-License-Identifier: MIT
#include "StringStats.h"

#include "ResModel.h"

namespace
{

void Count(LanguageStats &language, QStringView text, QStringView first)
{
    ++(text.isEmpty() ? language.missing : language.texts);
    language.sameAsFirst += !text.isEmpty() && text == first;
}

QStringView TextIn(const CStringRes &head, qint32 language)
{
    const CStringRes *cell = head.FindLanguage(language);
    return cell ? cell->Text() : QStringView();
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
        const auto &head = static_cast<const CStringRes &>(*res);
        ++rows;
        QStringView first;
        for (LanguageStats &language : languages) {
            const bool isFirst = &language == &languages.front();
            const QStringView text = TextIn(head, language.number);
            Count(language, text, isFirst ? QStringView() : first);
            if (isFirst)
                first = text;
        }
    }
    return languages;
}
