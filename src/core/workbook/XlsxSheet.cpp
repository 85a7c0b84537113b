// SPDX-License-Identifier: MIT
#include "XlsxSheet.h"

#include "IdNames.h"
#include "SharedStrings.h"
#include "XlsxDate.h"
#include "XlsxPackage.h"
#include "XlsxText.h"
#include "XmlPart.h"

#include <charconv>
#include <cmath>
#include <utility>

namespace
{

enum Place
{
    SHEET = XmlGrammar::DOCUMENT + 1,
    ROWS,
    ROW,
    CELL,
    VALUE,
    INLINE,
    RUN,
    TEXT,
};
constexpr XmlStep STEPS[] = {
    {ROW, "c", CELL},           {CELL, "v", VALUE}, {ROWS, "row", ROW}, {CELL, "is", INLINE},
    {INLINE, "t", TEXT},        {INLINE, "r", RUN}, {RUN, "t", TEXT},   {XmlGrammar::DOCUMENT, "worksheet", SHEET},
    {SHEET, "sheetData", ROWS},
};
constexpr XmlGrammar GRAMMAR = {{SPREADSHEET_ML, STRICT_SPREADSHEET_ML}, STEPS, WorkbookFault::Broken};

QString ToText(std::string_view view)
{
    return QString::fromUtf8(view.data(), qsizetype(view.size()));
}

/// Parses a text that is a number without a sign. Returns nullopt for another text and for a number that doesn't fit.
std::optional<quint64> ParseNumber(std::string_view text)
{
    quint64 number = 0;
    const char *const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (text.empty() || error != std::errc() || rest != end)
        return std::nullopt;
    return number;
}

/// Returns the number, from 1, of the column with which a reference such as "AB12" begins, and removes its letters from
/// `reference`. Returns 0 when there is none.
quint64 TakeColumn(std::string_view &reference)
{
    constexpr int MOST_LETTERS = 7;
    quint64 column = 0;
    for (int i = 0; i < MOST_LETTERS && !reference.empty() && reference[0] >= 'A' && reference[0] <= 'Z'; ++i) {
        column = column * 26 + quint64(reference[0] - 'A' + 1);
        reference.remove_prefix(1);
    }
    return column;
}

class SheetPart : public XmlPart
{
public:
    SheetPart(bool datesFrom1904, const std::vector<TextPool::Ref> &shared, TextBudget &granted, Sheet &result)
        : XmlPart(GRAMMAR), from1904(datesFrom1904), sharedStrings(shared), budget(granted), sheet(result)
    {
    }

private:
    enum class Type
    {
        Number,
        Text,
        SharedString,
        Date,
        None,
    };

    void Enter(int place, const XmlAttributes &attributes) override
    {
        if (place == ROW) {
            EnterRow(attributes.Find("r"));
        } else if (place == CELL) {
            EnterCell(attributes.Find("r"));
            SetType(attributes.Find("t").value_or("n"));
        }
    }

    void Leave(int place, QByteArrayView content) override
    {
        if (place == TEXT)
            AppendText(content);
        else if (place == INLINE && type == Type::Text)
            AddGathered();
        else if (place == VALUE)
            AddValue({content.data(), size_t(content.size())});
    }

    void EnterRow(std::optional<std::string_view> reference)
    {
        ++row;
        column = 0;
        if (!reference)
            return CheckPlace();
        const auto number = ParseNumber(*reference);
        if (!number || *number == 0)
            return Fail(WorkbookFault::Broken, QStringLiteral("\"%1\" is not a row").arg(ToText(*reference)));
        row = *number;
        CheckPlace();
    }

    /// The row in the reference of a cell overrides that of its row element.
    void EnterCell(std::optional<std::string_view> reference)
    {
        ++column;
        text.resize(0);
        stored.reset();
        if (reference) {
            std::string_view rest = *reference;
            column = TakeColumn(rest);
            row = ParseNumber(rest).value_or(0);
            if (column == 0 || row == 0)
                return Fail(WorkbookFault::Broken, QStringLiteral("\"%1\" is not a cell").arg(ToText(*reference)));
        }
        CheckPlace();
    }

    void CheckPlace()
    {
        if (row > Sheet::MOST_ROWS)
            Fail(WorkbookFault::TooLarge,
                 QStringLiteral("row %1: a sheet has at most %2 rows").arg(row).arg(Sheet::MOST_ROWS));
        else if (column > Sheet::MOST_COLUMNS)
            Fail(WorkbookFault::TooLarge, QStringLiteral("column %1 in row %2: a sheet has at most %3 columns")
                                              .arg(column)
                                              .arg(row)
                                              .arg(Sheet::MOST_COLUMNS));
    }

