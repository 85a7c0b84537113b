// SPDX-License-Identifier: MIT
#include "ProjectNotices.h"

#include "ProjectArea.h"

void ProjectNotices::Add(const CResDoc &document, const QString &text)
{
    if (CChildFrame *child = area.ChildOf(document))
        return child->Notice().Add(text);
    waiting[&document].append(text);
}

void ProjectNotices::Deliver(CChildFrame &child)
{
    for (const QString &text : waiting[&child.Document()])
        child.Notice().Add(text);
    waiting.clear();
}

QStringList ProjectNotices::Unread() const
{
    QStringList unread;
    for (CChildFrame *child : area.Children())
        unread += child->Notice().Texts().Unread();
    return unread;
}
