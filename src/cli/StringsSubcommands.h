// SPDX-License-Identifier: MIT
#pragma once

#include "LanguageTable.h"
#include "Subcommands.h"

#include <optional>

class CResModel;

// What several subcommands of `strings` have in common.

/// Returns the languages of the project that the option --language names; all if it names none. Returns nothing, with a
/// message, if the project lacks one.
[[nodiscard]] std::optional<std::vector<KnownLanguage>> ChosenLanguages(const CResModel &model,
                                                                        const std::vector<std::string> &wanted);

/// The message for a language that the project doesn't have.
[[nodiscard]] QString WhyNotInProject(const QString &typed, const std::vector<KnownLanguage> &languages);
