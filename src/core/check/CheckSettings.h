// SPDX-License-Identifier: MIT
#pragma once

#include "Finding.h"
#include "Rule.h"
#include "ScreenSize.h"

#include <QStringList>

#include <map>
#include <vector>

/// The kinds of placeholders that a project's texts use, as bits.
enum PlaceholderKind : quint32
{
    PLACEHOLDERS_PRINTF = 1,   ///< %d, %-5.2f, %1$s
    PLACEHOLDERS_BRACES = 2,   ///< {}, {0}, {name}
    PLACEHOLDERS_NUMBERED = 4, ///< %1, %L1
};

/// A device's font for one language.
struct FontSetting
{
    QString file;          ///< absolute path
    QString written;       ///< the path as the settings have it
    int size = 0;          ///< pixels
    int line = 0;          ///< of the settings
    bool isShaped = false; ///< the device shapes texts; otherwise a width is the sum of the characters' widths
};

/// The limits of the texts of those IDs that a pattern matches.
struct TextLimit
{
    QString pattern; ///< of IDs; "*" matches any characters
    int length = 0;  ///< characters; 0 for no limit
    int width = 0;   ///< pixels; 0 for no limit
    int lines = 0;   ///< 0 for no limit
};

/// The forms of sounds that a device plays, for WAV files. An empty list allows any.
struct AudioLimits
{
    std::vector<int> codecs; ///< the numbers of formats in WAV files (WaveCodecOf)
    std::vector<int> rates;  ///< samples a second
    std::vector<int> channels;
    std::vector<int> bits; ///< of a sample
};

/// What a project's file "morvanite-check.ini" tells the check. The default values are those without such a file.
struct CheckSettings
{
    CheckSettings();

    QString file;   ///< the absolute path of the settings, which need not exist
    QString source; ///< the source language as it was written: a name, a number or a code; empty for the first language
    int sourceLine = 0; ///< the line of the key `source` in the settings; 0 if it isn't there
    quint32 placeholders = PLACEHOLDERS_PRINTF | PLACEHOLDERS_BRACES | PLACEHOLDERS_NUMBERED;
    std::vector<ScreenSize> target;       ///< the screens that are built for; empty for all that the project uses
    quint64 budget = 0;                   ///< the most bytes of a payload; 0: no limit
    int budgetLine = 0;                   ///< the line of the key `budget` in the settings
    bool convertsImages = true;           ///< the packs convert images
    std::vector<RuleLevel> levels;        ///< by the index of the rule
    std::vector<QStringList> ignored;     ///< by the index of the rule: patterns of IDs
    QStringList sourceFiles;              ///< patterns of the files that use the IDs, relative to the project's folder
    int sourceFilesLine = 0;              ///< the line of their key in the settings; 0 if it isn't there
    QString sourcePrefix;                 ///< what the IDs in these files begin with
    std::map<QString, FontSetting> fonts; ///< by language code, in lower case; "default" for the others
    std::vector<TextLimit> limits;
    std::map<qint32, QString> codes; ///< the codes of languages by number
    AudioLimits audio;

    [[nodiscard]] RuleLevel LevelOf(const Rule &rule) const;
    /// Returns whether the settings ignore a rule for an ID.
    [[nodiscard]] bool Ignores(const Rule &rule, const QString &id) const;
};

/// Returns whether a text matches a pattern in which "*" matches any characters. The case of letters matters.
[[nodiscard]] bool MatchesPattern(QStringView text, QStringView pattern);

/// Returns the path of the settings of the project in a folder.
[[nodiscard]] QString CheckSettingsPath(const QString &folder);

/// Reads the settings of the project in a folder (absolute path). Adds a finding of the rule "check-settings" for each
/// line that has no meaning; the other lines are used.
[[nodiscard]] CheckSettings ReadCheckSettings(const QString &folder, std::vector<Finding> &findings);
