// SPDX-License-Identifier: MIT
#pragma once

#include "CFileChangeMonitor.h"
#include "ProjectWatches.h"

/// What a ReloadQueue needs from the program.
class IReloadHost
{
public:
    /// The watched item of a handle; nothing if the handle is no longer known.
    [[nodiscard]] virtual std::optional<FILEWATCHITEM> ItemOf(quint32 handle) const = 0;
    /// The class of the file; nothing if the document no longer watches it.
    [[nodiscard]] virtual std::optional<WatchClass> ClassOf(const CDocument &doc, quint32 handle) const = 0;
    /// Returns whether the user can be asked now. If so, first commits what is being edited, because a reload would
    /// drop it.
    [[nodiscard]] virtual bool MayAsk() = 0;
    /// Asks whether to load the file again, and waits for the answer.
    [[nodiscard]] virtual bool Ask(const FILEWATCHITEM &item) = 0;
    /// Loads the file again. Doesn't throw: failures are reported.
    virtual void Reload(CDocument &doc, quint32 handle) = 0;

protected:
    ~IReloadHost() = default;
};

/// The queue of notices about files that other programs have changed. They wait until the user can be asked. Main
/// thread only.
///
/// Asks one question at a time. Questions about a whole project come before those about its strings and layouts. The
/// answer applies to these too, because a reload of the project reads all of them: after a checkout the user is asked
/// once.
class ReloadQueue
{
public:
    /// The host must outlive this object.
    explicit ReloadQueue(IReloadHost &reloadHost) : host(reloadHost) {}

    /// Adds files that have changed. The user isn't asked before `Run`.
    void Add(const std::vector<quint32> &handles);
    /// Asks and reloads for as long as notices wait and the user can be asked. Does nothing if it is running already.
    void Run();
    /// Returns whether no waiting notice could lead to a question.
    [[nodiscard]] bool IsEmpty();

private:
    struct Notice
    {
        quint32 handle;
        FILEWATCHITEM item;
        WatchClass watchClass;
    };

    /// The next notice. Drops notices of files that are no longer watched.
    [[nodiscard]] std::optional<Notice> Next();
    /// Drops the notices that the answer about a file applies to.
    void Forget(const Notice &notice);
    void Answer(const Notice &notice);

    IReloadHost &host;
    std::vector<quint32> waiting; // in order of arrival, each once
    bool isRunning = false;
};
