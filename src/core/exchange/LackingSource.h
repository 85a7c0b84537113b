// SPDX-License-Identifier: MIT
#pragma once

#include "Environment.h"
#include "IdNames.h"

/// Warns that an export leaves out rows because they have no text in the language to translate from.
inline void ReportLackingSource(Environment &env, int rows, const QString &language)
{
    if (rows > 0)
        env.Report({"export.no-source", Severity::Warning, {}, 0, {}, {}},
                   rows == 1 ? "%d row without a text in %s is left out."
                             : "%d rows without a text in %s are left out.",
                   rows, Shown(language).constData());
}
