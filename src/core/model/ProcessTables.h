// SPDX-License-Identifier: MIT
#pragma once

#include "CResoTable.h"

#include <QStringList>

#include <map>
#include <memory>

class ClassCatalogue;
class Environment;

/// Tables that all documents of the process share, read once when the first document is made.
class ProcessTables
{
public:
    CResoTable resolutions;
    QStringList resourceTypes;
    /// The ".vcproj" path of the project loaded last.
    QString projectPath;
    /// The catalogues of layout types by the path of their file. A catalogue is read with the first project that names
    /// it.
    std::map<QString, std::shared_ptr<ClassCatalogue>> catalogues;
    /// The catalogue of the project loaded last; null before a project is loaded.
    std::shared_ptr<ClassCatalogue> classes;

    /// Fills the tables that are still empty from the files that the settings name.
    void LoadOnce(const Environment &env);

private:
    bool typesRead = false;
};
