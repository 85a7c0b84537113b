// SPDX-License-Identifier: MIT
#include "ResourceCounts.h"

#include "FolderKinds.h"

namespace
{

void CountStrings(const CResFolder &strings, ResourceCounts &counts)
{
    // The first folder has the descriptions, one for each row; each of the others is a language.
    if (strings.subfolders.empty())
        return;
    counts.strings += strings.subfolders.front()->resources.Count();
    counts.languages += strings.subfolders.size() - 1;
}

void Count(const CResFolder &folder, ResourceCounts &counts)
{
    const size_t own = folder.resources.Count();
    switch (folder.kind) {
    case KIND_AUDIO:
        counts.audio += own;
        break;
    case KIND_VIDEO:
        counts.video += own;
        break;
    case KIND_BINARY:
        counts.binary += own;
        break;
    case KIND_RESO_IMAGES:
    case KIND_COMPONENT:
        counts.images += own;
        break;
    case KIND_STRINGS:
        return CountStrings(folder, counts);
    case KIND_RESO_LAYOUTS:
        counts.layouts += folder.subfolders.size(); // each layout has its own folder
        return;
    case KIND_LAYOUT:
        counts.layouts += own;
        return;
    default:
        break;
    }
    for (const auto &subfolder : folder.subfolders) {
        if (IsShown(*subfolder))
            Count(*subfolder, counts);
    }
}

QString Counted(size_t number, const QString &noun)
{
    return number == 1 ? QStringLiteral("1 ") + noun : QStringLiteral("%1 %2s").arg(number).arg(noun);
}

/// The contents of a folder, such as 3 "audio " "file".
struct Holding
{
    size_t number = 0;
    const char *sort = ""; // already said by the folder's name; ends with a blank
    const char *noun = nullptr;
    QString where; // for which screens; begins with a blank
};

QString ScreensOf(const CResFolder &folder)
{
    return folder.index < 0 ? QStringLiteral(" shared by all resolutions")
                            : QStringLiteral(" for %1").arg(folder.title);
}

Holding HoldingOf(const CResFolder &folder)
{
    const ResourceCounts counts = CountResources(folder);
    switch (folder.kind) {
    case KIND_FILES:
        return {counts.Files(), "", "file", {}};
    case KIND_AUDIO:
        return {counts.audio, "audio ", "file", {}};
    case KIND_VIDEO:
        return {counts.video, "video ", "file", {}};
    case KIND_BINARY:
        return {counts.binary, "binary ", "file", {}};
    case KIND_IMAGES:
        return {counts.images, "", "image", {}};
    case KIND_RESO_IMAGES:
        return {counts.images, "", "image", ScreensOf(folder)};
    case KIND_CPIMAGES:
    case KIND_COMPONENT:
        return {counts.images, "component ", "image", {}};
    case KIND_STRINGS:
        return {counts.strings, "", "string", {}};
    case KIND_LAYOUTS:
        return {counts.layouts, "", "layout", {}};
    case KIND_RESO_LAYOUTS:
        return {counts.layouts, "", "layout", ScreensOf(folder)};
    default:
        return {};
    }
}

QString InLanguages(size_t languages)
{
    return QStringLiteral(" in ") + Counted(languages, QStringLiteral("language"));
}

} // namespace

ResourceCounts CountResources(const CResFolder &folder)
{
    ResourceCounts counts;
    Count(folder, counts);
    return counts;
}

QString ShortSummaryOf(const ResourceCounts &counts)
{
    return counts.All() == 0 ? QStringLiteral("no resources") : Counted(counts.All(), QStringLiteral("resource"));
}

QString SummaryOf(const ResourceCounts &counts)
{
    const QString strings = counts.strings == 0 ? QString() : InLanguages(counts.languages);
    if (counts.strings > 0 && counts.strings == counts.All())
        return Counted(counts.strings, QStringLiteral("string")) + strings;
    const QString all = ShortSummaryOf(counts);
    switch (counts.strings) {
    case 0:
        return all;
    case 1:
        return all + QStringLiteral(", 1 of them a string") + strings;
    default:
        return all + QStringLiteral(", %1 of them strings").arg(counts.strings) + strings;
    }
}

QString CountLineOf(const CResFolder &folder)
{
    const Holding holding = HoldingOf(folder);
    if (!holding.noun)
        return {};
    return holding.number == 0 ? QStringLiteral("empty") : Counted(holding.number, QLatin1String(holding.noun));
}

QString HintOf(const CResFolder &folder)
{
    if (folder.kind == KIND_LAYOUT)
        return QStringLiteral("Layout ") + folder.title;
    const Holding holding = HoldingOf(folder);
    if (!holding.noun)
        return {};
    const QString noun = QLatin1String(holding.sort) + QLatin1String(holding.noun);
    if (holding.number == 0)
        return QStringLiteral("No %1s%2 yet").arg(noun, holding.where) +
               (folder.kind == KIND_RESO_LAYOUTS ? QStringLiteral("\nTo create one, choose New in this folder's menu.")
                                                 : QString());
    const QString languages = folder.kind == KIND_STRINGS ? InLanguages(CountResources(folder).languages) : QString();
    return Counted(holding.number, noun) + holding.where + languages;
}
