// SPDX-License-Identifier: MIT
// Random edits on two sides of a random table, and of a random resource list.
#include "MergedText.h"

#include <rapidcheck/gtest.h>

#include <QRegularExpression>

#include <map>
#include <set>

using namespace Qt::StringLiterals;

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

/// Returns a new text, or one of a few that both sides may choose.
QByteArray SomeText(const char *side)
{
    static int count = 0;
    const int kind = Below(6);
    return kind == 0  ? QByteArray()
           : kind < 3 ? "same" + QByteArray::number(Below(2))
                      : side + QByteArray::number(++count);
}

/// A string table with edits.
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

/// A resource of a list. Its place is a screen, or 0 outside of the screens.
struct Resource
{
    int screen;
    QByteArray name; // element and ID
    QByteArray type; // the attribute; may be empty
    QByteArray path;

    [[nodiscard]] std::string Key() const { return std::to_string(screen) + ' ' + name.toStdString(); }
};

/// A resource list with edits.
struct List
{
    std::vector<int> screens;
    std::vector<Resource> resources;

    [[nodiscard]] QByteArray Elements(int screen) const
    {
        QByteArray text;
        for (const Resource &one : resources) {
            const QByteArray tag = one.name.left(one.name.indexOf(' '));
            if (one.screen == screen)
                text += (screen ? "        <" : "    <") + one.name + one.type + '>' + one.path + "</" + tag + ">\n";
        }
        return text;
    }

    [[nodiscard]] QByteArray File() const
    {
        QByteArray text = "<APP id=\"APP_demo\">\n" + Elements(0);
        for (const int screen : screens) {
            const QByteArray elements = Elements(screen);
            text += "    <RESOLUTION width=\"1\" height=\"" + QByteArray::number(screen) + "\" class=\"image\"";
            text += elements.isEmpty() ? " />\n" : ">\n" + elements + "    </RESOLUTION>\n";
        }
        return text + "    <STRING>s</STRING>\n</APP>\n";
    }

    [[nodiscard]] const Resource *Find(const std::string &key) const
    {
        const auto found =
            std::find_if(resources.begin(), resources.end(), [&](const Resource &one) { return one.Key() == key; });
        return found == resources.end() ? nullptr : &*found;
    }
    [[nodiscard]] bool HasScreen(int screen) const
    {
        return screen == 0 || std::count(screens.begin(), screens.end(), screen) > 0;
    }

    static QByteArray SomePath(const char *side) { return 'p' + SomeText(side); }
    static QByteArray SomeType() { return Below(3) ? Below(2) ? " type=\"Normal\"" : " type=\"Push\"" : ""; }

    void Add(const char *side)
    {
        const int screen = screens.empty() || Below(2) ? 0 : screens[size_t(Below(screens.size()))];
        const QByteArray tag = screen || Below(2) ? "IMAGE" : "FILE";
        const QByteArray id = Below(2) ? QByteArray::number(Below(6)) : SomePath(side);
        const Resource made{screen, tag + " id=\"I" + id + '"', SomeType(), SomePath(side)};
        if (!Find(made.Key()))
            resources.insert(resources.begin() + Below(resources.size() + 1), made);
    }

    void Edit(const char *side)
    {
        const int kind = Below(10);
        const int screen = 1 + Below(3);
        if (kind == 0 && !HasScreen(screen))
            screens.insert(screens.begin() + Below(screens.size() + 1), screen);
        else if (kind == 1)
            std::erase(screens, screen);
        else if (kind < 4 || resources.empty())
            Add(side);
        else if (kind == 4)
            resources.erase(resources.begin() + Below(resources.size()));
        else if (kind == 5)
            std::swap(resources[size_t(Below(resources.size()))], resources.back());
        else if (kind == 6)
            resources[size_t(Below(resources.size()))].type = SomeType();
        else
            resources[size_t(Below(resources.size()))].path = SomePath(side);
        std::erase_if(resources, [this](const Resource &one) { return !HasScreen(one.screen); });
    }
};

/// The versions of each resource in a merged list, each with its type and its path.
using Versions = std::map<std::string, std::set<std::pair<std::string, std::string>>>;

