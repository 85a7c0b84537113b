// SPDX-License-Identifier: MIT
#pragma once

#include "LanguageTable.h"
#include "Subcommands.h"

#include <optional>

class CResModel;

// The subcommands of `strings`. Their `Add` gets the subcommand `strings`.

std::unique_ptr<ISubcommand> MakeStringsExportSubcommand();
std::unique_ptr<ISubcommand> MakeStringsImportSubcommand();
std::unique_ptr<ISubcommand> MakeStringsStatsSubcommand();
std::unique_ptr<ISubcommand> MakeStringsCodePointsSubcommand();
std::unique_ptr<ISubcommand> MakeStringsCatSubcommand();
std::unique_ptr<ISubcommand> MakeStringsListSubcommand();
std::unique_ptr<ISubcommand> MakeStringsSetSubcommand();
std::unique_ptr<ISubcommand> MakeStringsAddLanguageSubcommand();

/// Adds the option --language, which chooses languages of the project and can be repeated.
void AddProjectLanguages(CLI::App &subcommand, std::vector<std::string> &wanted);
/// Returns the languages of the project that the option names; all if it names none. Returns nothing, with a message,
/// if the project lacks one.
[[nodiscard]] std::optional<std::vector<KnownLanguage>> ChosenLanguages(const CResModel &model,
                                                                        const std::vector<std::string> &wanted);

/// The message for a language that the project doesn't have.
[[nodiscard]] QString WhyNotInProject(const QString &typed, const std::vector<KnownLanguage> &languages);
