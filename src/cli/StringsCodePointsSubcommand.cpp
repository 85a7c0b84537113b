// SPDX-License-Identifier: MIT
#include "CodePoints.h"
#include "LayoutIds.h"
#include "ProjectLayouts.h"
#include "ScreenOption.h"
#include "Session.h"
#include "StringsSubcommands.h"

using namespace Qt::StringLiterals;

namespace
{

class StringsCodePointsSubcommand : public Subcommand<StringsCodePointsArguments>
{
public:
    using Subcommand::Subcommand;

    int Run(Session &session) override
    {
        if (!ReadScreenSizes(resolutions, screens))
            return EXIT_WRONG_USE;
        const CResDoc *const document = session.OpenQuietly(AbsolutePath(project));
        return document ? PrintCodePoints(session, *document) : int(EXIT_FAILED);
    }

private:
    /// Returns whether the project has layouts for each screen. A font for a screen without layouts would be empty.
    [[nodiscard]] bool HasLayouts(const CResDoc &document) const
    {
        for (const ScreenSize &screen : screens) {
            const int index = document.tables.resolutions.IndexOf(screen.width, screen.height);
            const CResFolder *const folder =
                index < 0 ? nullptr : document.root.FindFolder(KIND_RESO_LAYOUTS, index, 2);
            if (folder && !folder->subfolders.empty())
                continue;
            Complain(u"--resolution %1x%2: the project has no layouts for this screen"_s.arg(screen.width)
                         .arg(screen.height));
            return false;
        }
        return true;
    }

    [[nodiscard]] QSet<NarrowText> IdsOfScreens(const CResDoc &document) const
    {
        QSet<NarrowText> ids;
        for (const IDRecord *record = document.ids.sentinel.next; record != &document.ids.sentinel;
             record = record->next)
            ids.insert(record->name);
        return IdsInLayouts(document, ids, screens);
    }

    int PrintCodePoints(Session &session, const CResDoc &document) const
    {
        const auto languages = ChosenLanguages(document, wanted);
        if (!languages || !HasLayouts(document))
            return EXIT_WRONG_USE;
        const QSet<NarrowText> ids = screens.empty() ? QSet<NarrowText>() : IdsOfScreens(document);
        CodePoints points;
        for (const KnownLanguage &language : *languages)
            points.Add(screens.empty() ? CodePointsOf(document, language.number)
                                       : CodePointsOf(document, language.number, ids));
        const CodePointFormat form = format == "c"        ? CodePointFormat::C
                                     : format == "ranges" ? CodePointFormat::Ranges
                                                          : CodePointFormat::List;
        session.report.WriteBytes(CodePointsText(points, form));
        const bool isComplete = screens.empty() || MissingLayouts(document).isEmpty();
        return session.StatusAfter(isComplete ? EXIT_FINE : EXIT_FAILED);
    }

    std::vector<ScreenSize> screens;
};

} // namespace

std::unique_ptr<ISubcommand> MakeSubcommand(StringsCodePointsArguments &&arguments)
{
    return std::make_unique<StringsCodePointsSubcommand>(std::move(arguments));
}
