#pragma once

#include "Text.h"

#include <QStringList>

/// The project whose files a transaction replaces.
struct SavedProject
{
    QString folder;            ///< the project's folder, absolute; empty: the files belong to no project
    QString journal;           ///< the journal of a save (SaveJournal), absolute; empty: there is none
    QStringList outside;       ///< folders outside `folder` where the settings have a save put files, absolute
    bool followsLinks = false; ///< a file may be written where a link leads out of the project's folder
};
