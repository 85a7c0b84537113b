// SPDX-License-Identifier: MIT
#pragma once

#include <span>

/// What a code of a finding (Finding::code) means.
struct FindingKind
{
    const char *code;
    const char *when;     ///< when it occurs: a sentence without its full stop
    const char *whatToDo; ///< sentences
    const char *document; ///< in the folder of the documents
};

/// The codes of the findings of loads, saves and imports, sorted.
[[nodiscard]] std::span<const FindingKind> FindingKinds();
