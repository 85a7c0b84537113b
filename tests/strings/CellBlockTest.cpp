// SPDX-License-Identifier: MIT
#include "CellBlock.h"
#include "TableProject.h"

#include <random>

using namespace Qt::StringLiterals;

namespace
{

/// Makes a block from a text in which "|" separates cells and "\n" lines.
CellRows Block(const QString &readable)
{
    CellRows rows;
    for (const QString &line : readable.split(u'\n'))
        rows.push_back(line.split(u'|'));
    return rows;
}

/// Returns "row,col=text" for each change, "+ID(kind) col=text" for each new row, and "!" with each refusal.
QString Readable(const PastePlan &plan)
{
    QStringList parts;
    for (const CellChange &change : plan.changes)
        parts << u"%1,%2=%3"_s.arg(change.row).arg(change.col).arg(change.text);
    for (const NewRow &row : plan.rows) {
        parts << u'+' + row.id + (row.push ? u"(Push)"_s : QString());
        for (const auto &[col, text] : row.texts)
            parts.back() += u" %1=%2"_s.arg(col).arg(text);
    }
    for (const QString &refused : plan.refused)
        parts << u'!' + refused;
    return parts.join(u"; "_s);
}

const QByteArray ROWS = TWO_LANGUAGES + "ID_A|Normal|a|A|Aa\nlow id|Push|b|B|Bb\nID_C|Normal|c||\n##number|3\n";

} // namespace

TEST(CellBlock, ReadsAnyCopiedCellsFromTheClipboard)
{
    const QStringList pieces{u"a"_s,      u"\""_s,           u"\t"_s,
                             u"\n"_s,     u"\r"_s,           u"\r\n"_s,
                             u" "_s,      QString(QChar(0)), QString(QChar(0xD800)),
                             u"\u2028"_s, QString(100, u'x')};
    std::mt19937 random(1);
    const auto text = [&](unsigned most) {
        QString made;
        for (auto n = random() % (most + 1); n > 0; --n)
            made += pieces[qsizetype(random() % unsigned(pieces.size()))];
        return made;
    };
    for (int round = 0; round < 3000; ++round) {
        CellRows block(2 + random() % 3);
        for (QStringList &line : block) {
            for (auto n = random() % 3; n < 3; ++n)
                line << text(5);
        }
        ASSERT_EQ(FromTsv(ToTsv(block)), block);
        const CellRows any = FromTsv(text(20)); // any text from another program
        ASSERT_TRUE(any.size() == 1 || FromTsv(ToTsv(any)) == any);
    }
    EXPECT_EQ(ToTsv({{u"a\t\"b\"\n"_s}}), u"a\t\"b\"\n"_s);
    EXPECT_EQ(FromTsv(u"\"a"), CellRows{{u"\"a"_s}});
    EXPECT_EQ(FromTsv(u"a\tb\r\nc"), (CellRows{{u"a"_s, u"b"_s}, {u"c"_s}}));
    EXPECT_EQ(FromTsv(u""), CellRows{{QString()}});
}

