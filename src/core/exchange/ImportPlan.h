#pragma once

#include "CellFate.h"
#include "CellFinder.h"
#include "ImportSource.h"

#include <QStringList>

#include <optional>
#include <unordered_map>

class CResModel;

/// What an import is going to do with each text of its source: computed row by row, looked at, then carried out.
///
/// A text comes into the string table where that has none; a text that is there stays. Of rows with one ID the later
/// ones find what the earlier will have made. Computing changes nothing but the report, which gets an error for each
/// row and text that can't be taken. Takes memory of a few bytes a text; the texts stay in the source.
///
///     ImportPlan plan(model, source, path);
///     plan.AddLanguage(StringFileFormat::DESCRIPTION, {}, 2);
///     plan.AddLanguage(9, u"English"_s, 3);
///     plan.AddRow(0, /*push=*/false);
///     for (const ImportPlan::Cell &cell : plan.Cells(0)) ...
///     plan.Apply();
class ImportPlan
{
public:
    /// A text of the source, or a cell of the table that is empty there.
    struct Cell
    {
        quint32 row;
        quint32 column;
        CellFate fate;
        QString inTable;  ///< what is in the table before
        QString inSource; ///< for a kind that the source has no word for, the word
    };

    /// `filePath` is what findings name as the file. `document` and `texts` must live longer, and change only by
    /// `Apply`.
    ImportPlan(CResModel &document, const IImportSource &texts, QString filePath);

    /// The source has the texts of that language in `column`; `title` is for a folder that isn't there. The
    /// Description (StringFileFormat::DESCRIPTION) goes first, all languages before all rows.
    void AddLanguage(qint32 language, const QString &title, quint32 column);
    /// The source has the words for the kinds of rows in `column`.
    void SetKindColumn(quint32 column) { kindColumn = column; }
    /// Says whether one of the languages has that folder.
    [[nodiscard]] bool HasFolder(const CResFolder &folder) const;

    /// Plans a row with an ID; `push` is its kind.
    void AddRow(quint32 row, bool push);
    /// Plans to take nothing of a row.
    void AddLostRow(quint32 row) { AddLostRow(row, CellFate::Nowhere); }

    [[nodiscard]] size_t RowCount() const { return rows.size(); }
    /// What becomes of the texts of the planned row `index`, from left to right. Until `Apply`.
    [[nodiscard]] std::vector<Cell> Cells(size_t index) const;
    /// The texts that are refused, as "ID (Language)".
    [[nodiscard]] const QStringList &Refused() const { return refused; }

    /// Makes the folders, rows and texts that are planned. Once.
    void Apply();

private:
    static constexpr size_t NONE = ~size_t(0);
    struct Language
    {
        qint32 number;
        QString title;
        quint32 column;
        size_t first; // of the languages of that number
    };
    struct Row
    {
        quint32 row = 0;
        CellFate lostAs = CellFate::Nowhere; // what becomes of the texts that no language has
        bool isLost = true;                  // so of all
        bool isNew = false;
        bool wasPush = false;
        bool push = false;
        bool changes = false; // there is something to do
        size_t firstFate = 0; // in `fates`, one a language
        size_t first = 0;     // of the rows of that ID
        size_t latest = 0;    // of them; in the first
    };
    enum : quint8
    {
        PASSED_OVER = 0xFF, // in the place of a fate: the source has no text
    };
    struct Place
    {
        quint32 row;
        quint32 column;
    };

    void AddLostRow(quint32 row, CellFate fate);
    /// The first row of an ID, or NONE.
    [[nodiscard]] size_t FirstOf(const NarrowText &name) const;
    void PlanTexts(Row &row, const IDRecord *record, const QString &id);
    void NotePlaces(const Row &row);
    void Refuse(quint32 row, const QString &id, const QString &language);
    [[nodiscard]] quint64 KeyOf(const Row &row, size_t language) const;
    /// The text that a cell has when the plan is carried out up to there; nothing when there is no cell.
    [[nodiscard]] std::optional<QString> TextBefore(const Row &row, size_t language, const IDRecord *record) const;
    void PutKind(const Row &row, std::vector<Cell> &all) const;
    void ApplyRow(const Row &row, const std::vector<CResFolder *> &targets, CellFinder &finder);

    CResModel &model;
    const IImportSource &source;
    QString file;
    std::optional<quint32> kindColumn;
    std::vector<Language> languages;
    bool isRepeated = false;            // a language has several columns
    std::vector<CResFolder *> folders;  // of `languages`; null: isn't there yet
    std::vector<CResFolder *> existing; // those that aren't null
    mutable CellFinder cells{existing};
    std::vector<Row> rows;
    std::vector<quint8> fates;
    std::unordered_multimap<size_t, size_t> rowsByName; // the first row of each ID, by the hash of the name
    std::unordered_map<quint64, Place> places;          // where a cell gets its text from, of IDs with several rows
    QStringList refused;
};
