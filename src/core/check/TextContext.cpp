// SPDX-License-Identifier: MIT
#include "TextContext.h"

#include "Environment.h"
#include "ResModel.h"
#include "RuleReport.h"
#include "Rules.h"
#include "StringFileFormat.h"
#include "TextFeatures.h"
#include "TextHash.h"

#include <algorithm>

TextContext::TextContext(const CResModel &model, const CheckSettings &checkSettings)
    : env(model.env), settings(checkSettings)
{
    for (const Rule &rule : AllRules()) {
        if (rule.text && settings.LevelOf(rule) != RuleLevel::Off)
            rules.push_back(&rule);
    }
    const CResFolder *const strings = model.root.FindFolder(KIND_STRINGS, 2);
    for (size_t n = 0; strings && n < strings->subfolders.size(); ++n) {
        const CResFolder &folder = *strings->subfolders[n];
        if (folder.index == StringFileFormat::DESCRIPTION)
            continue;
        const auto code = settings.codes.find(folder.index);
        languages.push_back({folder.index, folder.title, code == settings.codes.end() ? QString() : code->second});
    }
    OpenFonts();
    if (settings.source.isEmpty())
        return;
    const auto named = std::find_if(languages.begin(), languages.end(), [&](const CheckedLanguage &language) {
        return language.name == settings.source || QString::number(language.number) == settings.source ||
               (!language.code.isEmpty() && language.code.compare(settings.source, Qt::CaseInsensitive) == 0);
    });
    knowsSource = named != languages.end();
    if (knowsSource)
        source = size_t(named - languages.begin());
}

void TextContext::OpenFonts()
{
    for (const auto &[key, font] : settings.fonts) {
        QString why;
        fonts[key] = OpenDeviceFont(font.file, font.size, font.isShaped, why);
        if (!why.isEmpty())
            fontFaults.push_back({"check-settings", Severity::Error, settings.file, 0, {}, why});
    }
    const auto find = [this](const QString &key) {
        const auto font = fonts.find(key);
        return font == fonts.end() ? nullptr : font->second.get();
    };
    for (CheckedLanguage &language : languages) {
        const QString code = language.code.toLower();
        for (const QString &key : {code, language.Primary().toString().toLower(), QStringLiteral("default")})
            language.font = language.font ? language.font : find(key);
    }
}

int TextContext::PlaceOf(qint32 number) const
{
    for (size_t i = 0; i < languages.size(); ++i) {
        if (languages[i].number == number)
            return int(i);
    }
    return -1;
}

TextLimit TextContext::LimitOf(QByteArrayView id, const RowNotes &notes) const
{
    TextLimit limit;
    const QString wideId = settings.limits.empty() ? QString() : env.NarrowToWide(id);
    for (const TextLimit &candidate : settings.limits) {
        if (MatchesPattern(wideId, candidate.pattern)) {
            limit = candidate;
            break;
        }
    }
    limit.length = notes.length > 0 ? notes.length : limit.length;
    limit.width = notes.width > 0 ? notes.width : limit.width;
    limit.lines = notes.lines > 0 ? notes.lines : limit.lines;
    return limit;
}

RowCheck::RowCheck(const TextContext &textContext) : context(textContext), texts(textContext.Languages().size()) {}

void RowCheck::Check(const CStringRes &head, RuleReport &report)
{
    if (texts.empty())
        return;
    std::fill(texts.begin(), texts.end(), Text{{}, IS_EMPTY});
    size_t next = 0; // the records are usually in the order of the languages
    const auto take = [&](const CStringRes &record) {
        if (record.language == StringFileFormat::DESCRIPTION)
            return;
        const bool isNext = next < texts.size() && context.Languages()[next].number == record.language;
        const int place = isNext ? int(next) : context.PlaceOf(record.language);
        if (place < 0)
            return;
        texts[size_t(place)] = {record.text, FeaturesOf(record.text)};
        next = size_t(place) + 1;
    };
    for (const CStringRes *record = &head; record; record = record->next)
        take(*record);
    for (const CStringRes *record = head.prev; record; record = record->prev)
        take(*record);
    const RowNotes notes = NotesOf(head.text);
    for (size_t i = 0; i < texts.size(); ++i)
        CheckText(head, notes, i, report);
}

void RowCheck::CheckText(const CStringRes &head, const RowNotes &notes, size_t language, RuleReport &report)
{
    const Text &source = texts[context.Source()];
    const Text &text = texts[language];
    const TextPair pair{head.Id()->name,
                        source.text,
                        text.text,
                        source.features,
                        text.features,
                        context.Languages()[context.Source()],
                        context.Languages()[language],
                        notes};
    const quint32 features = source.features | text.features;
    for (const Rule *rule : context.Rules()) {
        if ((rule->needs & features) == 0)
            continue;
        QString wrong = rule->text(pair, context);
        if (wrong.isEmpty())
            continue;
        Finding finding;
        finding.id = context.Env().NarrowToWide(head.Id()->name);
        finding.text = std::move(wrong);
        finding.language = pair.language.number;
        finding.basis = HashOf(pair.text, HashOf(pair.source));
        report.Begin(*rule);
        report.AddForRow(notes, std::move(finding));
    }
}
