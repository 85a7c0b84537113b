// SPDX-License-Identifier: MIT
#pragma once

#include "RecentFiles.h"

#include <functional>

class CDocManager;
class Environment;
class ProcessTables;
class QWidget;
class UserBoxes;
struct NewProjectChoice;

/// Opens projects for the user: through the dialog, from the recent files, or by a drop.
class ProjectOpener
{
public:
    /// All arguments must outlive this object.
    ProjectOpener(Environment &environment, ProcessTables &processTables, CDocManager &documentManager,
                  UserBoxes &userBoxes);

    /// Called before a project is opened.
    std::function<void()> opening;
    /// Called when the list of recent files has changed.
    std::function<void()> recentChanged;

    /// Opens a project, or brings its window to the front if it is open. If it can't be opened, tells the user and
    /// returns false.
    bool Open(const QString &path);
    /// Lets the user choose a project and opens it. The dialog begins in the folder of the project `active`, a path
    /// that may be empty.
    void Choose(const QString &active);
    /// Lets the user choose what a new project is for, makes it and opens it. It is beside the project `active`, a path
    /// that may be empty, unless the user chooses another folder.
    void Create(const QString &active, QWidget *window);
    void OpenRecent(int index);
    /// Opens the projects among the files, and tells the user which files are not projects.
    void OpenDropped(const QStringList &files);

    [[nodiscard]] const RecentFiles &Recent() const { return recent; }
    /// Adds an opened project at the front of the recent files.
    void Remember(const QString &path);

private:
    [[nodiscard]] QString Make(const NewProjectChoice &choice);

    Environment &env;
    ProcessTables &tables;
    CDocManager &documents;
    UserBoxes &boxes;
    RecentFiles recent;
};
