// SPDX-License-Identifier: MIT
#include "FileFault.h"
#include "HostFiles.h"
#include "Session.h"
#include "StringsSubcommands.h"
#include "TextForm.h"

namespace
{

/// Prints a string file as UTF-8 with lines that end in a line feed, even if a load of it would fail.
class StringsCatSubcommand : public ISubcommand
{
public:
    CLI::App *Add(CLI::App &strings) override
    {
        CLI::App *subcommand = strings.add_subcommand("cat", "Print a string file as UTF-8, for git");
        subcommand->add_option("FILE", file, "The string file")->type_name("")->required();
        return subcommand;
    }

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

private:
    std::string file;
};

} // namespace

std::unique_ptr<ISubcommand> MakeStringsCatSubcommand()
{
    return std::make_unique<StringsCatSubcommand>();
}
