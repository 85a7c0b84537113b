#pragma once

#include "CellFinder.h"
#include "Finding.h"
#include "LanguageFolders.h"
#include "Utf16Lines.h"

#include <unordered_set>

/// One read of a string file into the tree of `document`: new rows are made, rows that are there get new texts. Takes
/// time and memory in the size of the text, whatever it holds. For one use.
///
///     StringFileReader reader(document, source, file);
///     const int code = reader.Read();
class StringFileReader
{
public:
    /// `absolutePath` is what the findings of the model name as the file.
    StringFileReader(CResModel &model, Utf16Lines::Source bytes, QString absolutePath = {})
        : document(model), lines(std::move(bytes)), file(std::move(absolutePath))
    {
    }

    /// 0, or the code of the failure, which has been logged; what was read by then stays in the tree. `size` is how
    /// many bytes are likely to come, 0 if nobody knows.
    [[nodiscard]] int Read(qint64 size = 0);
    /// What the log's line about the failure doesn't tell; mostly empty.
    [[nodiscard]] const QString &Problem() const { return problem; }
    /// How many rows were read whole.
    [[nodiscard]] int Rows() const { return rows; }

private:
    [[nodiscard]] int ReadCount(int &languages);
    [[nodiscard]] int ReadColumns(int languages);
    [[nodiscard]] int ReadRows(qint64 size);
    void ReadRow(QStringView line);
    /// Reports an ID or a type that is none. The row is read all the same.
    void CheckFields(QStringView id, QStringView type);
    /// Does the rest for a cell that has just been made.
    void Added(CStringRes &cell, bool push);
    [[nodiscard]] bool NextLine(QStringView &line);
    /// Counts the fields that are left of a line with a number.
    void DropFurther(class FieldCursor &fields);
    /// Counts what is behind the last row: nobody reads it, and a save doesn't write it.
    void DropRest();
    /// What is wrong with the current line. Without a `text` the report's line says it.
    Finding About(const char *code, Severity severity, QStringView id = {}, const QString &text = {});
    /// Counts something of the current line that a save would lose, and says why.
    Finding Dropped(const char *code, QStringView id, const QString &why);
    /// Puts the text of a later field or row into a cell that is there.
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
    bool repeated = false;             // some folder stands in `columns` twice
    std::vector<CResFolder *> columns; // the Description folder, then the languages in the order of the file
    CellFinder cells{columns};
    bool isReload = false;                       // there were rows before
    std::unordered_set<const CStringRes *> read; // in a reload: the cells that this file has given a text
};
