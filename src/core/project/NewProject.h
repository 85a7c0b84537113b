// SPDX-License-Identifier: MIT
#pragma once

#include "LanguageTable.h"
#include "NewFiles.h"
#include "ScreenSize.h"

#include <optional>

class Environment;
class ProcessTables;

/// The files for git that a new project gets.
enum class GitForm
{
    Safe, ///< git never changes the bytes of the lists
    Text, ///< git stores the string file as UTF-8 text
    None, ///< no files for git
};

/// What a new project is for.
struct NewProjectChoice
{
    QString folder;                       ///< absolute path; need not exist
    QString name;                         ///< of the project, and of its ".vcproj" file
    std::vector<ScreenSize> resolutions;  ///< the first is that of the configuration
    std::vector<KnownLanguage> languages; ///< the first is the source language
    GitForm git = GitForm::Safe;
    bool hasBuild = false; ///< with a build by CMake and a small application, which shows a text of the project
};

/// The ID of the text that the small application of a new project shows.
inline constexpr char TITLE_ID[] = "ID_STRING_TITLE";

/// Returns the path of the ".vcproj" file.
[[nodiscard]] QString PathOfNewProject(const NewProjectChoice &choice);

/// Explains why a project can't have that name; empty when it can. With a build, the name is also that of a target.
[[nodiscard]] QString WhyNotProjectName(const QString &name, bool hasBuild);

/// Plans the files of a new project, as a save of it would write them. Changes nothing on the disk, except that it sets
/// the current folder. If there can be no such project, sets `problem` to the reason and returns nullopt.
[[nodiscard]] std::optional<NewFiles> PlanNewProject(Environment &process, ProcessTables &tables,
                                                     const NewProjectChoice &choice, QString &problem);