    void SetType(std::string_view name)
    {
        if (name == "s")
            type = Type::SharedString;
        else if (name == "inlineStr" || name == "str")
            type = Type::Text;
        else if (name == "n")
            type = Type::Number;
        else if (name == "d")
            type = Type::Date;
        else if (name == "b" || name == "e")
            type = Type::None;
        else
            FailInCell(WorkbookFault::Broken, QStringLiteral("\"%1\" is not a cell type").arg(ToText(name)));
    }

    void AddValue(std::string_view value)
    {
        if (type == Type::Text)
            return Add(DecodeXlsxText({value.data(), qsizetype(value.size())}));
        if (type == Type::SharedString) {
            const auto index = ParseNumber(value);
            if (!index || *index >= sharedStrings.size())
                return FailInCell(WorkbookFault::Broken,
                                  QStringLiteral("there is no shared string \"%1\"; the number of shared strings is %2")
                                      .arg(ToText(value))
                                      .arg(sharedStrings.size()));
            AddGranted(sharedStrings[*index]);
        } else if (type == Type::Number && !value.empty()) {
            AddNumber(value);
        } else if (type == Type::Date && !value.empty()) {
            const auto number = DateNumber(value, from1904);
            if (!number)
                return FailInCell(WorkbookFault::Broken, QStringLiteral("\"%1\" is not a date").arg(ToText(value)));
            Add(FormatFloat(*number));
        }
    }

    void AddNumber(std::string_view value)
    {
        constexpr quint64 MOST_EXACT = quint64(1) << 53;
        if (const auto whole = ParseNumber(value); whole && *whole < MOST_EXACT)
            return Add(QString::number(*whole)); // gives the same text in a third of the time
        bool isNumber = false;
        const double number = QByteArrayView(value.data(), qsizetype(value.size())).toDouble(&isNumber);
        if (!isNumber || !std::isfinite(number))
            return FailInCell(WorkbookFault::Broken, QStringLiteral("\"%1\" is not a number").arg(ToText(value)));
        Add(FormatFloat(number));
    }

    /// Stores a text that needs no decoding at once. Most texts of most sheets are such a text.
    void AppendText(QByteArrayView utf8)
    {
        if (!text.isEmpty() || stored || !IsPlainXlsxText(utf8))
            return AppendRun(DecodeXlsxText(utf8));
        if (Grant(utf8.size()))
            stored = sheet.texts.AddLatin1(utf8);
    }

    [[nodiscard]] bool Grant(qsizetype length)
    {
        const bool isGranted = budget.GrantText(length);
        if (!isGranted)
            FailInCell(WorkbookFault::TooLarge, QStringLiteral("the texts take too much memory"));
        return isGranted;
    }

    void AppendRun(QString run)
    {
        if (!Grant(run.size()))
            return;
        if (stored) {
            text = sheet.texts.Text(*stored);
            sheet.texts.TakeBack(*stored);
            stored.reset();
        }
        if (text.isEmpty())
            text = std::move(run); // most texts are one run
        else
            text += run;
    }

    void Add(QString own)
    {
        AppendRun(std::move(own));
        AddGathered();
    }

    void AddGathered()
    {
        AddGranted(stored ? *stored : sheet.texts.Add(text));
        text.resize(0);
        stored.reset();
    }

    void AddGranted(TextPool::Ref granted)
    {
        if (!granted.IsEmpty() && !budget.GrantCell())
            return FailInCell(WorkbookFault::TooLarge, QStringLiteral("the cells take too much memory"));
        sheet.Add(quint32(row - 1), quint32(column - 1), granted);
    }

    void FailInCell(WorkbookFault fault, const QString &what)
    {
        Fail(fault, QStringLiteral("row %1, column %2: %3").arg(row).arg(column).arg(what));
    }

    const bool from1904;
    const std::vector<TextPool::Ref> &sharedStrings;
    TextBudget &budget;
    Sheet &sheet;
    quint64 row = 0; // row and column are from 1
    quint64 column = 0;
    Type type = Type::None;
    QString text;                        // of the runs of the cell so far
    std::optional<TextPool::Ref> stored; // instead of `text`: the text is in the pool, at its end
};

} // namespace

WorkbookResult ReadXlsxSheet(const ZipFile &zip, const XlsxParts &parts,
                             const std::vector<TextPool::Ref> &sharedStrings, TextBudget &budget, Sheet &sheet)
{
    return SheetPart(parts.datesFrom1904, sharedStrings, budget, sheet).Read(zip, parts.worksheet);
}
