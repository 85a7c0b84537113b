#pragma once

#include "CommandHandler.h"
#include "Environment.h"
#include "StandardOutput.h"

/// What every command of morvanite-cli works with: one process's environment, its documents and the command handler,
/// with the standard output in the place of the IDE's pipe.
class Session
{
public:
    /// `debugLog`: where the developer's log goes; empty: nowhere, "-": standard error.
    explicit Session(const QString &debugLog);

    Environment env;
    ProcessTables tables;
    CFrameServices services;
    CDocManager documents;
    StandardOutput report;
    CommandHandler handler;

    /// The exit status of the command that the handler ran last.
    [[nodiscard]] int LastStatus() const;

    /// Opens a project. Null when that fails. The report of the load goes to standard error when it has an error or a
    /// warning, and nowhere otherwise.
    CResDoc *OpenQuietly(const QString &project);

private:
    void OpenDebugLog(const QString &debugLog);
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
