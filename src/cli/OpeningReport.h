#pragma once

#include "OpeningCheck.h"
#include "Session.h"

/// The help text of the option --strict.
inline constexpr char STRICT_HELP[] = "Write nothing and end with 1 when the project isn't whole: an error, something "
                                      "left out, a conflict of a merge, no "
                                      "list of sizes";

/// Says on standard error what is wrong with a project that was just opened, each with its file and line. `doc` is null
/// when it didn't open. With `strict` that is everything, and true means that the command may go on; without it, only
/// what the report of the opening has no line for, and always true.
[[nodiscard]] bool TellOfOpening(Session &session, const QString &project, CResDoc *doc, bool strict);
