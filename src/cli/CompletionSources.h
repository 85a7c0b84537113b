// SPDX-License-Identifier: MIT
#pragma once

#include "CommandLineWalk.h"

/// Lists the candidates for a kind of value that depends on the settings or on the project: a
/// CommandLineCompletion::Source.
[[nodiscard]] std::string CandidatesOf(std::string_view kind, const CommandLineWalk &walk, const CLI::Option &option);
