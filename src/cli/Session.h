#pragma once

#include "Environment.h"
#include "IdeCommandHandler.h"
#include "ProjectLock.h"
#include "StandardOutput.h"

/// What every command of morvanite-cli works with: one process's environment, its documents and the command handler,
/// with the standard output in the place of the IDE's pipe.
class Session
{
public:
    /// `debugLogName`: where the developer's log goes; empty: nowhere, "-": standard error. `configFolder` takes the
    /// place of the user's configuration folder unless it is empty.
    Session(const QString &debugLogName, const QString &configFolder);

    Environment env;
    ProcessTables tables;
    CFrameServices services;
    CDocManager documents;
    StandardOutput report;
    IdeCommandHandler handler;
    /// The file of the developer's log; not open when that goes nowhere or to standard error.
    FileHandle debugLog;

    /// The exit status of the command that the handler ran last.
    [[nodiscard]] int LastStatus() const;

    /// The exit status of a command that would end with `status`: EXIT_FAILED when an operation on the project has told
    /// of work that was not done (Environment::ExplainFailure). To be called behind each operation, since the next one
    /// counts afresh; `OpenQuietly` does so itself.
    [[nodiscard]] int StatusAfter(int status);

    /// Waits for other processes that save the project, and keeps them from it until the program ends: before the
    /// opening of a project that the command saves, so that it misses nothing that others write. False when that can't
    /// be, which has been explained.
    [[nodiscard]] bool LockProject(const QString &project);

    /// Opens a project. Null when that fails. The report of the load goes to standard error when it has an error or a
    /// warning, and nowhere otherwise.
    CResDoc *OpenQuietly(const QString &project);

private:
    void OpenDebugLog(const QString &name);

    ProjectLock lock;
    bool hasFailures = false; // of any operation so far
};

/// Says on standard error what is wrong: "morvanite-cli: " and the text.
void Complain(const QString &text);

/// The absolute path of what a user typed. Ends the program with a message when the current folder's name isn't UTF-8.
[[nodiscard]] QString AbsolutePath(const std::string &typed);

/// Exit statuses.
enum ExitStatus : int
{
    EXIT_FINE = 0,
    EXIT_FAILED = 1,
    EXIT_WRONG_USE = 2,
};
