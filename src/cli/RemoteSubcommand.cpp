// SPDX-License-Identifier: MIT
#include "RemoteSubcommand.h"

#include "IdeCommandClient.h"

namespace
{

int Send(Session &session, IdeCommand command, const std::optional<QByteArray> &record, const QString &recordError)
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
    const auto answer = IdeCommandClient::Run(command, *record, show, error);
    session.report.Close();
    if (!answer) {
        Complain(error);
        return EXIT_FAILED;
    }
    // The report of a failed save has no error line, only a number of errors.
    const bool saved =
        command != IDE_COMMAND_SAVE || !report.contains(u" save - ") || report.contains(u" save - 0 error(s)");
    return report.contains(u"\r\n### error ") || !saved ? EXIT_FAILED : EXIT_FINE;
}

} // namespace

int RunRemotely(Session &session, IdeCommand command, const CommandRecord &record)
{
    QString error;
    const auto bytes = BuildRecord(record, error);
    return Send(session, command, bytes, error);
}

int RunRemotely(Session &session, const PackCommandRecord &record)
{
    QString error;
    const auto bytes = BuildRecord(record, error);
    return Send(session, IDE_COMMAND_PACK, bytes, error);
}
