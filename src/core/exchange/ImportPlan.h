// SPDX-License-Identifier: MIT
#pragma once

#include "CellFate.h"
#include "CellFinder.h"
#include "ImportOptions.h"
#include "ImportSource.h"

#include <QStringList>

#include <array>
#include <optional>
#include <unordered_map>

class CResModel;

/// A plan of what an import will do with each text of its source. It is computed row by row, can be inspected, and is
/// then applied.
///
/// A text is imported if the string table has none; existing texts stay, unless the options say otherwise. For several
/// rows with the same ID, the later rows take into account what the earlier rows will change, and never replace it.
/// Computing the plan changes nothing except the report, which gets an error for each row and text that can't be
/// imported and for each text that differs from one in another file, and a warning for each stale text. The plan needs
/// a few bytes of memory for each text; the texts stay in the source.
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
    /// A text of the source, or a cell of the table that is empty in the source.
    struct Cell
    {
        quint32 row;
        quint32 column;
        CellFate fate;
        QString inTable;  ///< the text in the table before the import
        QString inSource; ///< the text in the source; for a kind, its word, even if the source has none
    };

    /// `filePath` is the path of the file in findings. `document` and `texts` must outlive the plan, and only `Apply`
    /// may change them.
    ImportPlan(CResModel &document, const IImportSource &texts, QString filePath, ImportOptions importOptions = {});

    /// Tells the plan that the source has the texts of that language in `column`. `title` is the title for a new
    /// folder. Add the Description (StringFileFormat::DESCRIPTION) first, and all languages before all rows.
    /// With `isAlwaysWanted` its texts are imported even if the options choose other languages.
    void AddLanguage(qint32 language, const QString &title, quint32 column, bool isAlwaysWanted = false);
    /// Tells the plan that the source has the words for the kinds of rows in `column`.
    void SetKindColumn(quint32 column) { kindColumn = column; }
    /// From this call on, a language that the project lacks is only made if one of its texts is imported.
    void MakeOnlyUsedLanguages() { makesUnused = false; }
    /// Returns whether one of the languages has that folder.
    [[nodiscard]] bool HasFolder(const CResFolder &folder) const;

    /// Plans a row with an ID; `push` is its kind.
    void AddRow(quint32 row, bool push);
    /// Plans to import nothing of a row.
    void AddLostRow(quint32 row) { AddLostRow(row, CellFate::Nowhere); }

    [[nodiscard]] const IImportSource &Source() const { return source; }
    [[nodiscard]] size_t RowCount() const { return rows.size(); }
    /// Returns the ID of the planned row `index`.
    [[nodiscard]] QString IdOf(size_t index) const { return source.Id(rows[index].row); }
    /// Returns the language of a column; nullopt if none has it.
    [[nodiscard]] std::optional<qint32> LanguageOf(quint32 column) const;
    /// Returns how many texts have that fate. Kinds of rows don't count, nor do texts beyond the languages.
    [[nodiscard]] int Count(CellFate fate) const { return counts[size_t(fate)]; }
    /// Returns whether the import makes or changes a row of the table, or makes a language. Only before `Apply`.
    [[nodiscard]] bool ChangesTable() const;
    /// Returns what the import does with the texts of the planned row `index`, from left to right. Only before `Apply`.
    [[nodiscard]] std::vector<Cell> Cells(size_t index) const;
    /// The texts that are refused, as "ID (Language)".
    [[nodiscard]] const QStringList &Refused() const { return refused; }

    /// Makes the planned folders, rows and texts. Call it only once.
    void Apply();

private:
    static constexpr size_t NONE = ~size_t(0);
    struct Language
    {
        qint32 number;
        QString title;
        quint32 column;
        size_t first; // index of the first language with that number
        bool isWanted;
        bool isUsed = false; // a text of it is imported
    };
    struct Row
    {
        quint32 row = 0;
        CellFate lostAs = CellFate::Nowhere; // the fate of texts in columns without a language
        bool isLost = true;                  // all texts have that fate
        bool isNew = false;
        bool wasPush = false;
        bool push = false;
        bool changes = false; // the import changes something in the row
        size_t firstFate = 0; // index in `fates`, which has one for each language
        size_t first = 0;     // index of the first row with that ID
        size_t latest = 0;    // index of the latest row with that ID; only set in the first
    };
    enum : quint8
    {
        PASSED_OVER = 0xFF, // instead of a fate: the source has no text
    };
    struct Place
    {
        quint32 row;
        quint32 column;
    };

    /// A text of the table, or the one that an earlier text of the source has put there or found there.
    struct Before
    {
        std::optional<QString> text; // nullopt: there is no cell
        std::optional<Place> source = {};
    };

    /// Returns whether the import makes the language if the project lacks it.
    [[nodiscard]] bool IsMade(const Language &language) const;
    void AddLostRow(quint32 row, CellFate fate);
    /// Returns the index of the first row with an ID, or NONE.
    [[nodiscard]] size_t FirstOf(const NarrowText &name) const;
    void PlanTexts(Row &row, const IDRecord *record, const QString &id);
    /// Returns whether the table has the same text already, as most texts of most imports are. Only for a row with
    /// an ID that no earlier row has.
    [[nodiscard]] bool IsUnchanged(const Row &row, size_t language, const IDRecord *record) const;
    [[nodiscard]] CellFate FateOf(const Row &row, size_t language, const QString &text, const Before &before) const;
    void NotePlaces(const Row &row);
    void Refuse(quint32 row, quint32 column, const QString &id, const QString &language);
    void TellStale(quint32 row, quint32 column, const QString &id);
    void TellTwice(quint32 row, quint32 column, const QString &id, const Place &other);
    [[nodiscard]] quint64 KeyOf(const Row &row, size_t language) const;
    /// Returns the text that a cell will have when the plan has been applied up to that row.
    [[nodiscard]] Before TextBefore(const Row &row, size_t language, const IDRecord *record) const;
    void PutKind(const Row &row, std::vector<Cell> &all) const;
    void ApplyRow(const Row &row, const std::vector<CResFolder *> &targets, CellFinder &finder);

    CResModel &model;
    const IImportSource &source;
    QString file;
    ImportOptions options;
    std::optional<quint32> kindColumn;
    std::vector<Language> languages;
    bool makesUnused = true;
    bool isRepeated = false;            // a language has several columns
    std::vector<CResFolder *> folders;  // of `languages`; null: doesn't exist yet
    std::vector<CResFolder *> existing; // those of `folders` that aren't null
    mutable CellFinder cells{existing};
    std::vector<Row> rows;
    std::vector<quint8> fates;
    std::unordered_multimap<size_t, size_t> rowsByName; // the first row of each ID, by the hash of the name
    std::unordered_map<quint64, Place> places;          // the source of a cell's text, for IDs with several rows
    QStringList refused;
    std::array<int, IMPORT_FATES> counts{};
};
