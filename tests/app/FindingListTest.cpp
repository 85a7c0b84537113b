// SPDX-License-Identifier: MIT
#include "FindingCursor.h"
#include "FindingTexts.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace
{

Finding Make(const char *rule, Severity severity, const QString &id, qint32 language, const QString &text = u"why"_s)
{
    Finding finding;
    finding.code = rule;
    finding.severity = severity;
    finding.id = id;
    finding.language = language;
    finding.text = text;
    return finding;
}

CheckResult Project()
{
    CheckResult project;
    project.project = u"/p/demo.vcproj"_s;
    project.relativeTo = u"/p"_s;
    project.languages.resize(2);
    project.languages[0].number = 9;
    project.languages[0].name = u"English"_s;
    project.languages[1].number = 12;
    project.languages[1].name = u"French"_s;
    return project;
}

/// A list with findings of two strings and two of files, and a cursor in it.
struct Listed
{
    FindingList list;
    FindingCursor cursor{list};
    std::vector<Finding> findings{
        Make("placeholder-mismatch", Severity::Error, u"ID_B"_s, 12),
        Make("blank-edge", Severity::Warning, u"ID_A"_s, 9),
        Make("end-punctuation", Severity::Note, u"ID_A"_s, 12),
        Make("file-missing", Severity::Error, u"ID_C"_s, -1, u"no file x.png"_s),
        Make("lists-unsaved", Severity::Note, {}, -1),
    };

    Listed()
    {
        for (size_t i = 3; i < findings.size(); ++i) {
            findings[i].file = u"/p/res/demo.res.xml"_s;
            findings[i].line = int(i) + 7;
        }
        list.Set(findings, Project());
    }
    void Remove(size_t index)
    {
        findings.erase(findings.begin() + ptrdiff_t(index));
        list.Set(findings, Project());
        cursor.ListChanged();
    }
    [[nodiscard]] std::string Rules() const
    {
        QStringList rules;
        for (int row = 0; row < list.RowCount(); ++row)
            rules += list.CellText(row, FindingList::RULE_COLUMN).section(u'-', 0, 0);
        return rules.join(u' ').toStdString();
    }
};

} // namespace

TEST(FindingList, FiltersBySeverityAndByTextAndSortsByColumns)
{
    Listed listed;
    FindingList &list = listed.list;
    EXPECT_EQ(listed.Rules(), "placeholder blank end file lists");
    EXPECT_EQ(list.CellText(3, FindingList::PLACE_COLUMN), u"res/demo.res.xml:10"_s);
    EXPECT_EQ(list.CellText(0, FindingList::PLACE_COLUMN), QString());
    const std::pair<FindingFilter, const char *> filters[] = {
        {{.errors = false}, "blank end lists"},
        {{.warnings = false, .notes = false}, "placeholder file"},
        {{.text = u"FRENCH"_s}, "placeholder end"},
        {{.text = u"x.png"_s}, "file"},
        {{.text = u"res.xml:11"_s}, "lists"},
        {{.text = u"id_a"_s}, "blank end"},
        {{.text = u"end-"_s}, "end"},
    };
    for (const auto &[filter, rules] : filters) {
        list.SetFilter(filter);
        EXPECT_EQ(listed.Rules(), rules);
    }
    list.SetFilter({});
    const std::pair<int, const char *> orders[] = {
        {1, "lists blank end placeholder file"},  {-1, "file placeholder blank end lists"},
        {2, "file lists blank placeholder end"},  {4, "blank end file lists placeholder"},
        {-5, "lists file placeholder blank end"}, {9, "placeholder blank end file lists"}};
    for (const auto &[state, rules] : orders) {
        list.SortBy(state);
        EXPECT_EQ(listed.Rules(), rules) << state;
    }
}

