#pragma once

#include <QString>

/// The command line of one run.
struct Options
{
    QString input;   ///< -i: the file with the layouts
    QString output;  ///< -o: the folder that the converted layouts go to
    QString xml;     ///< -x: the catalogue of classes; empty, a folder or no file at all: there is none
    QString table;   ///< -t: the folder of the generated tables
    QString header;  ///< -h: the header with the numbers of the IDs
    QString subtool; ///< -e -E: makes a header of the tables

    /// False for a command line that isn't of the form of the usage. `arguments` without the program's name.
    [[nodiscard]] bool Parse(const QStringList &arguments);
    static const char *const usage;
};
