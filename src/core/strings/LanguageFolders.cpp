// SPDX-License-Identifier: MIT
#include "LanguageFolders.h"

#include <algorithm>

void LanguageFolders::LookUp()
{
    if (strings)
        return;
    strings = model.root.FindFolder(KIND_STRINGS, 2);
    if (!strings) {
        auto made = model.CreateFolder(KIND_STRINGS, -1);
        made->title = QStringLiteral("Strings");
        strings = made.get();
        model.root.AddFolder(std::move(made));
    }
    for (const auto &folder : strings->subfolders) {
        if (folder->kind == KIND_LANGUAGE)
            byNumber.try_emplace(folder->index, folder.get());
    }
}

bool LanguageFolders::HaveStrings()
{
    LookUp();
    return std::any_of(strings->subfolders.begin(), strings->subfolders.end(),
                       [](const auto &folder) { return !folder->resources.IsEmpty(); });
}

CResFolder &LanguageFolders::Ensure(qint32 language, const QString &title)
{
    LookUp();
    CResFolder *&folder = byNumber[language];
    if (!folder) {
        auto made = model.CreateFolder(KIND_LANGUAGE, language);
        made->title = title;
        folder = made.get();
        strings->AddFolder(std::move(made));
    }
    return *folder;
}
