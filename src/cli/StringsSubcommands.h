// SPDX-License-Identifier: MIT
#pragma once

#include "LanguageTable.h"
#include "Subcommands.h"

// The subcommands of `strings`. Their `Add` gets the subcommand `strings`.

std::unique_ptr<ISubcommand> MakeStringsExportSubcommand();
std::unique_ptr<ISubcommand> MakeStringsImportSubcommand();
std::unique_ptr<ISubcommand> MakeStringsStatsSubcommand();
std::unique_ptr<ISubcommand> MakeStringsCodePointsSubcommand();
std::unique_ptr<ISubcommand> MakeStringsCatSubcommand();
std::unique_ptr<ISubcommand> MakeStringsListSubcommand();
std::unique_ptr<ISubcommand> MakeStringsSetSubcommand();
std::unique_ptr<ISubcommand> MakeStringsAddLanguageSubcommand();

/// The message for a language that the project doesn't have.
[[nodiscard]] QString WhyNotInProject(const QString &typed, const std::vector<KnownLanguage> &languages);
