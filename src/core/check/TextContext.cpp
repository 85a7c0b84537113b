// SPDX-License-Identifier: MIT
#include "TextContext.h"

#include "Environment.h"
#include "LanguageTable.h"
#include "ResModel.h"
#include "RuleReport.h"
#include "Rules.h"
#include "StringFileFormat.h"
#include "TextFeatures.h"
#include "TextHash.h"
#include "TextLimits.h"

#include <QHashFunctions>

#include <algorithm>

TextContext::TextContext(const CResModel &model, const CheckSettings &checkSettings)
    : env(model.env), settings(checkSettings)
{
    for (const Rule &rule : AllRules()) {
        if (rule.text && settings.LevelOf(rule) != RuleLevel::Off)
            rules.push_back(&rule);
    }
    std::map<qint32, QString> codes = settings.codes;
    for (const KnownLanguage &known : KnownLanguages(model.env))
        codes.emplace(known.number, known.code);
    const CResFolder *const strings = model.root.FindFolder(KIND_STRINGS, 2);
    for (size_t n = 0; strings && n < strings->subfolders.size(); ++n) {
        const CResFolder &folder = *strings->subfolders[n];
        if (folder.index == StringFileFormat::DESCRIPTION)
            continue;
        languages.push_back({folder.index, folder.title, codes[folder.index]});
    }
    OpenFonts();
    if (settings.source.isEmpty())
        return;
    const auto named = std::find_if(languages.begin(), languages.end(), [&](const CheckedLanguage &language) {
        return language.name == settings.source || QString::number(language.number) == settings.source ||
               (!language.code.isEmpty() && language.code.compare(settings.source, Qt::CaseInsensitive) == 0);
    });
    if (named != languages.end())
        source = size_t(named - languages.begin());
    else
        faults.push_back(
            {"check-settings",
             Severity::Error,
             settings.file,
             settings.sourceLine,
             {},
             QStringLiteral("section Check, key source: the project has no language \"%1\"").arg(settings.source)});
}

void TextContext::OpenFonts()
{
    for (const auto &[key, font] : settings.fonts) {
        QString why;
        fonts[key] = OpenDeviceFont(font.file, font.size, font.isShaped, why);
        if (!why.isEmpty())
            faults.push_back({"check-settings",
                              Severity::Error,
                              settings.file,
                              font.line,
                              {},
                              QStringLiteral("section Font, key %1: %2: %3").arg(key, font.written, why)});
    }
    for (CheckedLanguage &language : languages) {
        const QString code = language.code.toLower();
        for (const QString &key : {code, language.Primary().toString().toLower(), QStringLiteral("default")}) {
            const auto font = fonts.find(key);
            if (language.font || font == fonts.end())
                continue;
            language.font = font->second.get();
            language.fontLine = settings.fonts.at(key).line;
        }
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

TextLimit TextContext::LimitOf(QStringView id, const RowNotes &notes) const
{
    return ::LimitOf(settings, id, notes);
}

RowCheck::RowCheck(const TextContext &textContext)
    : context(textContext), texts(textContext), features(textContext.Languages().size())
{
}

void RowCheck::Check(const CStringRes &head, RuleReport &report)
{
    if (features.empty())
        return;
    texts.Take(head);
    for (size_t i = 0; i < features.size(); ++i)
        features[i] = FeaturesOf(texts[i]);
    const RowNotes notes = NotesOf(head.Text());
    if (notes.hasUnknown)
        AddUnknownNotes(head, notes, report);
    const TextLimit limit = LimitOf(head, notes);
    for (size_t i = 0; i < features.size(); ++i)
        CheckText(head, notes, limit, i, report);
}

void RowCheck::AddUnknownNotes(const CStringRes &head, const RowNotes &notes, RuleReport &report) const
{
    if (!report.Begin(*FindRule(u"check-settings")))
        return;
    ForEachUnknownNote(notes, [&](QStringView word) {
        Finding finding;
        finding.id = context.Env().NarrowToWide(head.Id()->name);
        finding.text = QStringLiteral("the notes at the end of the description have an unknown word \"%1\"").arg(word);
        finding.column = int(word.data() - head.Text().data()) + 1;
        report.AddForRow(notes, std::move(finding));
    });
}

size_t RowCheck::SourceHash() const
{
    return features.empty() ? 0 : qHash(texts[context.Source()]);
}

TextLimit RowCheck::LimitOf(const CStringRes &head, const RowNotes &notes)
{
    if (!context.Settings().limits.empty()) {
        const NarrowText &name = head.Id()->name; // IDs are names in C
        id.assign(name.begin(), name.end());
    }
    return context.LimitOf(id, notes);
}

void RowCheck::CheckText(const CStringRes &head, const RowNotes &notes, const TextLimit &limit, size_t language,
                         RuleReport &report)
{
    const size_t source = context.Source();
    const TextPair pair{texts[source],
                        texts[language],
                        features[source],
                        features[language],
                        context.Languages()[source],
                        context.Languages()[language],
                        notes,
                        limit};
    const quint32 present = pair.sourceFeatures | pair.features;
    for (const Rule *rule : context.Rules()) {
        if ((rule->needs & present) == 0)
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
