// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <csignal>
#include <sys/types.h>

/// Cleans up one thing when SIGINT, SIGTERM or SIGHUP ends the program: removes a temporary file or folder, or ends a
/// child process. The thing is registered as long as this object exists. Main thread only.
///
///     SignalCleanup::Install();                       // once, at the start of the program
///     SignalCleanup file;
///     {
///         const SignalHold hold;                      // no signal between the two lines
///         descriptor = open(path, O_CREAT | O_EXCL...);
///         file = SignalCleanup::OfFile(path);
///     }
///
/// Without `Install` the objects do nothing, so that a program can handle the signals in its own way.
class SignalCleanup
{
public:
    /// Installs the handlers. Each of these signals then first ends the registered children (SIGTERM, and SIGKILL for a
    /// child that still exists after a second), then removes the registered files and folders, and then ends the
    /// process with the signal's own status. A signal that was ignored when the process started, as by nohup, stays
    /// ignored. A forked process that doesn't call this again removes and ends nothing.
    static void Install();

    /// Registers nothing.
    SignalCleanup() = default;
    /// Registers a file, which is removed. A relative path is relative to the folder that is current now.
    [[nodiscard]] static SignalCleanup OfFile(const QByteArray &path);
    /// Registers a folder, which is removed with the files in it. If it contains folders, these and the folder itself
    /// stay.
    [[nodiscard]] static SignalCleanup OfFolder(const QByteArray &path);
    /// Registers a child process, which is ended as EndChild does. Call Release before the call that takes the child's
    /// status (waitpid): after that another process may get its number. `waitid` with WNOWAIT waits without taking the
    /// status.
    [[nodiscard]] static SignalCleanup OfChild(pid_t child);

    /// Sends a signal to a child process, and to its process group if it leads one.
    static void EndChild(pid_t child, int signal);

    ~SignalCleanup() { Release(); }
    SignalCleanup(SignalCleanup &&other) noexcept;
    SignalCleanup &operator=(SignalCleanup &&other) noexcept;

    /// Unregisters it. Call this when the file has its final name or no longer exists, or when the child has ended.
    void Release();

    struct Entry;

private:
    explicit SignalCleanup(Entry *registered);

    Entry *entry = nullptr;
};

/// Blocks SIGINT, SIGTERM and SIGHUP in the calling thread while it exists. For steps that must not be interrupted,
/// such as the renames of a save.
///
/// A thread that is started meanwhile never gets these signals. Start each thread so: the system gives a signal to any
/// thread that doesn't block it, and the handler would run there even while the main thread holds the signals.
class SignalHold
{
public:
    SignalHold();
    ~SignalHold();
    SignalHold(const SignalHold &) = delete;
    SignalHold &operator=(const SignalHold &) = delete;

private:
    sigset_t before;
};
