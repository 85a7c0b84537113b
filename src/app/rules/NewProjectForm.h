// SPDX-License-Identifier: MIT
#pragma once

#include "CResoTable.h"
#include "NewProject.h"

/// The user's choices for a new project, before it is made.
class NewProjectForm
{
public:
    /// The project's folder is in `parentFolder`, with the project's name, until the user chooses another one.
    NewProjectForm(const CResoTable &resolutions, std::vector<KnownLanguage> knownLanguages, QString parentFolder);

    [[nodiscard]] const std::vector<ScreenSize> &Screens() const { return screens; }
    [[nodiscard]] const std::vector<KnownLanguage> &Languages() const { return languages; }
    [[nodiscard]] const QString &Folder() const { return folder; }

    void SetName(const QString &text);
    void SetFolder(const QString &text);
    // The first screen and the first language that are checked have a meaning (NewProjectChoice). If that is unchecked,
    // the one that was checked next is the first.
    void CheckScreen(size_t index, bool isChecked) { Check(checkedScreens, index, isChecked); }
    void CheckLanguage(size_t index, bool isChecked) { Check(checkedLanguages, index, isChecked); }
    void SetGit(GitForm form) { git = form; }
    void SetBuild(bool isWanted) { hasBuild = isWanted; }

    /// Explains what is missing or wrong; empty if the project can be made.
    [[nodiscard]] QString Problem() const;
    /// Says what the first screen and the first language mean, and warns of another project in the same folder.
    [[nodiscard]] QString Summary() const;
    [[nodiscard]] NewProjectChoice Choice() const;

private:
    static void Check(std::vector<size_t> &checked, size_t index, bool isChecked);

    std::vector<ScreenSize> screens;
    std::vector<KnownLanguage> languages;
    QString parent;
    QString name;
    QString folder;
    bool isOwnFolder = false; // the user has chosen it
    std::vector<size_t> checkedScreens;
    std::vector<size_t> checkedLanguages;
    GitForm git = GitForm::Safe;
    bool hasBuild = false;
};
