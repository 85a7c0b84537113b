#include "CommandServer.h"
#include "Commands.h"
#include "ReportPipe.h"
#include "Session.h"

#include <csignal>
#include <new>
#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace
{

/// Readable once the process is asked to end.
FileHandle EndSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    return FileHandle(signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
}

class ServeCommand : public ICommand
{
public:
    CLI::App *Add(CLI::App &app) override
    {
        return app.add_subcommand("serve", "Take commands of IDEs without a window, until SIGTERM");
    }

    int Run(Session &session) override
    {
        const FileHandle ending = EndSignals();
        ReportPipe pipe(ending.Get());
        CommandHandler handler(session.env, session.documents, pipe);
        session.services.GetCommandID = [&handler](const QString &path) { return handler.GetCommandID(&path); };

        CommandServer server([&handler](quint32 id, QByteArrayView record) {
            try {
                return handler.Handle(id, record);
            } catch (const std::bad_alloc &) { // the next command may need less
                Complain(QStringLiteral("a command ran out of memory"));
                return 1;
            }
        });
        QString error;
        if (!server.Listen(error)) {
            Complain(error);
            return EXIT_FAILED;
        }
        pollfd events[] = {{server.PollFd(), POLLIN, 0}, {ending.Get(), POLLIN, 0}};
        while (poll(events, 2, -1) >= 0 || errno == EINTR) {
            if (events[1].revents)
                break;
            if (events[0].revents)
                server.Dispatch();
        }
        session.documents.CloseAll();
        return EXIT_FINE;
    }
};

} // namespace

std::unique_ptr<ICommand> MakeServeCommand()
{
    return std::make_unique<ServeCommand>();
}
