// SPDX-License-Identifier: MIT
#pragma once

#include "Session.h"

/// A change of a project by a command.
///
///     ProjectEdit edit(session, AbsolutePath(project), dryRun);
///     CResDoc *document = edit.Open();
///     ... change it ...
///     return edit.Save();
class ProjectEdit
{
public:
    /// With `isDryRun` nothing is written.
    ProjectEdit(Session &commandSession, QString projectPath, bool isDryRun)
        : session(commandSession), path(std::move(projectPath)), dryRun(isDryRun)
    {
    }

    /// Locks and opens the project. Returns null, with a message, if that fails, or if the project isn't complete: a
    /// save would lose what is missing.
    [[nodiscard]] CResDoc *Open();
    /// Saves the project as `save` does. Returns the exit status; if it isn't 0, there was a message.
    [[nodiscard]] int Save();

private:
    Session &session;
    QString path;
    bool dryRun;
    CResDoc *document = nullptr;
};
