// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <QStringList>

/// The project whose files a transaction replaces. Paths are absolute.
struct SavedProject
{
    QString folder = {};       ///< the project's folder; empty: the files belong to no project
    QString journal = {};      ///< the journal of a save (SaveJournal); empty: there is none
    QStringList files = {};    ///< the files with fixed names that a save writes
    bool followsLinks = false; ///< a file may be written where a link leads out of the project's folder
    QStringList patterns = {}; ///< other files that a save may write: "%s" in the name is any text without a separator
    QString config = {};       ///< the project's configuration, which no save writes
};
