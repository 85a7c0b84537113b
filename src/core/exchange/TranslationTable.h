// SPDX-License-Identifier: MIT
#pragma once

#include "CellFinder.h"
#include "ImportSource.h"
#include "Text.h"
#include "TranslationText.h"

#include <QHashFunctions>

#include <unordered_map>
#include <vector>

class CResModel;
class IDRecord;

/// The texts of translation files as one table: a row for each ID, a column for each language of a file. A row that the
/// project lacks has its description and its source text too, from the first file with the ID.
///
/// Compares the source texts of the files with those of the project, so the project must not change meanwhile.
class TranslationTable : public IImportSource
{
public:
    /// `document` must outlive this object.
    explicit TranslationTable(CResModel &document);

    enum class Kind
    {
        Description,
        Source, ///< the source texts of new rows
        Target,
    };
    struct Column
    {
        Kind kind;
        qint32 language;
        qint32 source;       ///< of a target: the language that it is translated from
        QString file;        ///< of a target: its absolute path
        QString name;        ///< the file as messages name it
        bool isUsed = false; ///< the file has at least one text in it
    };

    /// Begins the texts of a language in a file. Those of an equal part join it.
    void BeginPart(qint32 language, qint32 source, const QString &file, const QString &name);
    /// Adds a text to the part that was begun last. Returns false if the part has its ID already; `otherLine` is the
    /// line there.
    [[nodiscard]] bool Add(TranslationText &text, int &otherLine);

    [[nodiscard]] quint32 RowCount() const { return quint32(rows.size()); }
    /// The columns, of which the first has the number 1.
    [[nodiscard]] const std::vector<Column> &Columns() const { return columns; }
    /// Returns the kind of a row in the project; false for a new row.
    [[nodiscard]] bool IsPush(quint32 row) const;

    QString Id(quint32 row) const override { return rows[row].id; }
    QString Text(quint32 row, quint32 column) const override;
    quint32 EndColumn(quint32 /*row*/) const override { return quint32(columns.size()) + 1; }
    ImportPlace PlaceOf(quint32 row, quint32 column) const override;
    bool HasCell(quint32 row, quint32 column) const override;
    bool IsStale(quint32 row, quint32 column) const override;
    bool IsUnfinished(quint32 row, quint32 column) const override;

private:
    static constexpr quint32 NONE = ~quint32(0);
    struct Row
    {
        QString id;
        QString note;
        QString source;                   // the text of `sourceLanguage`: that of the project, or of a new row
        const IDRecord *record = nullptr; // null for a new row
        qint32 sourceLanguage = 0;
        quint32 first = NONE; // index in `cells`
        quint32 last = NONE;
    };
    struct Cell
    {
        QString text;
        quint32 next = NONE; // the next one of the row
        quint32 column = 0;
        int line = 0;
        bool isStale = false;
        bool isUnfinished = false;
    };

    [[nodiscard]] quint32 ColumnOf(Kind kind, qint32 language, qint32 source, const QString &file, const QString &name);
    [[nodiscard]] quint32 RowOf(TranslationText &text);
    [[nodiscard]] Row MakeRow(TranslationText &text);
    [[nodiscard]] QString SourceToday(const IDRecord &record, qint32 language) const;
    [[nodiscard]] bool IsStaleIn(const Row &row, const QString &source) const;
    [[nodiscard]] const Cell *Find(quint32 row, quint32 column) const;

    CResModel &model;
    const CResFolder *strings;
    std::vector<CResFolder *> folders;
    mutable CellFinder finder{folders};
    std::vector<Column> columns;
    std::vector<Row> rows;
    std::vector<Cell> cells;
    std::unordered_map<QString, quint32> rowsById;
    quint32 part = 0;       // the column of the present part
    quint32 lastRow = NONE; // files have the same order mostly
};
