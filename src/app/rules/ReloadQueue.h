#pragma once

#include "CFileChangeMonitor.h"
#include "ProjectWatches.h"

/// What a ReloadQueue needs of the program.
class IReloadHost
{
public:
    /// What is watched with a handle; nothing for one that isn't known any more.
    [[nodiscard]] virtual std::optional<FILEWATCHITEM> ItemOf(quint32 handle) const = 0;
    /// The class of the file; nothing when the document has given up the watch.
    [[nodiscard]] virtual std::optional<WatchClass> ClassOf(const CDocument &doc, quint32 handle) const = 0;
    /// Says whether the user can be asked now, and takes what is being edited then: a reload would drop it.
    [[nodiscard]] virtual bool MayAsk() = 0;
    /// Asks whether to load the file again, and waits for the answer.
    [[nodiscard]] virtual bool Ask(const FILEWATCHITEM &item) = 0;
    /// Loads the file again. Throws nothing: a failure has been reported.
    virtual void Reload(CDocument &doc, quint32 handle) = 0;

protected:
    ~IReloadHost() = default;
};

/// The notices of files that other programs have changed, which wait until the user can be asked. Main thread only.
///
/// One question at a time. Those about a whole project come before those about its strings and its layouts, and their
/// answer holds for these too, as a reload of the project reads them all: after a checkout there is one question.
class ReloadQueue
{
public:
    /// The host must live longer.
    explicit ReloadQueue(IReloadHost &reloadHost) : host(reloadHost) {}

    /// Files have changed. Nothing is asked before `Run`.
    void Add(const std::vector<quint32> &handles);
    /// Asks and reloads for as long as something waits and the user can be asked. Does nothing while it runs already.
    void Run();
    /// Nothing waits that could lead to a question.
    [[nodiscard]] bool IsEmpty();

private:
    struct Notice
    {
        quint32 handle;
        FILEWATCHITEM item;
        WatchClass watchClass;
    };

    /// The notice that comes next. Forgets those whose file isn't watched any more.
    [[nodiscard]] std::optional<Notice> Next();
    /// Forgets what the answer about a file holds for.
    void Forget(const Notice &notice);
    void Answer(const Notice &notice);

    IReloadHost &host;
    std::vector<quint32> waiting; // in the order in which they came, each once
    bool isRunning = false;
};