TEST(CellBlock, PastesIntoTheMatchingCells)
{
    TableProject project(ROWS);
    project.AddFolder(project.root, KIND_BINARY).AddResource(project.CreateFileRes("ID_FILE", ANY_RESOLUTION));
    const std::vector<int> all{0, 1, 2, 3, 4};
    const PasteTarget atText{0, 3, {}, {0, 1, 2}, all};
    const PasteTarget atId{0, 0, {0}, {0, 1, 2}, all};
    const PasteTarget atNew{3, 0, {}, {0, 1, 2}, all};
    const PasteTarget filtered{1, 2, {1}, {1}, {0, 2, 4}};
    struct Case
    {
        PasteTarget target;
        const char *block;
        const char *plan;
    };
    const Case cases[] = {
        // A single text.
        {{0, 3, {0, 2}, {}, all}, "A", "2,3=A"},
        {{0, 1, {0, 1}, {}, all}, "push", "0,1=Push"},
        {{0, 1, {0, 1}, {}, all}, "x", "!Line 1: \"x\" is not a resource type; the types are Normal and Push"},
        {{3, 4, {}, {}, all}, "x", "+ 4=x"},
        {{1, 4, {}, {}, all}, "", "1,4="},
        {atId, "ID_Z", "!Line 1: the ID ID_A is kept: pasting doesn't rename rows"},
        {atNew, " id_z ", "+ID_Z"},
        // By position.
        {atText, "x|y\nz", "0,3=x; 0,4=y; 1,3=z"},
        {atText, "x|y|z",
         "0,3=x; 0,4=y; !The block has 3 columns, but there is room for 2 only; the others are left out"},
        {{2, 1, {}, {0, 1, 2}, all}, "|x\nPush|y\n|\nNormal|z", "2,2=x; +(Push) 2=y; + 2=z"},
        {filtered, "x|y\nz|w", "1,2=x; 1,4=y; + 2=z 4=w"},
        {atText, "English|French\nx|y", "0,3=x; 0,4=y"},
        {atNew, "ID_N|Push|n\n9|Normal|x\n|Normal|x\nID_FILE||x\nid_n||x",
         "+ID_N(Push) 2=n; !Line 2: \"9\" is not a valid ID: an ID has 1 to 64 letters, digits and \"_\", and doesn't "
         "begin with a digit; !Line 3: the line has no ID; !Line 4: a resource of another kind has "
         "the ID ID_FILE; !Line 5: an earlier line has the ID ID_N"},
        // By ID.
        {atText, "ID_C|x\nlow id|y", "2,3=x; 1,3=y"},
        {atText, "ID_C|x\nhello|y\nyou|z", "0,3=ID_C; 0,4=x; 1,3=hello; 1,4=y; 2,3=you; 2,4=z"},
        {atId, "id_c|Push|x\nID_D||y\nID_C||z", "2,1=Push; 2,2=x; +ID_D 2=y; !Line 3: an earlier line has the ID ID_C"},
        {filtered, "String ID|french|German\nID_A|x|\nID_N|y|",
         "0,4=x; +ID_N 4=y; !Line 1: the column \"German\" is left out: the table has no column of that title"},
        {filtered, "French|ID\nx|ID_A", "0,4=x"},
    };
    for (const Case &one : cases) {
        const PastePlan plan = PlanPaste(project.table, Block(QString::fromUtf8(one.block)), one.target);
        EXPECT_EQ(Readable(plan).toStdString(), one.plan) << one.block;
        EXPECT_EQ(plan.IsEmpty(), *one.plan == '!' || !*one.plan);
    }
    const auto cells = CellsOf(project.table, {0, 1, 2}, all);
    EXPECT_EQ(cells.front(), Block(u"ID|Resource Type|Description|English|French"_s).front());
    EXPECT_EQ(Readable(PlanPaste(project.table, cells, atText)), QString());
}

TEST(CellBlock, PastedTextsSurviveASaveAndALoad)
{
    TableProject project(ROWS);
    const QString hard = u"a\tb\r\nc\nd\re\u2028f\u2029g"_s + QChar(0) + QChar(0xDC00) + QString(100'000, u'x');
    const CellRows block = FromTsv(ToTsv({{u"ID_A"_s, hard}, {u"ID_N"_s, hard}}));
    const PastePlan plan = PlanPaste(project.table, block, {0, 3, {}, {0, 1, 2}, {0, 1, 2, 3, 4}});
    project.Run<STR_SET_CMD>(plan.changes, plan.rows);
    EXPECT_EQ(project.table.CellText(3, 3), project.table.CellText(0, 3));
    EXPECT_TRUE(project.table.CellText(0, 3).startsWith(u"a b c d e f g"_s + QChar(0) + QChar(0xDC00) + u'x'));
    EXPECT_FALSE(project.Written().empty());
    TableProject again;
    EXPECT_EQ(again.ReadBytes(project.folder.Get("out.txt")), 0);
    again.table.Rebuild();
    EXPECT_EQ(again.Dump(), project.Dump());
}

TEST(CellBlock, ReplacesMatchesFromLeftToRight)
{
    TableProject project(TWO_LANGUAGES + "ID_A|Push|aAaa|push|xay\n##number|1\n");
    const auto changes = PlanReplace(project.table, {0}, {0, 1, 2, 3, 4}, u"aa"_s, false, u"a\nb"_s);
    EXPECT_EQ(Readable({changes, {}, {}}), u"0,2=a ba b"_s);
    EXPECT_EQ(Readable({PlanReplace(project.table, {0}, {2, 4}, u"a"_s, true, {}), {}, {}}), u"0,2=A; 0,4=xy"_s);
    EXPECT_TRUE(PlanReplace(project.table, {0}, {2}, {}, true, u"x"_s).empty());
    EXPECT_TRUE(PlanReplace(project.table, {0}, {2}, u"A"_s, true, u"A"_s).empty());
}
