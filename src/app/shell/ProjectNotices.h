#pragma once

#include <QStringList>

#include <map>

class CChildFrame;
class CResDoc;
class ProjectArea;

/// Brings notices to the windows of projects. One for a project that is being loaded waits for the window.
class ProjectNotices
{
public:
    /// The area must live longer.
    explicit ProjectNotices(const ProjectArea &projectArea) : area(projectArea) {}

    void Add(const CResDoc &document, const QString &text);
    /// A document is about to be loaded: what waits for another's window, which didn't load, goes.
    void DropWaiting() { waiting.clear(); }
    /// Gives a new window the notices that wait for it.
    void Deliver(CChildFrame &child);
    /// The texts of all windows that the user hasn't dismissed.
    [[nodiscard]] QStringList Unread() const;

private:
    const ProjectArea &area;
    std::map<const CResDoc *, QStringList> waiting;
};
