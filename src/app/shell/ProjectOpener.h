#pragma once

#include "RecentFiles.h"

#include <functional>

class CDocManager;
class Environment;
class UserBoxes;

/// The ways in which the user opens a project: by the dialog, as a recent file and by a drop.
class ProjectOpener
{
public:
    /// All three must live longer.
    ProjectOpener(Environment &environment, CDocManager &documentManager, UserBoxes &userBoxes);

    /// Told before a project is opened.
    std::function<void()> opening;
    /// Told when the list of recent files has changed.
    std::function<void()> recentChanged;

    /// Opens a project, or brings the window of an open one to the front. False when it doesn't open, which the user
    /// has been told.
    bool Open(const QString &path);
    /// Has the user choose one. `active` is the path of the project that the dialog begins beside; it may be empty.
    void Choose(const QString &active);
    void OpenRecent(int index);
    /// Opens the projects among the files, and says of the others that they are none.
    void OpenDropped(const QStringList &files);

    [[nodiscard]] const RecentFiles &Recent() const { return recent; }
    /// Puts a project that has been opened in front of the recent files.
    void Remember(const QString &path);

private:
    Environment &env;
    CDocManager &documents;
    UserBoxes &boxes;
    RecentFiles recent;
};
