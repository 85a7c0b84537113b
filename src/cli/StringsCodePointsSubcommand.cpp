// SPDX-License-Identifier: MIT
#include "CodePoints.h"
#include "LanguageTable.h"
#include "Session.h"
#include "StringStats.h"
#include "StringsSubcommands.h"

#include <map>
#include <set>

namespace
{

class StringsCodePointsSubcommand : public ISubcommand
{
public:
    CLI::App *Add(CLI::App &strings) override
    {
        CLI::App *subcommand = strings.add_subcommand("codepoints", "List the characters that the texts use");
        AddProject(*subcommand, project);
        subcommand
            ->add_option("--language", wantedLanguages,
                         "Only this language, by name, number or code; can be repeated (default: all)")
            ->type_name("LANGUAGE")
            ->allow_extra_args(false);
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
        CodePoints points;
        std::set<std::string> unknown(wantedLanguages.begin(), wantedLanguages.end());
        int rows = 0;
        std::map<qint32, std::string> codes;
        for (const KnownLanguage &known : KnownLanguages(document.env))
            codes[known.number] = known.code.toStdString();
        for (const LanguageStats &language : StringStats(document, rows)) {
            const size_t named = unknown.erase(language.name.toStdString()) +
                                 unknown.erase(std::to_string(language.number)) + unknown.erase(codes[language.number]);
            if (named > 0 || wantedLanguages.empty())
                points.Add(CodePointsOf(document, language.number));
        }
        for (const std::string &language : unknown)
            Complain(QStringLiteral("--language %1: the project has no such language")
                         .arg(QString::fromStdString(language)));
        if (!unknown.empty())
            return EXIT_WRONG_USE;
        const CodePointFormat form = format == "c"        ? CodePointFormat::C
                                     : format == "ranges" ? CodePointFormat::Ranges
                                                          : CodePointFormat::List;
        session.report.WriteBytes(CodePointsText(points, form));
        return session.StatusAfter(EXIT_FINE);
    }

    std::string project;
    std::vector<std::string> wantedLanguages;
    std::string format = "list";
};

} // namespace

std::unique_ptr<ISubcommand> MakeStringsCodePointsSubcommand()
{
    return std::make_unique<StringsCodePointsSubcommand>();
}
