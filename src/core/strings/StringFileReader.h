#pragma once

#include "CellFinder.h"
#include "Utf16Lines.h"

#include <unordered_map>

class CResModel;

/// One read of a string file into the tree of `document`: new rows are made, rows that are there get new texts. Takes
/// time and memory in the size of the text, whatever it holds. For one use.
///
///     StringFileReader reader(document, source);
///     const int code = reader.Read();
class StringFileReader
{
public:
    StringFileReader(CResModel &model, Utf16Lines::Source bytes) : document(model), lines(std::move(bytes)) {}

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
    void MakeCell(CResFolder &folder, std::unique_ptr<CStringRes> made, QStringView text, CStringRes *previous,
                  bool push);
    [[nodiscard]] CResFolder *EnsureFolder(qint32 index, const QString &title);
    [[nodiscard]] int LineError();
    [[nodiscard]] int HeaderError(int line, QStringView expected);

    CResModel &document;
    Utf16Lines lines;
    int rows = 0;
    QString problem;
    bool hasType = false;
    bool repeated = false;             // some folder stands in `columns` twice
    std::vector<CResFolder *> columns; // the Description folder, then the languages in the order of the file
    CellFinder cells{columns};

    CResFolder *strings = nullptr;
    std::unordered_map<qint32, CResFolder *> byNumber; // the language folders, found without walking them
};
