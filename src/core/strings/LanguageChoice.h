// SPDX-License-Identifier: MIT
#pragma once

#include "LanguageTable.h"

class CResModel;

/// Returns the first language that has the text as its number, its code or its name, in any case; null if there is
/// none.
[[nodiscard]] const KnownLanguage *FindLanguage(const std::vector<KnownLanguage> &languages, QStringView text);

/// Explains that no language of the table has the text as its name, number or code, and suggests some.
[[nodiscard]] QString WhyLanguageUnknown(const std::vector<KnownLanguage> &languages, const QString &text);

/// Returns the languages of a project in their order, with the project's own names and the codes of the table.
[[nodiscard]] std::vector<KnownLanguage> ProjectLanguages(const CResModel &model);
