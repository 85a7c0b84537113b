// SPDX-License-Identifier: MIT
#include "CodePoints.h"
#include "Session.h"
#include "StringsSubcommands.h"

namespace
{

class StringsCodePointsSubcommand : public Subcommand<StringsCodePointsArguments>
{
public:
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
};

} // namespace

template <> std::unique_ptr<ISubcommand> MakeSubcommand<StringsCodePointsArguments>()
{
    return std::make_unique<StringsCodePointsSubcommand>();
}