TEST(FindingList, FindsItsFindingsAgain)
{
    Listed listed;
    const std::vector<Finding> before = listed.findings;
    listed.findings[1].text = u"another"_s;
    listed.findings[3].line = 99; // a line was added before it
    listed.findings.insert(listed.findings.begin(), Make("blank-edge", Severity::Warning, u"ID_A"_s, 12));
    listed.list.Set(listed.findings, Project());
    EXPECT_EQ(listed.list.RowOf(before[0], 0), 1);
    EXPECT_EQ(listed.list.RowOf(before[1], 1), 2) << "the same fault in other words";
    EXPECT_EQ(listed.list.RowOf(before[3], 3), 4);
    EXPECT_EQ(listed.list.RowOf(Make("blank-edge", Severity::Warning, u"ID_Z"_s, 12), 0), -1);
    EXPECT_EQ(listed.list.RowsOf(before), (std::vector<int>{1, 3, 4, 5}));
}

TEST(FindingCursor, StepsInTheOrderOfTheListFromTheFocusOrFromWhereAFindingWas)
{
    Listed listed;
    const auto step = [&](int steps, const std::optional<FocusedPlace> &focus = {}) {
        return listed.cursor.Step(steps, focus);
    };
    EXPECT_EQ(step(1), 0);
    EXPECT_EQ(step(-1), 4);
    listed.cursor.Set(4);
    EXPECT_EQ(step(1), 0);
    EXPECT_EQ(step(-1), 3);
    EXPECT_EQ(step(1, FocusedPlace{u"ID_A"_s, true, 9}), 2) << "behind the findings of that cell";
    EXPECT_EQ(step(-1, FocusedPlace{u"ID_A"_s, true, 9}), 0);
    EXPECT_EQ(step(1, FocusedPlace{u"ID_A"_s, true, 77}), 1) << "to the first of the row";
    EXPECT_EQ(step(1, FocusedPlace{u"ID_C"_s}), 3) << "to the first of a file";
    EXPECT_EQ(step(1, FocusedPlace{u"ID_OTHER"_s}), 0) << "it isn't about that";
    listed.cursor.Set(3);
    EXPECT_EQ(step(1, FocusedPlace{u"ID_C"_s}), 4);

    listed.Remove(3);
    EXPECT_EQ(listed.cursor.Row(), -1);
    EXPECT_EQ(step(1), 3);
    EXPECT_EQ(step(-1), 2);
    listed.cursor.Set(3);
    listed.Remove(3);
    EXPECT_EQ(step(1), 0) << "the last one is gone";
    listed.cursor.Set(1);
    listed.Remove(1);
    EXPECT_EQ(step(1, FocusedPlace{u"ID_A"_s, true, 9}), 1) << "the focus is still in its cell";
    listed.cursor.Set(1);
    listed.list.SortBy(-1);
    listed.cursor.ListChanged();
    EXPECT_EQ(listed.cursor.Row(), 1);
    listed.list.SortBy(1);
    listed.cursor.ListChanged();
    EXPECT_EQ(listed.cursor.Row(), 0) << "the same finding elsewhere";
    listed.list.Set({}, Project());
    listed.cursor.ListChanged();
    EXPECT_TRUE(listed.cursor.Row() == -1 && step(1) == -1);
}

TEST(FindingTexts, AreForPeople)
{
    EXPECT_EQ(CountsText({2, 5, 1}), u"2 errors, 5 warnings, 1 note"_s);
    EXPECT_EQ(CountsText({}), u"no findings"_s);
    EXPECT_EQ(ShortCountsText({0, 5, 1}), u"5 warnings"_s);
    Listed listed;
    EXPECT_EQ(StepText(listed.list, 4, true), u"5 of 5, note: why (res/demo.res.xml:11)"_s);
    EXPECT_EQ(GoneText(listed.list, 3), u"4 of 5, error: the project has no resource ID_C (res/demo.res.xml:10)"_s);
    EXPECT_EQ(EmptyListText(CheckState::Checked, FindingList()), u"No findings"_s);
    EXPECT_EQ(EmptyListText(CheckState::Checking, FindingList()), u"Checking\u2026"_s);
    EXPECT_TRUE(RuleText(listed.findings[3]).startsWith(u"file-missing: "_s));
    EXPECT_TRUE(RuleText(Make("no-rule", Severity::Note, {}, -1)).isEmpty());
}
