// SPDX-License-Identifier: MIT
#include "PseudoTranslation.h"

#include "CResDoc.h"
#include "LanguageFolders.h"
#include "Paths.h"
#include "Placeholders.h"
#include "PseudoText.h"
#include "RowBuilder.h"
#include "TextContext.h"
#include "TextDirection.h"

#include <algorithm>

namespace
{

QString WhyUnknown(const QString &language, const std::vector<CheckedLanguage> &languages)
{
    QStringList names;
    for (const CheckedLanguage &each : languages)
        names.append(QStringLiteral("\"%1\"").arg(each.name));
    return QStringLiteral("the project has no language \"%1\"; it has %2")
        .arg(language, names.isEmpty() ? QStringLiteral("none") : names.join(QStringLiteral(", ")));
}

} // namespace

QString TranslateToPseudo(CResDoc &document, const QString &language, bool &isKnown)
{
    std::vector<Finding> findings;
    CheckSettings settings = ReadCheckSettings(DirectoryOf(document.PathName()), findings);
    settings.fonts.clear(); // opening them would take time, and a missing one doesn't matter
    const TextContext context(document, settings);
    isKnown = true;
    if (!context.Faults().empty())
        return settings.file + QStringLiteral(": ") + context.Faults().front().text;
    const std::vector<CheckedLanguage> &languages = context.Languages();
    const auto wanted = std::find_if(languages.begin(), languages.end(), [&](const CheckedLanguage &each) {
        return each.name.compare(language, Qt::CaseInsensitive) == 0 || QString::number(each.number) == language ||
               (!each.code.isEmpty() && each.code.compare(language, Qt::CaseInsensitive) == 0);
    });
    isKnown = wanted != languages.end();
    if (!isKnown)
        return WhyUnknown(language, languages);
    const bool isRightToLeft = DirectionOfLanguage(wanted->name) == Qt::RightToLeft;
    CResFolder &folder = LanguageFolders(document).Ensure(wanted->number, wanted->name);
    RowTexts texts(context);
    const CResFolder *const rows = document.root.FindFolder(KIND_STRINGS, 2)->subfolders.front().get();
    CBaseRes *following = nullptr; // the record of the row after this one; the records are in the order of the rows
    std::vector<CStringRes *> heads;
    for (CBaseRes *res : rows->resources)
        heads.push_back(static_cast<CStringRes *>(res));
    for (auto place = heads.rbegin(); place != heads.rend(); ++place) {
        CStringRes *const head = *place;
        texts.Take(*head);
        const QStringView source = texts[context.Source()];
        CStringRes *record = head->FindLanguage(wanted->number);
        if (!record && !source.isEmpty())
            record = RowBuilder(document, *head).Add(folder, {}, following);
        if (!record)
            continue;
        record->PutText(PseudoText(source, PlaceholderKindsOf(source, settings.placeholders), isRightToLeft));
        following = record;
    }
    return {};
}
