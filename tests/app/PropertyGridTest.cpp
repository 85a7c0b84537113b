#include "EditActions.h"
#include "PropertyWindow.h"

#include <QClipboard>
#include <QColorDialog>
#include <QScrollBar>

namespace
{

/// The rows, as the grid shows them: "*" before a name in bold, "#" before a heading.
std::string RowsOf(const CListGrid &grid)
{
    QString rows;
    for (int row = 0; row < grid.model()->rowCount(); ++row) {
        const auto cell = [&](int col) { return grid.model()->index(row, col); };
        rows += (cell(0).data(ROLE_IS_SET).toBool()       ? u"*"_s
                 : cell(0).data(ROLE_IS_HEADING).toBool() ? u"#"_s
                                                          : u""_s) +
                cell(0).data().toString() + u'|' + cell(1).data().toString() + u'|' + cell(2).data().toString() + u'\n';
    }
    return rows.toStdString();
}

/// Chooses a colour in the dialog that opens next, or cancels it.
void ChooseColor(const QColor &color)
{
    QTimer::singleShot(50, [color] {
        auto *const dialog = dynamic_cast<QColorDialog *>(QApplication::activeModalWidget());
        ASSERT_TRUE(dialog);
        dialog->setCurrentColor(color);
        color.isValid() ? dialog->accept() : dialog->reject();
    });
}

} // namespace

TEST(PropertyGrid, ShowsThePropertiesOfAComponentAndFiltersThem)
{
    PropertyWindow window;
    EXPECT_EQ(RowsOf(window.Grid()),
              "Class|box|Box\nParent Component|None|---\n#edges||Edges\n    top||ZulS32\n    bottom||ZulS32\n"
              "*tint|RGB(16, 32, 48)|ZulColor\n*wait|2s|ZulMsec\ncount||ZulS32\nside||Side\narea||ZulRect\n"
              "picture||ZulImageSrc\n#Base Class||Shape\n*    pos|(1, 2)|ZulPoint\n    size||ZulSize\n"
              "    shown||ZulBool\n");
    EXPECT_EQ(window.Grid().Widths(), (std::vector<int>{150, 400, 77}));
    EXPECT_EQ(window.view->State().last().key + window.view->State().last().value, u"sort0"_s);

    window.view->Run(ACTION_FIND_BAR);
    window.Type(u"bot"_s);
    EXPECT_EQ(window.Grid().model()->rowCount(), 2) << "the row and its heading";
    window.Key(Qt::Key_Down);
    window.Click(u"bottom"_s);
    window.Type(u"7\r"_s);
    window.Click(u"edges"_s);
    EXPECT_EQ(window.Grid().model()->rowCount(), 2);
    window.view->Run(ACTION_FIND_BAR);
    window.Type(u"7"_s);
    EXPECT_EQ(window.RowOf(u"bottom"_s), 1);
    window.Key(Qt::Key_Escape);
    EXPECT_EQ(window.Grid().model()->rowCount(), 15);
    EXPECT_FALSE(window.view->StateOf(ACTION_FIND_BAR)->checked);
    EXPECT_TRUE(window.Grid().hasFocus());
}

