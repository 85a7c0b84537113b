// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <QSet>
#include <QStringList>

#include <vector>

struct CheckInput;

/// The names in the sources of the application, as far as the project is concerned.
struct SourceNames
{
    /// A name with the prefix of the project's IDs that no resource has, at its first place in a file.
    struct Unknown
    {
        NarrowText name;
        QString file; ///< absolute path
        int line = 0;
        int column = 0;
    };

    int files = 0;                   ///< that were read
    QStringList patternsWithoutFile; ///< of section Sources
    QStringList unreadable;          ///< why a file couldn't be read
    QSet<NarrowText> used;           ///< the project's IDs that sources or layouts use
    std::vector<Unknown> unknown;    ///< in the order of the files
};

/// Reads the files in section Sources of the settings, except for the generated headers, and the layouts of the
/// project. A macro that a source defines isn't an unknown name.
[[nodiscard]] SourceNames ReadSources(const CheckInput &input);
