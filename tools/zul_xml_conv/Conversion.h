// SPDX-License-Identifier: MIT
#pragma once

#include "ClassCatalogue.h"
#include "IdNumbers.h"
#include "LayoutFileObject.h"
#include "Options.h"

#include <QStringList>

#include <vector>

class Environment;
class LayoutTables;

/// A layout in the device's form.
struct ConvertedLayout
{
    NarrowText id;
    QByteArray bytes;
};

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

    /// Converts the layouts in memory, with these numbers of the IDs; the header and the output aren't used. Returns
    /// false if that isn't possible; `messages` says why.
    [[nodiscard]] bool Measure(const IdNumbers &idNumbers, QHash<NarrowText, quint64> &sizes);

    /// Lines for the user; a warning doesn't stop the run.
    QStringList messages;

private:
    [[nodiscard]] bool LoadLayouts();
    [[nodiscard]] bool LoadTypes();
    [[nodiscard]] bool LoadNumbers();
    /// Converts all layouts. Returns false if one of them has an error.
    [[nodiscard]] bool Convert(const LayoutTables &tables, std::vector<ConvertedLayout> &results);
    [[nodiscard]] bool WriteLayouts(const std::vector<ConvertedLayout> &layouts);
    [[nodiscard]] bool HasTooManyNames(const LayoutTables &tables);
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
