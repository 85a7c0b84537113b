#pragma once

#include "ResModel.h"

#include <unordered_map>

/// The folders of languages below the Strings folder, found by number without a walk, and made where they are missing.
/// Main thread only; nobody else may remove folders there meanwhile.
class LanguageFolders
{
public:
    explicit LanguageFolders(CResModel &document) : model(document) {}

    /// The folder of that language; StringFileFormat::DESCRIPTION gives the Description folder. Makes it under `title`,
    /// and the Strings folder too, when it isn't there.
    CResFolder &Ensure(qint32 language, const QString &title);
    /// Says whether any language has a string now.
    [[nodiscard]] bool HaveStrings();

private:
    /// Looks the folders up once.
    void LookUp();

    CResModel &model;
    CResFolder *strings = nullptr; // null until they have been looked up
    std::unordered_map<qint32, CResFolder *> byNumber;
};
