#include "RemoteCommand.h"

#include "CommandClient.h"

namespace
{

int RunRemotely(Session &session, CommandId command, const QByteArray &record)
{
    QString report;
    session.report.Open();
    const auto show = [&](QStringView text) {
        report += text;
        session.report.Write(text);
        session.report.Flush();
    };
    QString error;
    const auto answer = CommandClient::Run(command, record, show, error);
    session.report.Close();
    if (!answer) {
        Complain(error);
        return EXIT_FAILED;
    }
    // A save that fails has no error line, only its count of errors.
    const bool saved =
        command != COMMAND_SAVE || !report.contains(u" save - ") || report.contains(u" save - 0 error(s)");
    return report.contains(u"\r\n### error ") || !saved ? EXIT_FAILED : EXIT_FINE;
}

} // namespace

int RunCommand(Session &session, CommandId command, const QByteArray &record, bool remote)
{
    if (remote)
        return RunRemotely(session, command, record);
    session.handler.Handle(command, record);
    return session.handler.LastError() == 0 ? EXIT_FINE : EXIT_FAILED;
}
