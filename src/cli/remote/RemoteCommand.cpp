// SPDX-License-Identifier: MIT
#include "RemoteCommand.h"

#include "CommandRecord.h"
#include "ExitStatus.h"
#include "IdeCommandClient.h"
#include "Messages.h"
#include "OutputStream.h"
#include "TypedPath.h"
#include "Utf16.h"

#include <unistd.h>

namespace
{

/// A command as it is sent: its number, and the bytes of its record. Without a record, `error` says why.
struct Message
{
    IdeCommand command;
    std::optional<std::string> record;
    std::string error;
};

template <typename Record> Message MessageOf(IdeCommand command, const Record &record)
{
    Message message{command, std::nullopt, {}};
    message.record = BuildRecord(record, message.error);
    return message;
}

Message MessageOf(const LoadArguments &arguments)
{
    return MessageOf(IDE_COMMAND_LOAD, CommandRecord{AbsoluteTypedPath(arguments.project)});
}

Message MessageOf(const SaveArguments &arguments)
{
    return MessageOf(IDE_COMMAND_SAVE, CommandRecord{AbsoluteTypedPath(arguments.project)});
}

Message MessageOf(const PackArguments &arguments)
{
    PackCommandRecord record;
    record.projectPath = AbsoluteTypedPath(arguments.project);
    record.inputFile = AbsoluteTypedPath(arguments.input);
    record.outputFile = AbsoluteTypedPath(arguments.output);
    record.resolution = Utf16Of(arguments.resolution);
    record.targetKind = Utf16Of(arguments.target);
    record.imageConvert = arguments.convertImages;
    record.version = arguments.version;
    return MessageOf(IDE_COMMAND_PACK, record);
}

/// Returns whether a report is that of a command that did its work.
bool IsFine(IdeCommand command, std::u16string_view report)
{
    const auto has = [report](std::u16string_view text) { return report.find(text) != report.npos; };
    // The report of a failed save has no error line, only a number of errors.
    const bool isSaved = command != IDE_COMMAND_SAVE || !has(u" save - ") || has(u" save - 0 error(s)");
    return isSaved && !has(u"\r\n### error ");
}

int Send(const Message &message, bool isQuiet)
{
    if (!message.record) {
        ComplainUtf8(message.error);
        return EXIT_WRONG_USE;
    }
    OutputStream output(STDOUT_FILENO);
    output.hasOnlyProblems = isQuiet;
    std::u16string report;
    const auto show = [&](std::u16string_view text) {
        report += text;
        output.WriteReport(Utf8Of(text));
        output.Flush();
    };
    std::string error;
    const auto answer = IdeCommandClient::Run(message.command, *message.record, show, error);
    if (!answer) {
        ComplainUtf8(error);
        return EXIT_FAILED;
    }
    return IsFine(message.command, report) && !output.IsBroken() ? EXIT_FINE : EXIT_FAILED;
}

int RunRemotely(const PackArguments &arguments, bool isQuiet)
{
    return arguments.HasKnownTarget() ? Send(MessageOf(arguments), isQuiet) : int(EXIT_WRONG_USE);
}

template <typename Arguments> int RunRemotely(const Arguments &arguments, bool isQuiet)
{
    return Send(MessageOf(arguments), isQuiet);
}

} // namespace

std::optional<int> RunRemotely(AllArguments &commands, bool isQuiet)
{
    std::optional<int> status;
    commands.UseChosen([&](const auto &arguments) {
        if constexpr (requires { arguments.remote; }) {
            if (arguments.remote)
                status = RunRemotely(arguments, isQuiet);
        }
    });
    return status;
}
