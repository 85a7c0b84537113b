#include "RemoteCommand.h"

#include "CommandClient.h"

namespace
{

int Send(Session &session, CommandId command, const std::optional<QByteArray> &record, const QString &recordError)
{
    if (!record) {
        Complain(recordError);
        return EXIT_WRONG_USE;
    }
    QString report;
    session.report.Open();
    const auto show = [&](QStringView text) {
        report += text;
        session.report.Write(text);
        session.report.Flush();
    };
    QString error;
    const auto answer = CommandClient::Run(command, *record, show, error);
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

int RunRemotely(Session &session, CommandId command, const CommandRecord &record)
{
    QString error;
    const auto bytes = BuildRecord(record, error);
    return Send(session, command, bytes, error);
}

int RunRemotely(Session &session, const PackCommandRecord &record)
{
    QString error;
    const auto bytes = BuildRecord(record, error);
    return Send(session, COMMAND_PACK, bytes, error);
}
