// SPDX-License-Identifier: MIT
#pragma once

#include "LanguageTable.h"

#include <QString>

#include <map>
#include <optional>
#include <vector>

class CResModel;
struct CheckSettings;

/// The languages that a project has or can have, as translation files and people name them.
///
/// The code of a language (BCP 47) is the one of the project's settings, or that of the language table; a language
/// without one has the code "x-morvanite-" with its number.
class ExchangeLanguages
{
public:
    ExchangeLanguages(const CResModel &model, const CheckSettings &settings);

    [[nodiscard]] QString CodeOf(qint32 number) const;
    /// The project's name of a language, or that of the language table; empty if neither has it.
    [[nodiscard]] QString NameOf(qint32 number) const;
    /// Returns the language with a code, or else with the longest beginning of it ("de" for "de-CH").
    [[nodiscard]] std::optional<qint32> OfCode(const QString &code) const;
    /// Returns the language with a name, number or code.
    [[nodiscard]] std::optional<qint32> Find(const QString &word) const;
    /// The languages of the project, in its order.
    [[nodiscard]] const std::vector<qint32> &OfProject() const { return own; }
    [[nodiscard]] bool IsInProject(qint32 number) const;
    /// The source language: the one of the settings, or else the first one. Nullopt if the project has none, or not the
    /// one of the settings.
    [[nodiscard]] std::optional<qint32> Source() const { return source; }

private:
    [[nodiscard]] std::optional<qint32> OfExactCode(const QString &code) const;

    std::vector<qint32> own;
    std::vector<KnownLanguage> known;
    std::map<qint32, QString> names;
    std::map<qint32, QString> codes; // of the settings
    std::optional<qint32> source;
};
