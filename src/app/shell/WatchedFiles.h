// SPDX-License-Identifier: MIT
#pragma once

#include "ReloadQueue.h"

#include <QObject>
#include <QTimer>

class CMainFrame;

/// Watches the files of the open projects for changes by other programs, and asks the user whether to reload them. No
/// question is asked while a command of the channel runs, while a box or a menu is open, while a mouse button is down,
/// or while what is being edited can't be committed.
class WatchedFiles : public QObject, private IReloadHost
{
public:
    /// The window must exist for as long as the event loop runs.
    explicit WatchedFiles(CMainFrame &mainFrame);

    /// Returns whether events are being delivered in the middle of an operation, during which no project may be loaded.
    /// May be empty.
    std::function<bool()> isBusy;

    [[nodiscard]] IFileChangeMonitor &Monitor() { return monitor; }
    /// Called when the files of these handles have changed.
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
    QTimer again; // runs while notices wait
    bool isEditRefused = false;
    CFileChangeMonitor monitor; // the last member, so that its thread ends first
};
