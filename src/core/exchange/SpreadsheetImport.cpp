#include "CellFinder.h"
#include "Environment.h"
#include "IdNames.h"
#include "Paths.h"
#include "ResModel.h"
#include "Spreadsheet.h"
#include "StringFileFormat.h"

#include <algorithm>
#include <utility>

using namespace StringFileFormat;

namespace
{

// Rows of the sheet.
constexpr quint32 COUNT_ROW = 0;
constexpr quint32 NAMES_ROW = 1;
constexpr quint32 FIRST_ROW = 2;
constexpr quint32 FEWEST = 3; // columns and rows

/// How a message shows what a cell has.
QString Quoted(const QString &text)
{
    constexpr qsizetype MOST = 60;
    if (text.isEmpty())
        return QStringLiteral("nothing");
    return u'"' + (text.size() > MOST ? text.first(MOST) + QStringLiteral("...") : text) + u'"';
}

/// Goes on from what is wrong with the start of a sheet.
QString WhatIsExpected(const QString &wrong)
{
    return wrong + QStringLiteral("; only the first sheet is read, and its first row has to have \"%1\" in A1 and the "
                                  "number of languages in B1")
                       .arg(COUNT_WORD);
}

/// The file and its sheet, as messages name them.
QString PlaceOf(const QString &path, const Sheet &sheet)
{
    return sheet.name.isEmpty() ? path + u':' : QStringLiteral("%1, sheet \"%2\":").arg(path, sheet.name);
}

/// One import. For one use.
class Importer
{
public:
    /// `sheetPlace` is how messages name the sheet.
    Importer(CResModel &model, const Sheet &readSheet, QString sheetPlace, IImportWatch *cellWatch)
        : document(model), env(model.env), sheet(readSheet), place(std::move(sheetPlace)), watch(cellWatch)
    {
    }

    /// 0, or the code of what stopped it.
    int Import()
    {
        if (const int code = ReadHeader())
            return code;
        for (quint32 row = FIRST_ROW; row < sheet.EndRow(); ++row)
            ReadRow(row);
        return OK;
    }

private:
    int Expect(quint32 row, quint32 column, QStringView expected, bool anywhere = false)
    {
        const QString found = sheet.At(row, column);
        if (anywhere ? found.contains(expected) : found == expected)
            return OK;
        const int count = ++env.ErrorCount;
        env.WriteOutput("Error %d: invalid file format; \"%s\" expected at cell %s.\r\n", count,
                        expected.toUtf8().constData(), qUtf8Printable(CellName(column, row + 1)));
        Explain(row == COUNT_ROW ? WhatIsExpected(QStringLiteral("has %1 in cell A1").arg(Quoted(found)))
                                 : QStringLiteral("cell %1 has %2 in the place of \"%3\"")
                                       .arg(CellName(column, row + 1), Quoted(found), expected));
        return WRONG_HEADER;
    }

    int ReadHeader()
    {
        if (const int code = Expect(COUNT_ROW, 0, COUNT_WORD, /*anywhere=*/true))
            return code;
        int languages = LeadingNumber(sheet.At(COUNT_ROW, 1));
        if (languages < 1) {
            const int count = ++env.WarningCount;
            env.WriteOutput("Warning %d: %s = %d.\r\n", count, COUNT_WORD.toUtf8().constData(), languages);
            Explain(QStringLiteral("cell B1 has %1, where the number of languages is expected: none is read")
                        .arg(Quoted(sheet.At(COUNT_ROW, 1))));
            languages = 0;
        }
        hasType = EqualsNoCase(sheet.At(NAMES_ROW, 1), TYPE_WORD);
        firstText = hasType ? 2 : 1;
        if (qint64(sheet.UsedColumns()) < qint64(languages) + firstText + 1) {
            const int count = ++env.ErrorCount;
            env.WriteOutput("Error %d: invalid number of languages.\r\n", count);
            Explain(
                QStringLiteral("cell B1 has %1 languages, and with them %2 columns are expected: only %3 have texts")
                    .arg(languages)
                    .arg(qint64(languages) + firstText + 1)
                    .arg(sheet.UsedColumns()));
            return WRONG_HEADER;
        }
        int code = Expect(NAMES_ROW, 0, ID_WORD);
        if (code == OK && hasType)
            code = Expect(NAMES_ROW, 1, TYPE_WORD);
        if (code == OK)
            code = Expect(NAMES_ROW, firstText, DESCRIPTION_WORD);
        return code == OK ? ReadLanguages(quint32(languages)) : code;
    }

    int ReadLanguages(quint32 languages)
    {
        columns.push_back(EnsureFolder(DESCRIPTION, QString()));
        for (quint32 i = 0; i < languages; ++i) {
            const QString name = sheet.At(NAMES_ROW, firstText + 1 + i);
            const int number = NumberOf(name);
            if (number == -1) {
                const int count = ++env.ErrorCount;
                env.WriteOutput("Error %d: language \"%s\" is unrecognized.\r\n", count, Shown(name).constData());
                Explain(QStringLiteral("cell %1 has %2, and neither the project nor the section Language of tuvik.ini "
                                       "has a language of that name")
                            .arg(CellName(firstText + 1 + i, NAMES_ROW + 1), Quoted(name)));
                return UNKNOWN_LANGUAGE;
            }
            columns.push_back(EnsureFolder(number, name.trimmed())); // as it was looked up
        }
        return OK;
    }

