// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <QSet>
#include <QStringList>

#include <atomic>
#include <utility>
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

    int files = 0;                                   ///< that were read
    QStringList patternsWithoutFile;                 ///< of section Sources
    std::vector<std::pair<QString, int>> unreadable; ///< files (absolute paths), each with the system's error number
    QSet<NarrowText> used;                           ///< the project's IDs that sources or layouts use
    std::vector<Unknown> unknown;                    ///< in the order of the files
};

/// What `ReadSources` needs to know. It is taken from a project and doesn't lead to the document, so that the sources
/// can be read in another thread.
struct SourceRequest
{
    QString folder;                          ///< the project's
    QStringList patterns;                    ///< CheckSettings::sourceFiles
    NarrowText prefix;                       ///< CheckSettings::sourcePrefix
    QSet<NarrowText> ids;                    ///< the names of the project's IDs
    QSet<NarrowText> usedElsewhere;          ///< those of them that layouts use
    QSet<QString> generated;                 ///< the names of the generated headers, which have all IDs and use none
    const std::atomic<bool> *stop = nullptr; ///< if not null: the reading ends early once it is true
};

[[nodiscard]] SourceRequest SourceRequestOf(const CheckInput &input);

/// Reads the files in section Sources of the settings, except for the generated headers. A macro that a source defines
/// isn't an unknown name.
[[nodiscard]] SourceNames ReadSources(const SourceRequest &request);
