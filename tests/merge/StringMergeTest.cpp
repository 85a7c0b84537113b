// SPDX-License-Identifier: MIT
#include "MergedText.h"

namespace
{

constexpr const char *TWO = "Number of Language|2\nString ID|Resource Type|Description|English(9)|French(12)\n";

std::string Table(const std::string &rows, const char *header = TWO)
{
    const auto count = std::count(rows.begin(), rows.end(), '\n');
    return header + rows + "##number|" + std::to_string(count) + '\n';
}

struct StringMerge : testing::Test
{
    MergeResult Merge(const std::string &base, const std::string &ours, const std::string &theirs,
                      OnConflict onConflict = OnConflict::Mark)
    {
        const auto bytes = [](const std::string &text) {
            return text.empty() ? QByteArray() : StringFileBytes(QByteArray::fromStdString(text));
        };
        return MergeFiles(*project.TestProgram::env, {bytes(base), bytes(ours), bytes(theirs)}, onConflict);
    }

    void Expect(const std::string &base, const std::string &ours, const std::string &theirs, const std::string &merged,
                const char *conflicts = "")
    {
        const MergeResult result = Merge(base, ours, theirs);
        EXPECT_EQ(result.refusal.toStdString(), "");
        EXPECT_EQ(Readable(result.bytes), merged);
        EXPECT_EQ(result.conflicts.join(u"; ").toStdString(), conflicts);
    }

    StringProject project;
};

} // namespace

TEST_F(StringMerge, TakesWhatOneSideHasChanged)
{
    const std::string base = "ID_A|Normal|first|a|A\nID_B|Normal||b|B\nID_C|Push||c|C\n";
    Expect(Table(base), Table("ID_A|Normal|first|a1|A\nID_B|Normal||b|B\nID_C|Push||c|\n"),
           Table("ID_A|Normal|1st|a|A1\nID_B|Push||b|B2\nID_C|Push||c|C\n"),
           Table("ID_A|Normal|1st|a1|A1\nID_B|Push||b|B2\nID_C|Push||c|\n"));
    Expect(Table(base), Table(base + "ID_O|Normal||o|\nID_X|Normal||x|\n"),
           Table("ID_T1|Normal||t|\n" + base + "ID_T|Push||t|\nID_X|Normal|||X\n"),
           Table("ID_T1|Normal||t|\n" + base + "ID_O|Normal||o|\nID_T|Push||t|\nID_X|Normal||x|X\n"));
    Expect(Table(base), Table("ID_A|Normal|first|a|A\nID_C|Push||c|C\n"), Table("ID_B|Normal||b|B\nID_C|Push||c|C\n"),
           Table("ID_C|Push||c|C\n"));
    // The order of theirs, since only theirs has moved rows; a new row of ours comes after the row before it.
    Expect(Table(base), Table("ID_A|Normal|first|a|A\nID_O|Push||o|\nID_B|Normal||b|B\nID_C|Push||c|C2\n"),
           Table("ID_C|Push||c|C\nID_A|Normal|first|a|A\nID_T|Push||t|\nID_B|Normal||b|B\n"),
           Table("ID_C|Push||c|C2\nID_A|Normal|first|a|A\nID_O|Push||o|\nID_T|Push||t|\nID_B|Normal||b|B\n"));
}

TEST_F(StringMerge, MarksWholeRowsWithTheirCleanCellsMerged)
{
    Expect(Table("ID_A|Normal|d|a|A\nID_B|Normal||b|B\n"), Table("ID_A|Normal|d|a1|A1\nID_B|Normal||b|B\n"),
           Table("ID_A|Push|d|a2|A\nID_B|Normal||b|B\n"),
           TWO + InConflict("ID_A|Push|d|a1|A1\n", "ID_A|Push|d|a2|A1\n") + "ID_B|Normal||b|B\n##number|2\n",
           "ID_A: English(9)");
    Expect(Table("ID_A|Normal||a|A\nID_B|Normal||b|B\n"), Table("ID_B|Normal||b|B1\n"), Table("ID_A|Normal||a|A2\n"),
           TWO + InConflict("", "ID_A|Normal||a|A2\n") + InConflict("ID_B|Normal||b|B1\n", "") + "##number|2\n",
           "ID_A: deleted in ours, changed in theirs; ID_B: deleted in theirs, changed in ours");
    Expect("", Table("ID_A|Normal||a|\n"), Table("ID_A|Push||a|A\n"),
           TWO + InConflict("ID_A|Normal||a|A\n", "ID_A|Push||a|A\n") + "##number|1\n", "ID_A: Resource Type");
    const MergeResult kept = Merge(Table("ID_A|Normal||a|A\nID_B|Normal||b|B\n"), Table("ID_A|Normal||a1|A1\n"),
                                   Table("ID_A|Normal||a2|A\nID_B|Push||b|B\n"), OnConflict::KeepBase);
    EXPECT_EQ(Readable(kept.bytes), Table("ID_A|Normal||a|A1\nID_B|Normal||b|B\n"));
    EXPECT_TRUE(kept.conflicts.isEmpty());
}

