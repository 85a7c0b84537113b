#pragma once

#include "ReloadQueue.h"

#include <QObject>
#include <QTimer>

class CMainFrame;

/// The files of the open projects that other programs change: they are watched, and the user is asked whether to load
/// them again. No question comes while a command of the channel runs, while a box or a menu is open or a button of the
/// mouse is down, or while what is being edited can't be taken.
class WatchedFiles : public QObject, private IReloadHost
{
public:
    /// The window must live longer than the program waits for events.
    explicit WatchedFiles(CMainFrame &mainFrame);

    /// Says whether events are delivered in the middle of something, where no project may be loaded; may be empty.
    std::function<bool()> isBusy;

    [[nodiscard]] IFileChangeMonitor &Monitor() { return monitor; }
    /// The files of these handles have changed.
    void Changed(const std::vector<quint32> &handles);

private:
    // IReloadHost
    [[nodiscard]] std::optional<FILEWATCHITEM> ItemOf(quint32 handle) const override { return monitor.ItemOf(handle); }
    [[nodiscard]] std::optional<WatchClass> ClassOf(const CDocument &doc, quint32 handle) const override;
    [[nodiscard]] bool MayAsk() override;
    [[nodiscard]] bool Ask(const FILEWATCHITEM &item) override;
    void Reload(CDocument &doc, quint32 handle) override;

    void Run();

    CMainFrame &frame;
    ReloadQueue queue{*this};
    QTimer again; // runs while something waits
    bool isEditRefused = false;
    CFileChangeMonitor monitor; // last: its thread ends first
};
