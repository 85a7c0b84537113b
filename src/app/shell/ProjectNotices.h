// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <map>

class CChildFrame;
class CResDoc;
class ProjectArea;

/// Passes notices to the windows of projects. A notice for a project that is being loaded waits for its window.
class ProjectNotices
{
public:
    /// The area must outlive this object.
    explicit ProjectNotices(const ProjectArea &projectArea) : area(projectArea) {}

    void Add(const CResDoc &document, const QString &text);
    /// Must be called before a document is loaded. Drops notices that wait for the window of an earlier document, which
    /// failed to load.
    void DropWaiting() { waiting.clear(); }
    /// Gives a new window the notices that wait for it.
    void Deliver(CChildFrame &child);
    /// The texts in all windows that the user hasn't dismissed yet.
    [[nodiscard]] QStringList Unread() const;

private:
    const ProjectArea &area;
    std::map<const CResDoc *, QStringList> waiting;
};
