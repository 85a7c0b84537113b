// SPDX-License-Identifier: MIT
#include "IdeCommandServer.h"
#include "IdleDocuments.h"
#include "OutputPump.h"
#include "ReportPipe.h"
#include "Session.h"
#include "Subcommands.h"

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <malloc.h>
#include <new>
#include <optional>
#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace
{

/// Returns a descriptor that is readable once the process is asked to end. Signals that were ignored when the process
/// started, as by nohup, stay ignored.
FileHandle EndSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        struct sigaction action = {};
        if (sigaction(signal, nullptr, &action) == 0 && action.sa_handler != SIG_IGN)
            sigaddset(&signals, signal);
    }
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    return FileHandle(signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
}

/// Keeps the server from waiting for a reader of its own messages or those of an external tool: they go through a pump,
/// and so does a debug log that isn't a file on a disk.
class PatientOutputs
{
public:
    explicit PatientOutputs(FileHandle &debugLog)
    {
        if (OutputPump::CanWait(STDERR_FILENO)) {
            errorsBefore = FileHandle(fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
            errors.emplace(FileHandle(fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1)));
            if (errors->Input() >= 0)
                dup2(errors->Input(), STDERR_FILENO);
        }
        if (debugLog.IsOpen() && OutputPump::CanWait(debugLog.Get())) {
            log.emplace(std::move(debugLog));
            debugLog = FileHandle(fcntl(log->Input(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
        }
    }
    ~PatientOutputs()
    {
        if (errorsBefore.IsOpen())
            dup2(errorsBefore.Get(), STDERR_FILENO);
    }
    PatientOutputs(const PatientOutputs &) = delete;
    PatientOutputs &operator=(const PatientOutputs &) = delete;

private:
    FileHandle errorsBefore;
    std::optional<OutputPump> errors;
    std::optional<OutputPump> log;
};

class ServeSubcommand : public Subcommand<ServeArguments>
{
public:
    using Subcommand::Subcommand;

    int Run(Session &session) override
    {
        const FileHandle ending = EndSignals();
        const PatientOutputs outputs(session.debugLog);
        ReportPipe pipe(ending.Get());
        IdeCommandHandler handler(session.env, session.documents, pipe);
        session.services.GetCommandID = [&handler](const QString &path) { return handler.GetCommandID(&path); };

        IdleDocuments idle(session.documents, std::chrono::minutes(idleMinutes));
        IdeCommandServer server([&handler, &idle](quint32 id, QByteArrayView record) {
            int answer = 1;
            try {
                answer = handler.Handle(id, record);
            } catch (const std::bad_alloc &) { // the next command may need less
                Complain(QStringLiteral("there was not enough memory for a command"));
            }
            if (const auto project = ProjectPathOf(record)) // every record begins with the project
                idle.Used(*project, Clock::now());
            return answer;
        });
        QString error;
        if (!server.Listen(error)) {
            Complain(error);
            return EXIT_FAILED;
        }
        pollfd events[] = {{server.PollFd(), POLLIN, 0}, {ending.Get(), POLLIN, 0}};
        while (poll(events, 2, WaitFor(idle)) >= 0 || errno == EINTR) {
            if (events[1].revents)
                break;
            if (events[0].revents)
                server.Dispatch();
            if (idle.CloseUnused(Clock::now()) > 0)
                malloc_trim(0); // otherwise the process keeps the memory
        }
        session.documents.CloseAll();
        return EXIT_FINE;
    }

private:
    using Clock = std::chrono::steady_clock;

    /// Milliseconds until a project may be due; -1 if there is none.
    static int WaitFor(const IdleDocuments &idle)
    {
        const auto wait = idle.NextLook(Clock::now());
        return wait ? int(wait->count()) : -1;
    }
};

} // namespace

std::unique_ptr<ISubcommand> MakeSubcommand(ServeArguments &&arguments)
{
    return std::make_unique<ServeSubcommand>(arguments);
}
