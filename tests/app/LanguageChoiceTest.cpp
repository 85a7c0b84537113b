// SPDX-License-Identifier: MIT
// Tests the choice of a project's languages from the language table, without a window.
#include "CLangFltr.h"
#include "FakeBoxes.h"
#include "TableProject.h"

using namespace Qt::StringLiterals;

namespace
{

/// A project with English and a language that is not in the language table, and the choice in its initial state.
struct LanguageChoice : TableProject
{
    LanguageChoice(const QByteArray &file = "Number of Language|2\nString ID|Resource Type|Description|English(9)|"
                                            "Old(77)\nID_A|Normal||Hello|x\n##number|1\n")
        : TableProject(file)
    {
        strings.SetObserver(&observer);
        folder.Put("bin/tuvik.ini", "[Language]\nFrench=12\nEnglish=9\nno number\n=5\nDescription=-1\nText10=1\n"
                                    "Text9=2\n");
        Open();
    }
    ~LanguageChoice() { strings.SetObserver(nullptr); }

    void Open()
    {
        list = {};
        EXPECT_TRUE(choice.InitList(list));
        list.onCheck = [this](qint32 number, bool checked) { choice.OnCheck(number, checked); };
    }
    void Sort(int state)
    {
        list.Sort(state, [this](qint32 a, qint32 b, int col) { return choice.Compare(a, b, col); });
    }
    void Turn(std::initializer_list<qint32> numbers)
    {
        for (const qint32 number : numbers) {
            const auto row = std::find_if(list.rows.begin(), list.rows.end(),
                                          [number](const CheckList::Row &each) { return each.data == number; });
            list.SetChecked(size_t(row - list.rows.begin()), !row->checked);
        }
    }
    /// Presses OK. Returns the result, the question, and the language columns afterwards.
    std::string Ok(bool answer = true)
    {
        boxes.asked.clear();
        boxes.answers = {answer};
        QStringList result{choice.Apply(list) ? u"closed"_s : u"open"_s};
        result += boxes.asked;
        for (int col = StringTable::FIRST_LANGUAGE_COLUMN; col < table.ColumnCount(); ++col)
            result += table.ColumnLanguage(col)->title;
        return result.join(u'|').toStdString();
    }

    CountingObserver observer;
    FakeBoxes boxes;
    CLangFltr choice{table, *this, strings, boxes};
    CheckList list;
};

} // namespace

TEST(LanguageChoice, ShowsTheLanguagesOfTheTableInItsOrderAndSortsThemByNameOrNumber)
{
    LanguageChoice project;
    const auto sorted = [&](int state) {
        project.Sort(state);
        QStringList rows;
        for (const CheckList::Row &row : project.list.rows)
            rows += row.texts.join(u'=') + (row.checked ? u"*"_s : QString());
        return rows.join(u' ').toStdString();
    };
    EXPECT_EQ(sorted(0), "French=12 English=9* Text10=1 Text9=2") << "only languages have a row";
    EXPECT_EQ(sorted(1), "English=9* French=12 Text9=2 Text10=1");
    EXPECT_EQ(sorted(-2), "French=12 English=9* Text9=2 Text10=1");
    for (const int state : {3, INT_MIN})
        EXPECT_EQ(sorted(state), "French=12 English=9* Text9=2 Text10=1") << state;
}

TEST(LanguageChoice, AsksWithTheCountsOfChangesAndChangesNothingBeforeTheAnswer)
{
    LanguageChoice project;
    EXPECT_EQ(project.Ok(), "closed|English|Old") << "no question without a change";
    project.Turn({12, 9, 12, 9});
    EXPECT_EQ(project.Ok(), "closed|English|Old");
    project.list.SetAll(false);
    project.list.SetAll(true);
    EXPECT_EQ(project.Ok(false), "open|OK/Cancel: 3 language(s) will be added, and 0 will be deleted.|English|Old");
    project.Turn({9, 2, 1});
    const std::string question = "|Yes/No: 1 language(s) will be added, and 1 will be deleted.\r\n"
                                 "All strings of the deleted language(s) will be deleted too. Continue?";
    EXPECT_EQ(project.Ok(false), "open" + question + "|English|Old");
    EXPECT_EQ(project.observer.changed + project.observer.removed, 0);
    EXPECT_EQ(project.Dump(), u"ID_A Normal  Hello x"_s);

    EXPECT_EQ(project.Ok(), "closed" + question + "|Old|French");
    EXPECT_GT(project.observer.changed, 0) << "the document is modified";
    EXPECT_EQ(project.Dump(), u"ID_A Normal  x "_s);
    EXPECT_EQ(project.Language(9), nullptr);
}

TEST(LanguageChoice, AddsTheDescriptionAndThenLanguagesInTheOrderOfTheList)
{
    LanguageChoice project(TWO_LANGUAGES + "##number|0\n");
    project.Turn({9, 12});
    EXPECT_TRUE(QByteArray::fromStdString(project.Ok()).endsWith("Continue?")) << "there may be none";
    while (!project.strings.subfolders.empty())
        project.DeleteFolder(*project.strings.subfolders.back());
    project.table.Rebuild();
    project.Open();
    project.Sort(-1);
    project.list.SetAll(true);
    EXPECT_EQ(project.Ok(), "closed|OK/Cancel: 4 language(s) will be added, and 0 will be deleted."
                            "|Text10|Text9|French|English");
    EXPECT_EQ(project.strings.subfolders.front()->index, -1);
    project.Type(6, u"Hello"_s);
    EXPECT_EQ(project.Dump(), u"ID_STRING_0001 Normal     HELLO"_s);
}

TEST(LanguageChoice, DeletingALanguageKeepsTheHistoryButItsCommandsFail)
{
    LanguageChoice project(TWO_LANGUAGES + "ID_A|Normal||Hello|Bonjour\n##number|1\n");
    project.Mod(0, 3, u"Bye"_s);
    project.Mod(0, 4, u"Salut"_s);
    project.Turn({12});
    (void)project.Ok();
    project.table.history.Undo();
    EXPECT_EQ(StringEditMessage(project.grid.TakeMessage()), u"The language does not exist"_s);
    EXPECT_EQ(project.Dump(), u"ID_A Normal  Bye"_s);
}
