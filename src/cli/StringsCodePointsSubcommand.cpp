// SPDX-License-Identifier: MIT
#include "CodePoints.h"
#include "Session.h"
#include "StringsSubcommands.h"

namespace
{

class StringsCodePointsSubcommand : public ISubcommand
{
public:
    CLI::App *Add(CLI::App &strings) override
    {
        CLI::App *subcommand = strings.add_subcommand("codepoints", "List the characters that the texts use");
        AddProject(*subcommand, project);
        AddProjectLanguages(*subcommand, wanted);
        AddChoice(*subcommand, "--format", format, "list|ranges|c",
                  "The form of the list: one character a line, ranges, or a table in C (default: list)");
        return subcommand;
    }

    int Run(Session &session) override
    {
        const CResDoc *const document = session.OpenQuietly(AbsolutePath(project));
        return document ? PrintCodePoints(session, *document) : int(EXIT_FAILED);
    }

private:
    int PrintCodePoints(Session &session, const CResDoc &document) const
    {
        const auto languages = ChosenLanguages(document, wanted);
        if (!languages)
            return EXIT_WRONG_USE;
        CodePoints points;
        for (const KnownLanguage &language : *languages)
            points.Add(CodePointsOf(document, language.number));
        const CodePointFormat form = format == "c"        ? CodePointFormat::C
                                     : format == "ranges" ? CodePointFormat::Ranges
                                                          : CodePointFormat::List;
        session.report.WriteBytes(CodePointsText(points, form));
        return session.StatusAfter(EXIT_FINE);
    }

    std::string project;
    std::vector<std::string> wanted;
    std::string format = "list";
};

} // namespace

std::unique_ptr<ISubcommand> MakeStringsCodePointsSubcommand()
{
    return std::make_unique<StringsCodePointsSubcommand>();
}
