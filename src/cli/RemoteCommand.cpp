#include "RemoteCommand.h"

int RunCommand(Session &session, CommandId command, const QByteArray &record, bool remote)
{
    if (remote)
        return RunRemotely(session, command, record);
    session.handler.Handle(command, record);
    return session.handler.LastError() == 0 ? EXIT_FINE : EXIT_FAILED;
}