TEST(PropertyGrid, TheKeyboardReachesEveryEditor)
{
    PropertyWindow window;
    for (int row = 0; row < 5; ++row)
        window.Key(Qt::Key_Down);
    EXPECT_EQ(window.Grid().currentIndex().row(), 4) << "arrows go on over rows with editors and headings";
    EXPECT_TRUE(window.IsOpen() && window.Grid().hasFocus());
    window.Type(u"12"_s);
    window.Key(Qt::Key_Up);
    EXPECT_EQ(window.Value(u"bottom"_s), "12");
    EXPECT_EQ(window.Grid().SelectedRows(), std::vector<int>{3});
    window.Settle();
    EXPECT_EQ(window.told, "value ");
    window.Key(Qt::Key_Enter);
    EXPECT_FALSE(window.IsOpen());
    window.Key(Qt::Key_F2);
    EXPECT_TRUE(window.Line(u"top"_s).hasFocus());
    window.Type(u"5"_s);
    window.Key(Qt::Key_Escape);
    EXPECT_TRUE(window.Grid().hasFocus() && !window.IsOpen() && window.Value(u"top"_s).empty());

    window.Click(u"area"_s);
    window.Key(Qt::Key_Tab);
    EXPECT_TRUE(window.Line(u"area, Top"_s).hasFocus());
    window.Key(Qt::Key_Backtab, Qt::ShiftModifier);
    for (const auto *const number : {u"1", u"2", u"3", u"4"}) {
        window.Type(QString::fromUtf16(number));
        EXPECT_TRUE(window.Stored("area").isEmpty()) << "nothing is written while typing";
        window.Key(Qt::Key_Tab);
    }
    EXPECT_EQ(window.Stored("area"), "(1,2,3,4)");
    EXPECT_TRUE(window.Grid().hasFocus() && !window.IsOpen());

    window.Click(u"wait"_s);
    window.Key(Qt::Key_Down);
    window.Key(Qt::Key_Down);
    window.Type(u"r"_s);
    EXPECT_EQ(window.Named<QComboBox>(u"side"_s).currentText(), u"right"_s);
    QWheelEvent wheel({5, 5}, window.Named<QComboBox>(u"side"_s).mapToGlobal(QPointF(5, 5)), {}, {0, 120}, {}, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&window.Named<QComboBox>(u"side"_s), &wheel);
    window.Key(Qt::Key_Return);
    EXPECT_EQ(window.Stored("side"), "right");
    EXPECT_EQ(window.Stored("wait"), "2000ms") << "an editor in which nothing was done changes nothing";
}

TEST(PropertyGrid, WhatEndsAnEditorAppliesItAndMenusDoNot)
{
    PropertyWindow window;
    const auto type = [&](const QString &number) {
        window.Click(u"count"_s);
        EXPECT_TRUE(window.Line(u"count"_s).hasFocus());
        window.Type(number);
    };
    type(u"1"_s);
    for (const Qt::FocusReason reason : {Qt::PopupFocusReason, Qt::MenuBarFocusReason}) {
        QFocusEvent lost(QEvent::FocusOut, reason);
        QApplication::sendEvent(&window.Line(u"count"_s), &lost);
        EXPECT_TRUE(window.IsOpen());
    }
    const std::vector<std::function<void()>> ends{
        [&] { window.Click(u"top"_s); }, [&] { window.Grid().setColumnWidth(0, 160); },
        [&] { window.view->resize(700, 200); }, [&] { window.Grid().verticalScrollBar()->setValue(9); },
        [&] {
            window.Child().setFocus();
            window.Frame().activateWindow();
            window.Settle();
        }};
    int number = 20;
    for (const auto &end : ends) {
        type(QString::number(++number));
        end();
        EXPECT_EQ(window.Value(u"count"_s), std::to_string(number)) << number;
    }
    type(u"30"_s);
    EXPECT_TRUE(window.view->TakeEdit());
    EXPECT_FALSE(window.IsOpen());
    type(u"31"_s);
    window.told.clear();
    window.view->ShowComponent(window.layout, window.layout->Components().front().get());
    EXPECT_EQ(window.told, "value ") << "before the other is shown";
    EXPECT_EQ(window.Stored("count"), "31");
    EXPECT_EQ(window.Value(u"Class"_s), "panel");
}

TEST(PropertyGrid, ARefusedInputIsToldOnceAndLeavesTheRowSelected)
{
    PropertyWindow window;
    for (const bool byClick : {false, true}) {
        window.Click(u"count"_s);
        window.Type(u"12x"_s);
        window.Answer({QMessageBox::Ok, QMessageBox::Ok});
        byClick ? window.Click(u"wait"_s) : window.Key(Qt::Key_Return);
        EXPECT_FALSE(window.IsOpen()) << "the box would take its focus";
        window.Settle();
        window.Settle();
        EXPECT_EQ(window.boxes, QStringList{u"Invalid input."_s});
        EXPECT_EQ(window.Grid().SelectedRows(), std::vector<int>{window.RowOf(u"count"_s)});
        EXPECT_TRUE(window.Value(u"count"_s).empty() && !window.IsOpen());
        window.boxes.clear();
    }
    window.Click(u"count"_s);
    EXPECT_TRUE(window.Line(u"count"_s).hasFocus());
    window.Type(u"x"_s);
    EXPECT_FALSE(window.view->TakeEdit());
    window.Settle();
    EXPECT_EQ(window.told, "");
}

