// SPDX-License-Identifier: MIT
#include "ProjectOpener.h"

#include "Document.h"
#include "Environment.h"
#include "Paths.h"
#include "UserBoxes.h"
#include "WaitCursor.h"

ProjectOpener::ProjectOpener(Environment &environment, CDocManager &documentManager, UserBoxes &userBoxes)
    : env(environment), documents(documentManager), boxes(userBoxes)
{
    recent.Read(env.settings);
}

bool ProjectOpener::Open(const QString &path)
{
    const WaitCursor cursor;
    opening();
    return documents.OpenDocumentFile(path) != nullptr;
}

void ProjectOpener::Choose(const QString &active)
{
    const QString beside = active.isEmpty() ? recent.Paths().value(0) : active;
    const QString path = boxes.ChooseProject(beside.isEmpty() ? QString() : DirectoryOf(beside));
    if (!path.isEmpty())
        (void)Open(CanonicalPath(path));
}

void ProjectOpener::OpenRecent(int index)
{
    const QString path = recent.Paths().value(index);
    if (path.isEmpty() || Open(path))
        return;
    recent.Remove(path, env.settings);
    recentChanged();
}

void ProjectOpener::OpenDropped(const QStringList &files)
{
    constexpr qsizetype MOST_NAMED = 10;
    QStringList others;
    for (const QString &file : files) {
        if (FileExtension(file).compare(u"vcproj", Qt::CaseInsensitive) == 0)
            (void)Open(CanonicalPath(file));
        else
            others.append(file);
    }
    if (others.size() > MOST_NAMED)
        others = others.first(MOST_NAMED) << QStringLiteral("...");
    if (!others.isEmpty())
        boxes.MessageBox(
            (others.size() == 1
                 ? QStringLiteral("%1 is not a project. Drop the project's .vcproj file here.")
                 : QStringLiteral("These files are not projects. Drop a project's .vcproj file here.\n\n%1"))
                .arg(others.join(u'\n')));
}

void ProjectOpener::Remember(const QString &path)
{
    recent.Add(path, env.settings);
    recentChanged();
}
