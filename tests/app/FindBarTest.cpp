// SPDX-License-Identifier: MIT
// Tests the find bar and the details strip of the string view, each on its own.
#include "FindBar.h"
#include "DetailsStrip.h"
#include "FilterChoice.h"
#include "TableProject.h"
#include "TestWindow.h"

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QToolButton>
#include <QWheelEvent>

namespace
{

struct OpenBar : TableProject
{
    OpenBar() : TableProject(TWO_LANGUAGES + "ID_A|Normal||a|\nID_B|Push|b||\n##number|2\n")
    {
        bar.conditionChanged = [this] { told += u"changed "; };
        bar.closed = [this] { told += u"closed "; };
        bar.findNext = [this](bool back) { told += back ? u"back " : u"next "; };
        bar.toGrid = [this] { told += u"grid "; };
        bar.replaceAll = [this] { told += u"replace "; };
        bar.hideColumn = [this](int col, bool hide) {
            told += QString::number(col) + (hide ? u" hide "_s : u" show "_s);
        };
        bar.Fill(table);
        bar.resize(900, bar.sizeHint().height());
        bar.show();
        bar.FocusText();
    }
    QString Take() { return std::exchange(told, {}); }

    QString told;
    FindBar bar;
    QLineEdit &text = TestWindow::Named<QLineEdit>(bar, u"Find"_s);
    FilterChoice &column = TestWindow::Named<FilterChoice>(bar, u"Column"_s);
    FilterChoice &missing = TestWindow::Named<FilterChoice>(bar, u"Missing in"_s);
};

} // namespace

TEST(FindBar, ReportsEachChangeOnceAndTheNavigationKeys)
{
    OpenBar open;
    QTest::keyClicks(&open.text, u"ab"_s);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_F3, Qt::Key_Down})
        QTest::keyClick(&open.text, key);
    for (const Qt::Key key : {Qt::Key_Enter, Qt::Key_F3})
        QTest::keyClick(&open.text, key, Qt::ShiftModifier);
    EXPECT_EQ(open.Take(), u"changed changed next next grid back back "_s);
    QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, -120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&open.column, &wheel);
    EXPECT_EQ(open.Take(), QString()) << "the wheel changes only a focused choice";
    QTest::mouseClick(&TestWindow::Named<QToolButton>(open.bar, u"Match case"_s), Qt::LeftButton);
    QTest::keyClick(&open.column, Qt::Key_Down);
    QTest::keyClicks(&open.missing, u"French"_s);
    EXPECT_EQ(open.bar.Condition(), (StringCondition{u"ab"_s, true, 0, 4, StringCondition::Kind::Any}));
    EXPECT_EQ(open.missing.currentText(), u"French (2)"_s);
    EXPECT_EQ(open.Take(), u"changed changed changed "_s);

    open.bar.ShowReplace(true);
    QTest::keyClicks(&TestWindow::Named<QLineEdit>(open.bar, u"Replace with"_s), u"c\r"_s);
    EXPECT_EQ(open.Take() + open.bar.Replacement(), u"replace c"_s);
    QTest::keyClick(&open.missing, Qt::Key_Escape);
    EXPECT_EQ(open.bar.Condition(), StringCondition());
    EXPECT_EQ(open.Take(), u"changed closed "_s);
}

TEST(FindBar, KeepsTheChosenLanguageAndReportsItsRemoval)
{
    OpenBar open;
    QTest::keyClicks(&open.column, u"French"_s);
    QTest::keyClicks(&open.missing, u"English"_s);
    EXPECT_EQ(open.Take(), u"changed changed "_s);
    open.DeleteFolder(*open.Language(9));
    open.bar.Fill(open.table);
    EXPECT_EQ(open.bar.Condition(), (StringCondition{{}, false, 3, StringCondition::NOWHERE}));
    EXPECT_EQ(open.Take(), u"changed "_s);
    open.Language(12)->title = QString(300, u'x');
    open.bar.Fill(open.table);
    EXPECT_EQ(open.Take(), QString()) << "the language is the same";

    open.bar.ShowCounts(12'345, 67'890);
    const int oneLine = open.bar.sizeHint().height();
    open.bar.resize(300, oneLine);
    EXPECT_LE(open.bar.minimumSizeHint().width(), 300);
    EXPECT_GT(open.bar.sizeHint().height(), oneLine) << "the choices have a line of their own";
}

TEST(FindBar, HidesColumnsByAMenuExceptTheLastVisibleOne)
{
    OpenBar open;
    open.bar.ShowHidden({false, true, true, true});
    QMenu &menu = *open.bar.findChild<QMenu *>();
    menu.popup(QPoint());
    menu.setActiveAction(menu.actions().last());
    QTest::keyClick(&menu, Qt::Key_Space);
    EXPECT_EQ(open.Take(), u"4 hide "_s);
    open.bar.ShowHidden({false, true, true, true, true});
    EXPECT_TRUE(menu.isVisible());
    EXPECT_FALSE(menu.actions().first()->isEnabled());
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(menu.actions()[2]).center());
    EXPECT_EQ(open.Take(), u"2 show "_s);
}

TEST(DetailsStrip, ShowsTheWholeTextInItsDirectionBesideTheFirstLanguage)
{
    const QByteArray longText = QByteArray(100'000, 'x') + "END";
    TableProject project(
        "Number of Language|2\nString ID|Resource Type|Description|English(9)|Arabic(12)\nID_A|Normal||"
        "a|" +
        longText + "\n##number|1\n");
    DetailsStrip strip;
    strip.show();
    const auto texts = strip.findChildren<QPlainTextEdit *>();
    const auto headings = strip.findChildren<QLabel *>();
    strip.ShowCell(project.table, 0, 4, 37, 512);
    EXPECT_EQ(headings[0]->text() + u'|' + headings[1]->text(), u"ID_A · Arabic · 37 of 512|English"_s);
    EXPECT_EQ(texts[1]->toPlainText(), u"a"_s);
    EXPECT_EQ(texts[0]->document()->defaultTextOption().textDirection(), Qt::RightToLeft);
    EXPECT_LT(texts[0]->toPlainText().size(), 10'000) << "no more than the user can see";
    EXPECT_TRUE(QTest::qWaitFor([&] { return texts[0]->toPlainText().endsWith(u"END"); }));
    strip.ShowCell(project.table, 0, 3, 1, 1);
    EXPECT_EQ(texts[0]->toPlainText(), u"a"_s);
    EXPECT_FALSE(texts[1]->isVisible());
}
