// SPDX-License-Identifier: MIT
// Random edits on two sides of a random table.
#include "MergedText.h"

#include <rapidcheck/gtest.h>

#include <map>
#include <set>

namespace
{

using Cells = std::map<int, QByteArray>; // by language; -1 is the description, -2 the type

struct Row
{
    QByteArray id;
    Cells cells;
};

int Below(size_t end)
{
    return *rc::gen::inRange(0, int(end));
}

/// A string table with edits. New texts are unique, but for a few that both sides may choose.
struct Table
{
    std::vector<int> languages;
    std::vector<Row> rows;

    [[nodiscard]] QByteArray File() const
    {
        QByteArray text =
            "Number of Language|" + QByteArray::number(languages.size()) + "\nString ID|Resource Type|Description";
        for (const int language : languages)
            text += "|L(" + QByteArray::number(language) + ')';
        for (const Row &row : rows) {
            text += '\n' + row.id + '|' + row.cells.at(-2) + '|' + row.cells.at(-1);
            for (const int language : languages)
                text += '|' + row.cells.at(language);
        }
        return StringFileBytes(text + "\n##number|" + QByteArray::number(rows.size()) + '\n');
    }

    QByteArray SomeText(const char *side)
    {
        static int count = 0;
        const int kind = Below(6);
        return kind == 0  ? QByteArray()
               : kind < 3 ? "same" + QByteArray::number(Below(2))
                          : side + QByteArray::number(++count);
    }

    void AddRow(const char *side)
    {
        static int count = 0;
        const bool mayBeInBoth = Below(3) == 0;
        Row row{mayBeInBoth ? "ID_" + QByteArray::number(Below(6))
                            : QByteArray("ID_") + side + QByteArray::number(++count),
                {}};
        for (const Row &other : rows) {
            if (other.id == row.id)
                return;
        }
        row.cells[-2] = Below(3) ? "Normal" : "Push";
        row.cells[-1] = SomeText(side);
        for (const int language : languages)
            row.cells[language] = SomeText(side);
        rows.insert(rows.begin() + Below(rows.size() + 1), row);
    }

    void AddLanguage(const char *side)
    {
        const int number = Below(5);
        if (std::count(languages.begin(), languages.end(), number))
            return;
        languages.insert(languages.begin() + Below(languages.size() + 1), number);
        for (Row &row : rows)
            row.cells[number] = SomeText(side);
    }

    void Edit(const char *side)
    {
        const int kind = Below(12);
        if (kind < 2)
            AddRow(side);
        else if (kind == 2)
            AddLanguage(side);
        else if (kind == 3 && languages.size() > 1)
            languages.erase(languages.begin() + Below(languages.size()));
        else if (rows.empty())
            return;
        else if (kind == 4)
            rows.erase(rows.begin() + Below(rows.size()));
        else if (kind == 5)
            std::swap(rows[size_t(Below(rows.size()))], rows.back());
        else if (kind == 6)
            rows[size_t(Below(rows.size()))].cells[-2] = "Push";
        else
            (*std::next(rows[size_t(Below(rows.size()))].cells.begin(), 1 + Below(languages.size() + 1))).second =
                SomeText(side);
        Forget();
    }

    /// Removes the texts of languages that are no longer there.
    void Forget()
    {
        for (Row &row : rows)
            std::erase_if(row.cells, [&](const auto &cell) {
                return cell.first >= 0 && !std::count(languages.begin(), languages.end(), cell.first);
            });
    }

    [[nodiscard]] const Row *Find(const QByteArray &id) const
    {
        const auto found = std::find_if(rows.begin(), rows.end(), [&](const Row &row) { return row.id == id; });
        return found == rows.end() ? nullptr : &*found;
    }
};

/// The lines of a merged file: for each ID its versions, each with its texts by language.
struct Merged
{
    std::map<std::string, std::set<std::map<std::string, std::string>>> rows;

    explicit Merged(const QByteArray &bytes)
    {
        const QStringList lines = QString::fromStdString(Readable(bytes)).split(u'\n');
        const QStringList header = lines[1].split(u'|');
        for (const QString &line : lines.sliced(2)) {
            const QStringList fields = line.split(u'|');
            if (!line.startsWith(u"ID_"))
                continue;
            RC_ASSERT(fields.size() == header.size());
            std::map<std::string, std::string> texts;
            for (qsizetype i = 1; i < fields.size(); ++i)
                texts[header[i].toStdString()] = fields[i].toStdString();
            rows[fields[0].toStdString()].insert(texts);
        }
    }

    [[nodiscard]] bool Has(const QByteArray &id, const std::string &column, const QByteArray &text) const
    {
        const auto row = rows.find(id.toStdString());
        return row != rows.end() && std::any_of(row->second.begin(), row->second.end(), [&](const auto &texts) {
                   const auto found = texts.find(column);
                   return found != texts.end() && found->second == text.toStdString();
               });
    }
};

/// No text that one side has added or changed is missing, in one of the versions of its row.
void CheckNothingIsLost(const Table &base, const Table &side, const Merged &merged)
{
    for (const Row &row : side.rows) {
        const Row *const before = base.Find(row.id);
        for (const auto &[column, text] : row.cells) {
            const auto old = before ? before->cells.find(column) : Cells::const_iterator();
            const bool isChanged = !before || old == before->cells.end() || old->second != text;
            if (!isChanged || text.isEmpty())
                continue;
            const std::string name = column == -2   ? "Resource Type"
                                     : column == -1 ? "Description"
                                                    : "L(" + std::to_string(column) + ')';
            RC_ASSERT(merged.Has(row.id, name, text));
        }
    }
}

} // namespace

TEST(MergeProperty, LosesNothingIsSymmetricAndLoads)
{
    StringProject program;
    Environment &env = *program.TestProgram::env;
    EXPECT_TRUE(rc::check([&] {
        Table base;
        base.AddLanguage("b");
        for (int i = Below(12); i > 0; --i)
            base.Edit("b");
        Table ours = base;
        Table theirs = base;
        for (int i = Below(10); i > 0; --i)
            ours.Edit("o");
        for (int i = Below(10); i > 0; --i)
            theirs.Edit("t");

        RC_ASSERT(MergeFiles(env, {base.File(), base.File(), theirs.File()}).bytes == theirs.File());
        RC_ASSERT(MergeFiles(env, {base.File(), ours.File(), base.File()}).bytes == ours.File());
        const MergeResult merged = MergeFiles(env, {base.File(), ours.File(), theirs.File()});
        const MergeResult mirrored = MergeFiles(env, {base.File(), theirs.File(), ours.File()});
        RC_ASSERT(merged.refusal.isEmpty());
        const Merged rows(merged.bytes);
        RC_ASSERT(rows.rows == Merged(mirrored.bytes).rows);
        RC_ASSERT(merged.conflicts.size() == mirrored.conflicts.size());
        CheckNothingIsLost(base, ours, rows);
        CheckNothingIsLost(base, theirs, rows);

        const MergeResult clean = MergeFiles(env, {base.File(), ours.File(), theirs.File()}, OnConflict::KeepBase);
        RC_ASSERT(clean.conflicts.isEmpty() && (!merged.conflicts.isEmpty() || clean.bytes == merged.bytes));
        StringProject project;
        RC_ASSERT(project.ReadBytes(clean.bytes) == 0);
        Environment &of = *project.TestProgram::env;
        const bool hasLanguages = project.strings.subfolders.size() > 1; // each side may have dropped another one
        RC_ASSERT(of.ErrorCount + of.DroppedCount == 0 && of.WarningCount == int(!hasLanguages));
    }));
}
