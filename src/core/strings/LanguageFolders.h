// SPDX-License-Identifier: MIT
#pragma once

#include "ResModel.h"

#include <unordered_map>

/// Finds the folders of languages below the Strings folder by number, without walking the tree, and makes missing ones.
/// Main thread only. Nothing else may remove folders there while this object exists.
class LanguageFolders
{
public:
    explicit LanguageFolders(CResModel &document) : model(document) {}

    /// Returns the folder of that language; StringFileFormat::DESCRIPTION is the Description folder. If it doesn't
    /// exist, makes it with the title `title`, and the Strings folder too if that doesn't exist.
    CResFolder &Ensure(qint32 language, const QString &title);
    /// Returns whether any language has a string now.
    [[nodiscard]] bool HaveStrings();

private:
    /// Looks up the folders, at the first call only.
    void LookUp();

    CResModel &model;
    CResFolder *strings = nullptr; // null until they have been looked up
    std::unordered_map<qint32, CResFolder *> byNumber;
};
