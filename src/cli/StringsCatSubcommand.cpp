// SPDX-License-Identifier: MIT
#include "FileFault.h"
#include "HostFiles.h"
#include "Session.h"
#include "StringsSubcommands.h"
#include "TextForm.h"

namespace
{

/// Prints a string file as UTF-8 with lines that end in a line feed, even if a load of it would fail.
class StringsCatSubcommand : public Subcommand<StringsCatArguments>
{
public:
    using Subcommand::Subcommand;

    int Run(Session &session) override
    {
        const QString path = AbsolutePath(file);
        QByteArray bytes;
        if (const int error = ReadFile(path, bytes)) {
            Complain(WhyNotRead(path, error));
            return EXIT_FAILED;
        }
        session.report.WriteBytes(ReadableText(bytes));
        return EXIT_FINE;
    }
};

} // namespace

std::unique_ptr<ISubcommand> MakeSubcommand(StringsCatArguments &&arguments)
{
    return std::make_unique<StringsCatSubcommand>(std::move(arguments));
}
