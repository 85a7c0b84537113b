// SPDX-License-Identifier: MIT
#pragma once

#include "CellFinder.h"
#include "Finding.h"
#include "LanguageFolders.h"
#include "Utf16Lines.h"

#include <unordered_set>

/// Reads a string file into the tree of `document`: makes new rows, and gives new texts to existing rows. Takes time
/// and memory proportional to the size of the text, whatever its content is. An object can be used only once.
///
///     StringFileReader reader(document, source, file);
///     const int code = reader.Read();
class StringFileReader
{
public:
    /// `absolutePath` is the path of the file in the findings.
    StringFileReader(CResModel &model, Utf16Lines::Source bytes, QString absolutePath = {})
        : document(model), lines(std::move(bytes)), file(std::move(absolutePath))
    {
    }

    /// Returns 0, or the code of the failure, which has been logged. What was read before the failure stays in the
    /// tree. `size` is the expected number of bytes; 0 if it isn't known.
    [[nodiscard]] int Read(qint64 size = 0);
    /// Details of the failure that the log's line doesn't have; usually empty.
    [[nodiscard]] const QString &Problem() const { return problem; }
    /// The number of rows that were read completely.
    [[nodiscard]] int Rows() const { return rows; }

private:
    [[nodiscard]] int ReadCount(int &languages);
    [[nodiscard]] int ReadColumns(int languages);
    [[nodiscard]] int ReadRows(qint64 size);
    void ReadRow(QStringView line);
    /// Reports an invalid ID or type. The row is read nevertheless.
    void CheckFields(QStringView id, QStringView type);
    /// Completes a cell that has just been made.
    void Added(CStringRes &cell, bool push);
    [[nodiscard]] bool NextLine(QStringView &line);
    /// Counts the remaining fields of a line with a number as dropped.
    void DropFurther(class FieldCursor &fields);
    /// Counts the lines after the last row as dropped: they aren't read, and a save doesn't write them.
    void DropRest();
    /// Returns a finding about the current line. Without `text` the line of the report is its text.
    Finding About(const char *code, Severity severity, QStringView id = {}, const QString &text = {});
    /// Counts something of the current line that a save would lose, and returns the finding. `why` is the reason.
    Finding Dropped(const char *code, QStringView id, const QString &why);
    /// Replaces the text of an existing cell by that of a later field or row.
    void Overwrite(CStringRes &cell, QStringView text);
    [[nodiscard]] int LineError();
    [[nodiscard]] int HeaderError(int line, QStringView expected);

    CResModel &document;
    Utf16Lines lines;
    QString file;
    int lineNumber = 0; // of the line that was read last
    int rows = 0;
    QString problem;
    bool hasType = false;
    LanguageFolders folders{document};
    bool repeated = false;             // a folder is in `columns` twice
    std::vector<CResFolder *> columns; // the Description folder, then the languages in the order of the file
    CellFinder cells{columns};
    bool isReload = false;                       // the tree had rows before
    std::unordered_set<const CStringRes *> read; // in a reload: the cells that this file has given a text
};
