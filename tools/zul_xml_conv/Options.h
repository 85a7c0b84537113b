// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The command line of one run.
struct Options
{
    QString input;   ///< -i: the file with the layouts
    QString output;  ///< -o: the folder that the converted layouts go to
    QString xml;     ///< -x: the catalogue of classes; none if empty, a folder or not an existing file
    QString table;   ///< -t: the folder of the generated tables
    QString header;  ///< -h: the header with the numbers of the IDs
    QString subtool; ///< -e -E: makes a header from the tables

    /// Returns false for a command line that doesn't have the form of the usage. `arguments` doesn't include the
    /// program's name.
    [[nodiscard]] bool Parse(const QStringList &arguments);
    static const char *const usage;
};
