// SPDX-License-Identifier: MIT
#pragma once

#include "Finding.h"
#include "TextPair.h"

#include <QByteArray>

#include <vector>

/// The result of a check, as the outputs need it.
struct CheckResult
{
    std::vector<Finding> findings;
    std::vector<Finding> known; ///< those that the baseline accepts
    bool hasBaseline = false;
    std::vector<CheckedLanguage> languages;
    QString project;    ///< the absolute path of the ".vcproj" file
    QString relativeTo; ///< the absolute path of the folder to which the outputs make paths relative
    QString version;    ///< of the program

    [[nodiscard]] QString ProjectFolder() const;
    /// Returns a file's path relative to `relativeTo`.
    [[nodiscard]] QString Relative(const QString &file) const;
    [[nodiscard]] QString LanguageName(qint32 number) const;
    [[nodiscard]] int Count(Severity severity) const;
};

/// Replaces the findings of "translation-missing" by one for each language, with their number.
void CountMissingTexts(CheckResult &result);

/// The word for a severity in the outputs: "error", "warning" or "note".
[[nodiscard]] const char *SeverityWord(Severity severity);

/// Returns a finding in words, without its place: "ID, language: text".
[[nodiscard]] QString MessageOf(const CheckResult &result, const Finding &finding);

/// Returns a finding as compilers write them: "FILE:LINE:COLUMN: error: ID, LANGUAGE: text [rule]", with a line end.
[[nodiscard]] QByteArray CheckLine(const CheckResult &result, const Finding &finding);
/// Returns the line of each finding.
[[nodiscard]] QByteArray CheckText(const CheckResult &result);
/// Returns the findings as JSON: "version", "project", "counts", "findings".
[[nodiscard]] QByteArray CheckJson(const CheckResult &result);
/// Returns the findings as SARIF 2.1.0 (Static Analysis Results Interchange Format, OASIS).
[[nodiscard]] QByteArray CheckSarif(const CheckResult &result);
