// SPDX-License-Identifier: MIT
#include "SignalCleanup.h"

#include <atomic>
#include <cerrno>
#include <climits>
#include <dirent.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

/// An entry of the register, which is a linked list. The handler can run between any two instructions, so each change
/// that it can see writes a single pointer; the handler follows only `next`.
struct SignalCleanup::Entry
{
    std::atomic<Entry *> next = nullptr;
    Entry *previous = nullptr;
    pid_t child = 0;       // 0: the entry is a file or a folder
    bool isFolder = false; // a folder, removed with its files
    QByteArray path;
};

namespace
{

using Entry = SignalCleanup::Entry;

constexpr int END_SIGNALS[] = {SIGINT, SIGTERM, SIGHUP};

/// The first entry. It is global because a signal handler gets no arguments of ours.
std::atomic<Entry *> first = nullptr;
/// The process that installed the handlers.
std::atomic<pid_t> owner = 0;

static_assert(std::atomic<Entry *>::is_always_lock_free && std::atomic<pid_t>::is_always_lock_free);

// The functions below run in the signal handler and may call only functions that are safe there. They don't allocate or
// free memory.

void WaitForEnd(pid_t child)
{
    constexpr int PATIENCE_MS = 1000;
    constexpr int STEP_MS = 10;
    for (int waited = 0; waited < PATIENCE_MS; waited += STEP_MS) {
        if (waitpid(child, nullptr, WNOHANG) != 0)
            return;
        poll(nullptr, 0, STEP_MS);
    }
    SignalCleanup::EndChild(child, SIGKILL);
    while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
}

/// Removes the files of a folder, and then the folder. Doesn't use readdir, because opendir allocates memory.
void RemoveFolder(const char *path)
{
    const int folder = open(path, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (folder < 0)
        return;
    alignas(dirent64) char entries[4096];
    for (long size = 0; (size = syscall(SYS_getdents64, folder, entries, sizeof entries)) > 0;) {
        for (long at = 0; at < size;) {
            const auto *entry = reinterpret_cast<const dirent64 *>(entries + at);
            unlinkat(folder, entry->d_name, 0);
            at += entry->d_reclen;
        }
    }
    close(folder);
    rmdir(path);
}

/// Ends the children first, because they may be writing the files.
void CleanUp()
{
    for (const Entry *entry = first; entry; entry = entry->next) {
        if (entry->child > 0)
            SignalCleanup::EndChild(entry->child, SIGTERM);
    }
    for (const Entry *entry = first; entry; entry = entry->next) {
        if (entry->child > 0)
            WaitForEnd(entry->child);
    }
    for (const Entry *entry = first; entry; entry = entry->next) {
        if (entry->child != 0)
            continue;
        if (entry->isFolder)
            RemoveFolder(entry->path.constData());
        else
            unlink(entry->path.constData());
    }
}

void EndBySignal(int signal)
{
    if (owner == getpid())
        CleanUp();
    std::signal(signal, SIG_DFL);
    raise(signal); // takes effect when the handler returns
}

sigset_t EndSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : END_SIGNALS)
        sigaddset(&signals, signal);
    return signals;
}

QByteArray FromRoot(const QByteArray &path)
{
    char folder[PATH_MAX];
    if (path.startsWith('/') || !getcwd(folder, sizeof folder))
        return path;
    return QByteArray(folder) + '/' + path;
}

} // namespace

void SignalCleanup::EndChild(pid_t child, int signal)
{
    // Only a child that leads a group has a group of its number.
    if (kill(-child, signal) != 0)
        kill(child, signal);
}

void SignalCleanup::Install()
{
    owner = getpid();
    for (const int signal : END_SIGNALS) {
        struct sigaction action = {};
        if (sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN)
            continue;
        action = {};
        action.sa_handler = EndBySignal;
        action.sa_mask = EndSignals();
        sigaction(signal, &action, nullptr);
    }
}

SignalCleanup SignalCleanup::OfFile(const QByteArray &path)
{
    auto *entry = new Entry;
    entry->path = FromRoot(path);
    return SignalCleanup(entry);
}

SignalCleanup SignalCleanup::OfFolder(const QByteArray &path)
{
    SignalCleanup folder = OfFile(path);
    folder.entry->isFolder = true;
    return folder;
}

SignalCleanup SignalCleanup::OfChild(pid_t child)
{
    auto *entry = new Entry;
    entry->child = child;
    return SignalCleanup(entry);
}

SignalCleanup::SignalCleanup(Entry *registered) : entry(registered)
{
    Entry *const second = first;
    entry->next = second;
    if (second)
        second->previous = entry;
    first = entry;
}

SignalCleanup::SignalCleanup(SignalCleanup &&other) noexcept : entry(std::exchange(other.entry, nullptr)) {}

SignalCleanup &SignalCleanup::operator=(SignalCleanup &&other) noexcept
{
    std::swap(entry, other.entry);
    return *this;
}

void SignalCleanup::Release()
{
    if (!entry)
        return;
    Entry *const following = entry->next;
    if (following)
        following->previous = entry->previous;
    (entry->previous ? entry->previous->next : first) = following;
    delete std::exchange(entry, nullptr);
}

SignalHold::SignalHold()
{
    const sigset_t signals = EndSignals();
    pthread_sigmask(SIG_BLOCK, &signals, &before);
}

SignalHold::~SignalHold()
{
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}
