// SPDX-License-Identifier: MIT
#pragma once

#include "CMainFrame.h"
#include "IdeCommandServer.h"
#include "LivePipe.h"
#include "ReportPipe.h"
#include "WatchedFiles.h"

#include <memory>
#include <optional>

class QSocketNotifier;

/// The program with a window: its shared objects, its documents, the command channel and the main window.
class CMorvaniteApp
{
public:
    /// `countAlpha` may be null (CheckInput::countAlpha).
    explicit CMorvaniteApp(CountAlpha countAlpha = nullptr);
    ~CMorvaniteApp();
    CMorvaniteApp(const CMorvaniteApp &) = delete;
    CMorvaniteApp &operator=(const CMorvaniteApp &) = delete;

    /// Takes the window's place on the channel, makes the window, opens the projects that `arguments` name, if any, and
    /// shows the window. If the program can't continue, returns its exit status: 0 if a window that is running already
    /// has come to the front, otherwise 1, after reporting the reason.
    [[nodiscard]] std::optional<int> InitInstance(const QStringList &arguments);

    [[nodiscard]] CMainFrame &Frame() { return *frame; }
    [[nodiscard]] WatchedFiles &Watched() { return *watched; }
    [[nodiscard]] CDocManager &Documents() { return documents; }
    [[nodiscard]] Environment &Env() { return env; }

private:
    [[nodiscard]] std::unique_ptr<CDocument> MakeDocument();
    int RunIdeCommand(quint32 dwData, QByteArrayView record);

    CountAlpha alphaCounter;
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
