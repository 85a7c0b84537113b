// SPDX-License-Identifier: MIT
#pragma once

#include "CheckSettings.h"
#include "DeviceFont.h"
#include "RowTexts.h"
#include "TextPair.h"

#include <vector>

class CResModel;
class CStringRes;
class Environment;

/// What the text rules know of a project beside the row that they check: its languages and settings. Made once for a
/// check, and again when the languages of the project change.
class TextContext
{
public:
    /// The settings and the model's environment must outlive this object.
    TextContext(const CResModel &model, const CheckSettings &checkSettings);
    TextContext(const TextContext &) = delete;
    TextContext &operator=(const TextContext &) = delete;

    [[nodiscard]] const Environment &Env() const { return env; }
    [[nodiscard]] const CheckSettings &Settings() const { return settings; }
    /// The languages of the project, in its order.
    [[nodiscard]] const std::vector<CheckedLanguage> &Languages() const { return languages; }
    /// The place of the source language in `Languages`; 0 if the project has no languages.
    [[nodiscard]] size_t Source() const { return source; }
    /// The place of a language in `Languages`, or -1.
    [[nodiscard]] int PlaceOf(qint32 number) const;
    /// What of the settings can't be used in this project: fonts, the source language.
    [[nodiscard]] const std::vector<Finding> &Faults() const { return faults; }
    /// The text rules that aren't off.
    [[nodiscard]] const std::vector<const Rule *> &Rules() const { return rules; }
    /// Returns the limits of a row: those of its notes, and otherwise those of the settings.
    [[nodiscard]] TextLimit LimitOf(QStringView id, const RowNotes &notes) const;

private:
    void OpenFonts();

    const Environment &env;
    const CheckSettings &settings;
    std::vector<CheckedLanguage> languages;
    std::map<QString, std::unique_ptr<IDeviceFont>> fonts; // by the key of the settings
    std::vector<Finding> faults;
    std::vector<const Rule *> rules;
    size_t source = 0;
};

/// Checks rows of the string table with the text rules. Keeps its memory from row to row, so checking a row without a
/// finding allocates none. Each thread has its own.
class RowCheck
{
public:
    /// The context must outlive this object.
    explicit RowCheck(const TextContext &textContext);

    /// Checks one row, given its record in the Description folder, and adds the findings to the report. They have no
    /// file and line yet; PlaceInStringFile finds these.
    void Check(const CStringRes &head, RuleReport &report);
    /// Returns a hash of the source text of the row that was checked last. It isn't the same on all machines.
    [[nodiscard]] size_t SourceHash() const;

private:
    void CheckText(const CStringRes &head, const RowNotes &notes, const TextLimit &limit, size_t language,
                   RuleReport &report);
    void AddUnknownNotes(const CStringRes &head, const RowNotes &notes, RuleReport &report) const;
    [[nodiscard]] TextLimit LimitOf(const CStringRes &head, const RowNotes &notes);

    const TextContext &context;
    RowTexts texts;
    std::vector<quint32> features; // of the texts
    std::vector<char16_t> id;      // of the row, when limits depend on it
};