TEST_F(StringMerge, MergesLanguagesByNumber)
{
    const char *const more = "Number of Language|3\nString ID|Resource Type|Description|English(9)|French(12)|de(8)\n";
    const char *const other =
        "Number of Language|3\nString ID|Resource Type|Description|es(7)|English(9)|Français(12)\n";
    const char *const all =
        "Number of Language|4\nString ID|Resource Type|Description|es(7)|English(9)|Français(12)|de(8)\n";
    const char *const one = "Number of Language|1\nString ID|Resource Type|Description|English(9)\n";
    Expect(Table("ID_A|Normal||a|A\n"), Table("ID_A|Normal||a|A2|aa\n", more), Table("ID_A|Normal||s|a1|A\n", other),
           Table("ID_A|Normal||s|a1|A2|aa\n", all));
    Expect(Table("ID_A|Normal||a|A\n"), Table("ID_A|Normal||a1\n", one), Table("ID_A|Push||a|A\n"),
           Table("ID_A|Push||a1\n", one));
    // The other side has changed a text of the language that one side has dropped.
    Expect(Table("ID_A|Normal||a|A\nID_B|Normal||b|B\n"), Table("ID_A|Normal||a\nID_B|Normal||b1\n", one),
           Table("ID_A|Normal||a|A2\nID_B|Normal||b|B\n"),
           TWO + InConflict("ID_A|Normal||a|\n", "ID_A|Normal||a|A2\n") + "ID_B|Normal||b1|B\n##number|2\n",
           "ID_A: French(12)");
    // Names without numbers are looked up; a file may lack the types.
    Expect(Table("ID_A||a\n", "Number of Language|1\nString ID|Description|English\n"),
           Table("ID_A||a1\n", "Number of Language|1\nString ID|Description|English\n"), Table("ID_A|Push||a\n", one),
           Table("ID_A|Push||a1\n", "Number of Language|1\nString ID|Resource Type|Description|English(9)\n"));
}

TEST_F(StringMerge, WritesTheFormOfOurs)
{
    const QByteArray base = StringFileBytes(QByteArray::fromStdString(Table("ID_A|Normal||ä|A\n")));
    const QByteArray theirs = StringFileBytes(QByteArray::fromStdString(Table("ID_A|Normal||ä|天\n")));
    for (const char *mark : {"", "\xEF\xBB\xBF"}) {
        for (const char *end : {"\n", "\r\n"}) {
            const QByteArray ours =
                mark + QByteArray::fromStdString(Table("ID_A|Push||ä|A\n")).replace('|', '\t').replace("\n", end);
            const MergeResult result = MergeFiles(*project.TestProgram::env, {base, ours, theirs});
            EXPECT_EQ(result.bytes, QByteArray(ours).replace("\tA", "\t天"));
        }
    }
    const QByteArray broken = QByteArray(theirs).replace("\x29\x59", QByteArray("\x00\xD8", 2));
    const QByteArray narrow = QByteArray::fromStdString(Table("ID_A|Push||ä|A\n")).replace('|', '\t');
    EXPECT_NE(MergeFiles(*project.TestProgram::env, {base, narrow, broken}).refusal, QString());
}

TEST_F(StringMerge, RefusesWhatItWouldLoseOrMistake)
{
    const std::string good = Table("ID_A|Normal||a|A\n");
    const std::string header = TWO;
    for (const auto &[theirs, reason] : {
             std::pair<std::string, const char *>("", "theirs: the file is empty"),
             {header + "ID_A|Normal||a|A\n", "line 4: the file ends before"},
             {Table("ID_A|Normal||a|A|x\n"), "line 3: the row of ID_A has more fields"},
             {Table("|Normal||a|A\n"), "line 3: the row has no ID"},
             {Table("ID_A|Normal||a|A\n\nID_A|Normal||b|\n"), "theirs, line 5: ID_A is in line 3 too"},
             {Table("", "Number of Language|3\nString ID|Resource Type|Description|English(9)|French(12)\n"),
              "line 2: there are 2 languages, and line 1 says 3"},
             {Table("", "Number of Language|2\nString ID|Resource Type|Description|English|a(9)\n"), "number 9"},
             {Table("", "Number of Language|1\nString ID|Resource Type|Description|Klingon\n"),
              "\"Klingon\" has no number"},
             {good + "ID_B|Normal||b|B\n", "line 4: there is text after the row ##number"},
             {TWO + InConflict("ID_A|Normal||a|\n", "ID_A|Normal||b|\n") + "##number|1\n",
              "line 3 begins with the conflict"},
         }) {
        EXPECT_THAT(Merge(good, good, theirs).refusal.toStdString(), testing::HasSubstr(reason));
        EXPECT_NE(Merge(good, theirs, good).refusal, QString());
    }
    const QByteArray bytes = StringFileBytes(QByteArray::fromStdString(good));
    for (const QByteArray &broken : {bytes + '\0', bytes.mid(2) + '\xFF', QByteArray("\xFE\xFF", 2) + bytes})
        EXPECT_NE(MergeFiles(*project.TestProgram::env, {bytes, broken, bytes}).refusal, QString());
}
