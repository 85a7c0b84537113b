// SPDX-License-Identifier: MIT
#pragma once

#include "Environment.h"
#include "ErrorOutput.h"
#include "ExitStatus.h"
#include "IdeCommandHandler.h"
#include "ProjectLock.h"
#include "StandardOutput.h"

/// The objects that every command of morvanite-cli uses: the environment of the process, its documents and the command
/// handler, with the standard output in place of the IDE's pipe.
class Session
{
public:
    /// `debugLogName` is the file of the developer's log; empty: none, "-": standard error. `configFolder` replaces the
    /// user's configuration folder unless it is empty. With `verbose`, standard error has the developer's log too,
    /// the files of the program that are used, and the report of each load.
    Session(const QString &debugLogName, const QString &configFolder, bool verbose = false);

    Environment env;
    ProcessTables tables;
    CFrameServices services;
    CDocManager documents;
    StandardOutput report;
    IdeCommandHandler handler;
    /// The file of the developer's log; not open if there is none or it goes to standard error.
    FileHandle debugLog;

    /// The exit status of the last command of the handler.
    [[nodiscard]] int LastStatus() const;

    /// The exit status of a command that would end with `status`: EXIT_FAILED if an operation on the project has
    /// reported work that wasn't done (Environment::ExplainFailure). Must be called after each operation, since the
    /// next one resets the count; `OpenQuietly` calls it itself.
    [[nodiscard]] int StatusAfter(int status);

    /// Waits for other processes that save the project, and prevents them from saving until the program ends. Called
    /// before a project is opened that the command saves, so that the command sees everything that others have written.
    /// Returns false, and explains why, if that isn't possible.
    [[nodiscard]] bool LockProject(const QString &project);

    /// Opens a project. Returns null if that fails. The report of the load goes to standard error if it has an error or
    /// a warning, or the user wants to see each step; otherwise it is discarded.
    CResDoc *OpenQuietly(const QString &project);

private:
    void OpenDebugLog(const QString &name);
    void TellFilesOfProgram() const;

    bool isVerbose;
    ProjectLock lock;
    bool hasFailures = false; // true if any operation so far had a failure
};

/// The same as AbsoluteTypedPath.
[[nodiscard]] QString AbsolutePath(const std::string &typed);
