// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <vector>

class Environment;

/// A version of a string file. Its rows and cells are views of the text, which isn't copied.
class MergeTable
{
public:
    struct Column
    {
        int number;         ///< of the language
        QStringView header; ///< the field of line 2
    };
    struct Row
    {
        QStringView id;
        QStringView line; ///< with its line feed
        int lineNumber;   ///< from 1
        /// The line without its end.
        [[nodiscard]] QStringView Body() const { return line.chopped(line.endsWith(u"\r\n") ? 2 : 1); }
    };
    /// The cells of a row before those of the languages.
    enum Cell : int
    {
        TYPE,
        DESCRIPTION,
        FIRST_LANGUAGE,
    };

    /// Reads a file, which must outlive this object. Returns the first thing in it that a merge could lose or mistake,
    /// with its line; empty on success. An empty text has no rows and no languages.
    [[nodiscard]] QString Read(const Environment &env, const QString &text);

    /// Splits a row into its cells, in the order of `Cell` and `columns`. Missing cells are empty; without a column of
    /// types the type is "Normal".
    void Split(const Row &row, std::vector<QStringView> &cells) const;

    std::vector<Column> columns; ///< of the languages
    std::vector<Row> rows;
    bool hasType = true;
    QStringView lines[2]; ///< the first two lines of the file, without their ends

private:
    class Lines;
    [[nodiscard]] QString ReadHeader(const Environment &env, Lines &lines);
    [[nodiscard]] QString ReadColumns(const Environment &env, QStringView line);
    [[nodiscard]] QString ReadRow(QStringView line, int lineNumber);
};
