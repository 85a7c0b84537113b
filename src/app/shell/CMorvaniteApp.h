#pragma once

#include "CMainFrame.h"
#include "IdeCommandServer.h"
#include "LivePipe.h"
#include "ReportPipe.h"
#include "WatchedFiles.h"

#include <memory>
#include <optional>

class QSocketNotifier;

/// The program with a window: what a process shares, its documents, the command channel and the main frame.
class CMorvaniteApp
{
public:
    CMorvaniteApp();
    ~CMorvaniteApp();
    CMorvaniteApp(const CMorvaniteApp &) = delete;
    CMorvaniteApp &operator=(const CMorvaniteApp &) = delete;

    /// Takes the window's place on the channel, makes the window, opens the projects that `arguments` name, if they do,
    /// and shows the window. Where the program can't go on, its exit status: 0 when a window that runs already has come
    /// to the front, else 1, with the reason told.
    [[nodiscard]] std::optional<int> InitInstance(const QStringList &arguments);

    [[nodiscard]] CMainFrame &Frame() { return *frame; }
    [[nodiscard]] WatchedFiles &Watched() { return *watched; }
    [[nodiscard]] CDocManager &Documents() { return documents; }
    [[nodiscard]] Environment &Env() { return env; }

private:
    [[nodiscard]] std::unique_ptr<CDocument> MakeDocument();
    int RunIdeCommand(quint32 dwData, QByteArrayView record);

    Environment env;
    ProcessTables tables;
    CFrameServices services;
    ReloadFlags reloadFlags;
    CDocManager documents;
    ReportPipe idePipe;
    LivePipe pipe{idePipe};
    IdeCommandHandler handler;
    IdeCommandServer server;
    std::unique_ptr<CMainFrame> frame;
    std::unique_ptr<WatchedFiles> watched;
    std::unique_ptr<QSocketNotifier> commands;
};