    /// The language's number, or -1. The table of languages decides; for a name that it lacks, the project's own
    /// language of that name, so that what was exported can be imported. Of several with one name each column takes
    /// the next.
    [[nodiscard]] int NumberOf(const QString &name) const
    {
        const int number = env.LanguageNumber(name);
        const CResFolder *strings = document.root.FindFolder(KIND_STRINGS, 2);
        if (number != -1 || !strings || name.trimmed().isEmpty())
            return number;
        const CResFolder *found = nullptr;
        for (const auto &folder : strings->subfolders) {
            if (folder->kind != KIND_LANGUAGE || folder->index == DESCRIPTION ||
                !EqualsNoCase(folder->title.trimmed(), name.trimmed()))
                continue;
            const bool isTaken = std::find(columns.begin(), columns.end(), folder.get()) != columns.end();
            if (!found || !isTaken)
                found = folder.get();
            if (!isTaken)
                break;
        }
        return found ? found->index : -1;
    }

    CResFolder *EnsureFolder(qint32 index, const QString &title)
    {
        CResFolder *strings = document.root.FindFolder(KIND_STRINGS, 2);
        if (!strings) {
            auto folder = document.CreateFolder(KIND_STRINGS, -1);
            folder->title = QStringLiteral("Strings");
            strings = folder.get();
            document.root.AddFolder(std::move(folder));
        }
        if (CResFolder *folder = strings->FindFolder(KIND_LANGUAGE, index, 1))
            return folder;
        auto made = document.CreateFolder(KIND_LANGUAGE, index);
        made->title = title;
        CResFolder *const folder = made.get();
        strings->AddFolder(std::move(made));
        return folder;
    }

    /// Says what the fixed lines have no words for.
    void Explain(const QString &what) const { env.Explain(place + u' ' + what); }

    /// For a %s of the log, which shows no more than this of it anyway.
    static QByteArray Shown(QStringView text) { return text.first(qMin(text.size(), qsizetype(512))).toUtf8(); }

    void ReadRow(quint32 row)
    {
        read = 0;
        ReadCells(row);
        for (quint32 column = read; watch && column < sheet.EndColumn(row); ++column)
            Tell(row, column, CellFate::Nowhere, QString());
    }

    void ReadCells(quint32 row)
    {
        const QString id = sheet.At(row, 0);
        if (id.isEmpty()) {
            const int count = ++env.WarningCount;
            env.WriteOutput("Warning %d: empty ID discarded (Line %d).\r\n", count, int(row) + 1);
            return;
        }
        if (EqualsNoCase(id, END_WORD)) {
            read = sheet.EndColumn(row);
            return;
        }
        if (!IsValidIdName(id)) {
            const int count = ++env.ErrorCount;
            env.WriteOutput("Error %d: invalid ID format - [%s].\r\n", count, Shown(id).constData());
        }
        const bool push = ReadKind(row);
        const NarrowText name = env.WideToNarrow(id);
        const IDRecord *rowId = document.ids.Find(name, ANY_RESOLUTION);
        const bool isNew = !rowId;
        const bool wasPush = rowId && rowId->push;
        CStringRes *previous = nullptr;
        read = 1;
        for (CResFolder *folder : columns) {
            const quint32 column = previous ? read : firstText;
            const QString text = sheet.At(row, column);
            const bool isPassedOver = text.isEmpty() && folder->index != DESCRIPTION;
            CStringRes *cell = rowId && (!isPassedOver || watch) ? cells.Find(rowId, *folder) : nullptr;
            if (isPassedOver) {
                if (cell)
                    Tell(row, column, CellFate::Kept, cell->text);
                read = column + 1;
                continue;
            }
            const CellFate fate = cell ? Fill(*cell, text) : CellFate::New;
            if (!cell)
                cell = Make(*folder, name, row, text, previous);
            if (!cell)
                return;
            if (!previous)
                TellKind(row, isNew, wasPush, push);
            Tell(row, column, fate, cell->text);
            read = column + 1;
            previous = cell;
            rowId = cell->Id();
            cell->Id()->push = push;
            if (push)
                cell->Id()->pushKind = PUSH_STRING;
        }
    }

    bool ReadKind(quint32 row)
    {
        if (!hasType)
            return false;
        const QString type = sheet.At(row, 1);
        if (type != PUSH_WORD && type != NORMAL_WORD) {
            const int count = ++env.ErrorCount;
            env.WriteOutput("Error %d: invalid push format - [%s].\r\n", count, Shown(type).constData());
        }
        return type == PUSH_WORD;
    }

