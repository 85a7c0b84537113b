#pragma once

#include "CResoTable.h"

#include <QStringList>

class Environment;

/// Tables that all documents of the process share, read once when the first document is made.
class ProcessTables
{
public:
    CResoTable resolutions;
    QStringList resourceTypes;
    /// The ".vcproj" path of the project loaded last.
    QString projectPath;

    /// Fills the tables that are still empty from the files that the settings name.
    void LoadOnce(const Environment &env);

private:
    bool typesRead = false;
};
