// SPDX-License-Identifier: MIT
#include "ProjectOpener.h"

#include "Document.h"
#include "Environment.h"
#include "NewProjectDialog.h"
#include "Paths.h"
#include "ProcessTables.h"
#include "UserBoxes.h"
#include "WaitCursor.h"

#include <QDir>

ProjectOpener::ProjectOpener(Environment &environment, ProcessTables &processTables, CDocManager &documentManager,
                             UserBoxes &userBoxes)
    : env(environment), tables(processTables), documents(documentManager), boxes(userBoxes)
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

void ProjectOpener::Create(const QString &active, QWidget *window)
{
    env.RefreshSettings();
    tables.LoadOnce(env);
    const QString beside = active.isEmpty() ? recent.Paths().value(0) : active;
    NewProjectForm form(tables.resolutions, KnownLanguages(env),
                        beside.isEmpty() ? QDir::homePath() : DirectoryOf(DirectoryOf(beside)));
    NewProjectDialog dialog(
        form, [this](const NewProjectChoice &choice) { return Make(choice); }, window);
    if (boxes.RunDialog(dialog))
        (void)Open(PathOfNewProject(form.Choice()));
}

/// Makes the files of a new project. Returns why that failed. Tells the user which files existed already.
QString ProjectOpener::Make(const NewProjectChoice &choice)
{
    QString problem;
    std::optional<NewFiles> files = PlanNewProject(env, tables, choice, problem);
    if (!files)
        return problem;
    const QStringList existing = files->Existing();
    problem = files->Make();
    if (problem.isEmpty() && !existing.isEmpty())
        boxes.ShowMessage(
            QStringLiteral("These files existed already and were not changed:\n\n%1").arg(existing.join(u'\n')));
    return problem;
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
