#pragma once

#include "CMainFrame.h"
#include "CommandServer.h"
#include "LivePipe.h"
#include "ReportPipe.h"

#include <memory>

class QSocketNotifier;

/// The program with a window: what a process shares, its documents, the command channel and the main frame.
class CMorvaniteApp
{
public:
    CMorvaniteApp();
    ~CMorvaniteApp();
    CMorvaniteApp(const CMorvaniteApp &) = delete;
    CMorvaniteApp &operator=(const CMorvaniteApp &) = delete;

    /// Takes the window's place on the channel, makes the window, opens the project that `arguments` name, if they do,
    /// and shows the window. False, with the reason told, when the program can't go on.
    [[nodiscard]] bool InitInstance(const QStringList &arguments);

    [[nodiscard]] CMainFrame &Frame() { return *frame; }
    [[nodiscard]] CDocManager &Documents() { return documents; }
    [[nodiscard]] Environment &Env() { return env; }

private:
    int RunCommand(quint32 dwData, QByteArrayView record);

    Environment env;
    ProcessTables tables;
    CFrameServices services;
    ReloadFlags reloadFlags;
    CDocManager documents;
    ReportPipe idePipe;
    LivePipe pipe{idePipe};
    CommandHandler handler;
    CommandServer server;
    std::unique_ptr<CMainFrame> frame;
    std::unique_ptr<QSocketNotifier> commands;
};