Versions VersionsIn(const QByteArray &list)
{
    static const QRegularExpression RESOURCE(u"^ *<((?:FILE|IMAGE) id=\"\\w+\")([^>]*)>(.*)</"_s);
    static const QRegularExpression SCREEN(u"height=\"(\\d)\""_s);
    Versions all;
    QString screen = u"0"_s;
    for (const QString &line : QString::fromUtf8(list).split(u'\n')) {
        if (line.startsWith(u"    <RESOLUTION"))
            screen = SCREEN.match(line).captured(1);
        if (line.endsWith(u"</RESOLUTION>") || line.endsWith(u"/>"))
            screen = u"0"_s;
        if (const auto found = RESOURCE.match(line); found.hasMatch())
            all[(screen + u' ' + found.captured(1)).toStdString()].insert(
                {found.captured(2).toStdString(), found.captured(3).toStdString()});
    }
    return all;
}

/// What a side has added, changed or removed is so in the merged list, in one of the versions of the resource.
void CheckNothingIsLost(const List &base, const List &side, const List &other, const Versions &merged)
{
    for (const Resource &one : side.resources) {
        const Resource *const before = base.Find(one.Key());
        const auto found = merged.find(one.Key());
        const auto has = [&](const auto &isVersion) {
            return found != merged.end() && std::any_of(found->second.begin(), found->second.end(), isVersion);
        };
        if (!before || before->path != one.path)
            RC_ASSERT(has([&](const auto &version) { return version.second == one.path.toStdString(); }));
        if (one.type != (before ? before->type : QByteArray()))
            RC_ASSERT(has([&](const auto &version) { return version.first == one.type.toStdString(); }));
    }
    for (const Resource &one : base.resources) {
        const Resource *const theirs = other.Find(one.Key());
        const bool isUnchanged = !theirs || (theirs->type == one.type && theirs->path == one.path);
        if (!side.Find(one.Key()) && isUnchanged && side.HasScreen(one.screen) && other.HasScreen(one.screen))
            RC_ASSERT(!merged.count(one.Key()));
    }
}

} // namespace

namespace
{

/// Edits a version of a file and two copies of it. Merging one of them with an unchanged version gives that one.
template <typename Version> void EditAndMergeWithBase(Environment &env, Version &base, Version &ours, Version &theirs)
{
    for (int i = Below(12); i > 0; --i)
        base.Edit("b");
    ours = theirs = base;
    for (int i = Below(10); i > 0; --i)
        ours.Edit("o");
    for (int i = Below(10); i > 0; --i)
        theirs.Edit("t");
    RC_ASSERT(MergeFiles(env, {base.File(), base.File(), theirs.File()}).bytes == theirs.File());
    RC_ASSERT(MergeFiles(env, {base.File(), ours.File(), base.File()}).bytes == ours.File());
}

} // namespace

TEST(MergeProperty, OfResourceListsLosesNothingAndIsSymmetric)
{
    const TestProgram program;
    Environment &env = *program.env;
    EXPECT_TRUE(rc::check([&] {
        List base;
        List ours;
        List theirs;
        EditAndMergeWithBase(env, base, ours, theirs);
        const MergeResult merged = MergeFiles(env, {base.File(), ours.File(), theirs.File()});
        const MergeResult mirrored = MergeFiles(env, {base.File(), theirs.File(), ours.File()});
        RC_ASSERT(merged.refusal.isEmpty());
        const Versions versions = VersionsIn(merged.bytes);
        RC_ASSERT(versions == VersionsIn(mirrored.bytes));
        RC_ASSERT(merged.conflicts.size() == mirrored.conflicts.size());
        CheckNothingIsLost(base, ours, theirs, versions);
        CheckNothingIsLost(base, theirs, ours, versions);
        const MergeResult clean = MergeFiles(env, {base.File(), ours.File(), theirs.File()}, OnConflict::KeepBase);
        RC_ASSERT(clean.conflicts.isEmpty() && (!merged.conflicts.isEmpty() || clean.bytes == merged.bytes));
        RC_ASSERT(MergeFiles(env, {clean.bytes, clean.bytes, base.File()}).refusal.isEmpty());
    }));
}

TEST(MergeProperty, LosesNothingIsSymmetricAndLoads)
{
    StringProject program;
    Environment &env = *program.TestProgram::env;
    EXPECT_TRUE(rc::check([&] {
        Table base;
        base.AddLanguage("b");
        Table ours;
        Table theirs;
        EditAndMergeWithBase(env, base, ours, theirs);
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
