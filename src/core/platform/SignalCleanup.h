#pragma once

#include <QByteArray>

#include <csignal>
#include <sys/types.h>

/// One thing that must not outlive the program when SIGINT or SIGTERM ends it: a temporary file or folder, which is
/// removed, or a child process, which is ended. It is registered as long as this object lives. Main thread only.
///
///     SignalCleanup::Install();                       // once, where the program starts
///     SignalCleanup file;
///     {
///         const SignalHold hold;                      // no signal between the two lines
///         descriptor = open(path, O_CREAT | O_EXCL...);
///         file = SignalCleanup::OfFile(path);
///     }
///
/// Without `Install` the objects do nothing: a program may have its own way of ending.
class SignalCleanup
{
public:
    /// From now on SIGINT and SIGTERM first end the registered children (SIGTERM; SIGKILL for one that is still there
    /// after a second), then remove the registered files, and then end the process with the signal's own status. A
    /// signal that the process was started to ignore stays ignored. In a forked process that didn't call this again
    /// nothing is removed or ended.
    static void Install();

    /// Nothing is registered.
    SignalCleanup() = default;
    /// A file that is removed. A relative path counts from the current folder of now.
    [[nodiscard]] static SignalCleanup OfFile(const QByteArray &path);
    /// A folder that is removed with the files in it. Folders in it stay, and so does the folder then.
    [[nodiscard]] static SignalCleanup OfFolder(const QByteArray &path);
    /// A child that is ended. Release this before the call that takes the child's status away (waitpid): afterwards
    /// another process may have its number. `waitid` with WNOWAIT waits without taking it.
    [[nodiscard]] static SignalCleanup OfChild(pid_t child);

    ~SignalCleanup() { Release(); }
    SignalCleanup(SignalCleanup &&other) noexcept;
    SignalCleanup &operator=(SignalCleanup &&other) noexcept;

    /// Takes it out of the register: the file has its final name, or is gone; the child has ended.
    void Release();

    struct Entry;

private:
    explicit SignalCleanup(Entry *registered);

    Entry *entry = nullptr;
};

/// Holds SIGINT and SIGTERM back while it lives: for steps that belong together, such as the renames of a save.
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
