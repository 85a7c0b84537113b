// SPDX-License-Identifier: MIT
#include "CMorvaniteApp.h"

#include "Boxes.h"
#include "CommandRecord.h"
#include "Paths.h"
#include "SingleInstance.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QSocketNotifier>
#include <QThread>

#include <cstdio>
#include <new>

CMorvaniteApp::CMorvaniteApp(CountAlpha countAlpha)
    : alphaCounter(countAlpha), documents([this] { return MakeDocument(); }), handler(env, documents, pipe),
      server([this](quint32 id, QByteArrayView record) { return RunIdeCommand(id, record); })
{
    services.reloadFlags = &reloadFlags;
    server.waitsForNothing = [](quint32 id) { return id == COMMAND_SHOW; };
    pipe.serveMeanwhile = [this] { server.Dispatch(); };
    services.GetCommandID = [this](const QString &path) { return handler.GetCommandID(&path); };
}

CMorvaniteApp::~CMorvaniteApp()
{
    services.Notify = nullptr;
    env.whileWaiting = nullptr;
    commands.reset();
    frame.reset();
    documents.CloseAll(); // documents end the watching of their files
}

std::optional<int> CMorvaniteApp::InitInstance(const QStringList &arguments)
{
    if (env.codePageUnknown) {
        (void)ShowBox(nullptr, QMessageBox::Critical,
                      QStringLiteral("Morvanite.ini: there is no code page \"%1\" (section Text, key code_page). "
                                     "Correct it and start Morvanite again.")
                          .arg(env.settings.String("Text", "code_page")));
        return 1; // with another code page, a save would destroy the projects' texts
    }
    QStringList paths; // resolved now, because opening a project changes the current folder
    for (const QString &argument : arguments)
        paths.append(CanonicalPath(QDir::current().absoluteFilePath(argument)));
    QString error;
    for (const QDeadlineTimer patience(PATIENCE_MS); !server.Listen(error);) {
        // Another process may have taken the place since the first check, and may not listen there yet.
        QString hangs;
        if (ShowFirstInstance(PATIENCE_MS, hangs) == FirstInstance::Shown)
            return 0;
        if (patience.hasExpired()) {
            (void)ShowBox(nullptr, QMessageBox::Critical,
                          QStringLiteral("Morvanite can't receive commands from an IDE: %1").arg(error));
            return 1;
        }
        QThread::msleep(20);
    }
    commands = std::make_unique<QSocketNotifier>(server.PollFd(), QSocketNotifier::Read);
    QObject::connect(commands.get(), &QSocketNotifier::activated, [this] { server.Dispatch(); });

    frame = std::make_unique<CMainFrame>(env, tables, documents);
    frame->countAlpha = alphaCounter;
    services.user = &frame->Boxes();
    watched = std::make_unique<WatchedFiles>(*frame);
    watched->isBusy = [this] { return pipe.IsBreathing(); };
    services.watch = &watched->Monitor();
    services.Notify = [this](const CResDoc &document, const QString &text) { frame->Notices().Add(document, text); };
    env.explain = [this](const QString &text) {
        if (frame->Turn().IsOn()) // the pane doesn't change during a command, which may take long
            std::fprintf(stderr, "morvanite: %s\n", qUtf8Printable(text));
        frame->Turn().AfterCommand([this, text] { frame->Bars().WriteLine(text); });
    };
    handler.idleOutput = [this](QStringView text) { frame->Bars().WriteOutput(text); };
    env.whileWaiting = [this] {
        if (frame->Turn().IsOn())
            pipe.Breathe();
    };
    handler.bringToTop = [this] { frame->BringToTop(); };
    frame->Boxes().pauseCommands = [this](bool pause) { server.SetPaused(pause); };
    frame->stopWatching = [this] {
        watched->Monitor().Stop();
        reloadFlags.layouts.clear();
    };
    frame->Restore();
    bool isAnyOpen = paths.isEmpty();
    for (const QString &path : paths)
        isAnyOpen = frame->Projects().Open(path) || isAnyOpen;
    if (!isAnyOpen)
        return 1; // the reason has been reported
    frame->show();
    return std::nullopt;
}

std::unique_ptr<CDocument> CMorvaniteApp::MakeDocument()
{
    if (frame)
        frame->Notices().DropWaiting();
    return std::make_unique<CResDoc>(env, tables, services);
}

int CMorvaniteApp::RunIdeCommand(quint32 dwData, QByteArrayView record)
{
    if (dwData == COMMAND_SHOW) {
        frame->BringToTop();
        return WINDOW_SHOWN;
    }
    if (dwData != IDE_COMMAND_LOAD && dwData != IDE_COMMAND_SAVE && dwData != IDE_COMMAND_PACK)
        return handler.Handle(dwData, record); // the handler ignores it
    const CMainFrame::Busy busy(*frame, dwData);
    pipe.Breathe();
    try {
        return handler.Handle(dwData, record);
    } catch (const std::bad_alloc &) { // the next command may need less memory
        frame->Turn().AfterCommand([this] {
            frame->Bars().WriteLine(QStringLiteral("There was not enough memory for a command of the IDE."));
        });
        return 1;
    }
}