    void TellKind(quint32 row, bool isNew, bool wasPush, bool push)
    {
        const auto word = [](bool isPush) { return (isPush ? PUSH_WORD : NORMAL_WORD).toString(); };
        if (!watch)
            return;
        if (!isNew && wasPush != push)
            watch->Cell(row, hasType ? 1 : 0, CellFate::Replaced, word(wasPush), word(push));
        else if (hasType && sheet.At(row, 1) != word(push))
            Tell(row, 1, CellFate::Nowhere, QString());
        else if (hasType)
            Tell(row, 1, isNew ? CellFate::New : CellFate::Same, QString());
    }

    static CellFate Fill(CStringRes &cell, const QString &text)
    {
        if (cell.text == text)
            return CellFate::Same;
        if (!cell.text.isEmpty())
            return CellFate::Kept;
        cell.SetText(text);
        return CellFate::Filled;
    }

    /// Null, with the error logged, when the ID is borne by another resource.
    CStringRes *Make(CResFolder &folder, const NarrowText &name, quint32 row, const QString &text, CStringRes *previous)
    {
        auto made = previous ? document.CreateStringRes(previous->Id(), folder.index)
                             : document.CreateStringRes(name, folder.index);
        if (!made) {
            const int count = ++env.ErrorCount;
            env.WriteOutput("Error %d: ID conflicts - %s (Line %d).\r\n", count, Shown(sheet.At(row, 0)).constData(),
                            int(row) + 1);
            return nullptr;
        }
        CStringRes *const cell = made.get();
        folder.AddResource(std::move(made));
        cell->SetText(text);
        if (previous)
            previous->LinkBehind(cell);
        cells.Added(cell);
        return cell;
    }

    void Tell(quint32 row, quint32 column, CellFate fate, const QString &inTable)
    {
        if (!watch)
            return;
        const QString text = sheet.At(row, column);
        const bool isEmptied = fate == CellFate::Kept && !inTable.isEmpty();
        if (!text.isEmpty() || isEmptied)
            watch->Cell(row, column, fate, inTable, text);
    }

    CResModel &document;
    Environment &env;
    const Sheet &sheet;
    QString place;
    IImportWatch *watch;
    bool hasType = false;
    quint32 firstText = 0; // the column of descriptions
    quint32 read = 0;      // so many columns of the row have been told of
    std::vector<CResFolder *> columns;
    CellFinder cells{columns};
};

int ImportSheet(CResModel &document, const Sheet &sheet, const QString &place, IImportWatch *watch)
{
    if (sheet.UsedColumns() < FEWEST || sheet.UsedRows() < FEWEST) {
        const int count = ++document.env.WarningCount;
        document.env.WriteOutput("Warning %d: the sheet is almost empty.\r\n", count);
        document.env.Explain(place + u' ' +
                             WhatIsExpected(QStringLiteral("texts stand in %1 rows and %2 columns, and a string table "
                                                           "has 3 at least")
                                                .arg(sheet.UsedRows())
                                                .arg(sheet.UsedColumns())));
        return SHEET_EMPTY;
    }
    return Importer(document, sheet, place, watch).Import();
}

} // namespace

QStringList TextsThatDontFit(const CResModel &document)
{
    QStringList cells;
    const CResFolder *strings = document.root.FindFolder(KIND_STRINGS, 2);
    const auto isBad = [](QChar c) { return c == u'\t' || c == u'\r' || c == u'\n'; };
    for (size_t n = 0; strings && n < strings->subfolders.size(); ++n) {
        const CResFolder &folder = *strings->subfolders[n];
        for (CBaseRes *res : folder.resources) {
            const QString &text = static_cast<CStringRes *>(res)->text;
            const QString id = document.env.NarrowToWide(res->Id()->name);
            if (std::any_of(text.begin(), text.end(), isBad) || std::any_of(id.begin(), id.end(), isBad))
                cells.append(id + QStringLiteral(" (") + (n == 0 ? DESCRIPTION_WORD.toString() : folder.title) + u')');
        }
    }
    return cells;
}

QString CellName(quint32 column, quint32 row)
{
    QString letters;
    for (quint32 rest = column + 1; rest > 0; rest = (rest - 1) / 26)
        letters.prepend(QChar(u'A' + (rest - 1) % 26));
    return letters + QString::number(row);
}

SpreadsheetResult ImportSpreadsheet(CResModel &document, const QString &path, IImportWatch *watch)
{
    Environment &env = document.env;
    env.ResetCounts();
    SpreadsheetResult result;
    Sheet sheet;
    const WorkbookResult opened = ReadWorkbook(path, sheet);
    if (opened.HasFailed()) {
        const int count = ++env.ErrorCount;
        env.WriteOutput(opened.fault == WorkbookFault::NoWorkbook ? "Error %d: failed to connect to Excel.\r\n"
                                                                  : "Error %d: failed to import from Excel.\r\n",
                        count);
        result = {SHEET_FAILED, opened.reason};
    } else {
        result.code = ImportSheet(document, sheet, PlaceOf(path, sheet), watch);
    }
    env.WriteOutput("[%s] import - %d error(s), %d warning(s)\r\n", qUtf8Printable(FileTitle(document.PathName())),
                    env.ErrorCount, env.WarningCount);
    return result;
}