TEST(PropertyGrid, AColorIsChosenInTheDialogAndWrittenWhenTheEditorEnds)
{
    PropertyWindow window;
    window.Click(u"tint"_s);
    auto &swatch = window.Named<ColorButton>(u"tint, color"_s);
    EXPECT_EQ(swatch.toolTip(), u"#102030"_s);
    ChooseColor({});
    QTest::mouseClick(&swatch, Qt::LeftButton);
    window.WakeUp();
    EXPECT_TRUE(window.IsOpen());
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
        window.Click(u"tint"_s);
        ChooseColor(QColor(1, 2, 3));
        QTest::mouseClick(&swatch, Qt::LeftButton);
        EXPECT_EQ(window.Line(u"tint, Blue"_s).text(), u"3"_s);
        EXPECT_EQ(swatch.Color(), QColor(1, 2, 3));
        EXPECT_EQ(window.Value(u"tint"_s), "RGB(16, 32, 48)");
        window.Key(key);
    }
    EXPECT_EQ(window.Value(u"tint"_s), "RGB(1, 2, 3)");
    window.Click(u"tint"_s);
    QTimer::singleShot(20, [&] { window.view->LetGo(); }); // as a reload does
    ChooseColor(QColor(4, 5, 6));
    QTest::mouseClick(&swatch, Qt::LeftButton);
    window.Settle();
    EXPECT_TRUE(!window.IsOpen() && window.Grid().model()->rowCount() == 0);
    EXPECT_EQ(window.Stored("tint"), "#010203");
}

TEST(PropertyGrid, NameAndParentAreEditedAndAnOpenEditorGoesWithItsComponent)
{
    PropertyWindow window;
    window.Click(u"Class"_s);
    window.Type(u"lid\r"_s);
    EXPECT_EQ(window.told, "") << "not within the key";
    window.view->changed = [&](Applied applied) {
        EXPECT_EQ(applied, Applied::TreeChanged);
        window.view->ShowComponent(window.layout, nullptr); // as a list that is built anew may do
        window.view->ShowComponent(window.layout, window.box);
    };
    window.Settle();
    EXPECT_EQ(window.Grid().SelectedRows(), std::vector<int>{0});
    EXPECT_EQ(window.Value(u"Class"_s), "lid");
    window.Click(u"Parent Component"_s);
    window.Type(u"pan"_s);
    window.Key(Qt::Key_Return);
    EXPECT_EQ(window.Value(u"Parent Component"_s), "panel");

    window.Click(u"count"_s);
    window.Type(u"3"_s);
    window.view->LetGo();
    window.layout->DeleteComponent(window.layout->Components().front().get());
    window.box = window.Add("Box", "again", {});
    window.view->ShowComponent(window.layout, window.box);
    EXPECT_TRUE(!window.IsOpen() && window.Value(u"count"_s).empty() && window.Value(u"Class"_s) == "again");
}

TEST(PropertyGrid, TheEditMenuIsForTheTextBoxAndPastedLineEndsAreBlanks)
{
    PropertyWindow window;
    FocusedEdit edit;
    window.Click(u"Class"_s);
    QLineEdit &line = window.Line(u"Class"_s);
    EXPECT_TRUE(edit.StateOf(ACTION_COPY)->enabled) << "all is selected";
    EXPECT_EQ(FocusedEdit::EditedView(&line), &window.Grid());
    QGuiApplication::clipboard()->setText(u"a\r\nb"_s);
    edit.Run(ACTION_PASTE);
    EXPECT_EQ(line.text(), u"a b"_s);
    window.Key(Qt::Key_Escape);
    EXPECT_FALSE(edit.StateOf(ACTION_COPY));
    for (const ActionId id : {ACTION_COPY, ACTION_CUT, ACTION_PASTE, ACTION_UNDO, ACTION_SELECT_ALL, ACTION_DELETE})
        EXPECT_FALSE(window.view->StateOf(id)->enabled);
}
