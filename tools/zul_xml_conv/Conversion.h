// SPDX-License-Identifier: MIT
#pragma once

#include "ClassCatalogue.h"
#include "IdNumbers.h"
#include "LayoutFileObject.h"
#include "Options.h"

#include <QStringList>

class Environment;
class LayoutTables;

/// One run of the converter. Converts the layouts of a file, or writes the tables of numbers.
class Conversion
{
public:
    Conversion(Environment &environment, const Options &runOptions)
        : env(environment), options(runOptions), file(environment, pool, ANY_RESOLUTION)
    {
    }

    /// Returns false if nothing, or not everything, was written; `messages` says why.
    [[nodiscard]] bool Run();

    /// Lines for the user; a warning doesn't stop the run.
    QStringList messages;

private:
    [[nodiscard]] bool LoadLayouts();
    [[nodiscard]] bool LoadTypes();
    [[nodiscard]] bool LoadNumbers();
    [[nodiscard]] bool Convert(const LayoutTables &tables);
    [[nodiscard]] bool HasTablesOfOthers(const LayoutTables &tables);
    [[nodiscard]] bool WriteTables(const LayoutTables &tables);
    [[nodiscard]] bool RunSubTool(const QString &enums, const QString &table, const QString &header);
    [[nodiscard]] bool WriteFile(const QString &path, const QByteArray &bytes);
    [[nodiscard]] bool AskForTables() const;
    void TellWhyNotLoaded(int code);

    Environment &env;
    const Options &options;
    IDPool pool;
    LayoutFileObject file;
    ClassCatalogue types;
    IdNumbers numbers;
};
