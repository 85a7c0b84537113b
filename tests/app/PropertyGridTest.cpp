// SPDX-License-Identifier: MIT
#include "CLayoutRes.h"
#include "CLotEditorView.h"
#include "CResDoc.h"
#include "ColorButton.h"
#include "EditActions.h"
#include "StringWindow.h"
#include "TestCatalogue.h"

#include <QClipboard>
#include <QColorDialog>
#include <QComboBox>
#include <QLineEdit>
#include <QScrollBar>

namespace
{

/// A property grid in a window of its own, for a component of an open project.
struct PropertyWindow : TestWindow
{
    PropertyWindow() : TestWindow(WITH_LAYOUTS + "catalogue=classes.xml\n[wnd_1019]\n2=77\n")
    {
        folder.Put("bin/classes.xml", CLASSES);
        Start({Project()});
        layout = static_cast<CLayoutRes *>(Document().CreateLayoutRes(1)->resources.First());
        (void)Add("Panel", "panel", {});
        box = Add("Box", "box", {{"pos", "(1,2)"}, {"tint", "#FF102030"}, {"wait", "2000ms"}});
        view = std::make_unique<CLotEditorView>(Document(), Child());
        view->changed = [this](Applied applied) { told += applied == Applied::TreeChanged ? "tree " : "value "; };
        view->resize(720, 420);
        view->show();
        view->ShowComponent(layout, box);
        WakeUp();
        Grid().setFocus();
    }

    CZulClass *Add(const NarrowText &className, const NarrowText &name, std::initializer_list<AttributeRecord> values)
    {
        auto component = Component(className, values);
        component->name = name;
        return layout->AddComponent(Document().env, std::move(component));
    }

    [[nodiscard]] CListGrid &Grid() const { return Find<CListGrid>(*view); }
    /// Returns the control of an editor with that accessible name.
    template <typename Widget = QLineEdit> [[nodiscard]] Widget &Control(const QString &name) const
    {
        return Named<Widget>(*Grid().viewport(), name);
    }
    /// Returns whether an editor is open.
    [[nodiscard]] bool IsOpen() const
    {
        const QList<QWidget *> all = Grid().viewport()->findChildren<QWidget *>(Qt::FindDirectChildrenOnly);
        return std::any_of(all.begin(), all.end(), [](const QWidget *control) { return !control->isHidden(); });
    }

    [[nodiscard]] int RowOf(const QString &name) const
    {
        for (int row = 0; row < Grid().model()->rowCount(); ++row) {
            if (Grid().model()->index(row, 0).data().toString().trimmed() == name)
                return row;
        }
        return -1;
    }
    [[nodiscard]] std::string Value(const QString &name) const
    {
        return Grid().model()->index(RowOf(name), 1).data().toString().toStdString();
    }
    [[nodiscard]] QByteArray Stored(const NarrowText &name) const { return box->component->GetAttribute(name); }

    void Click(const QString &name) const
    {
        WakeUp();
        Grid().scrollTo(Grid().model()->index(RowOf(name), 0));
        ClickCell(Grid(), RowOf(name), 0);
    }
    void WakeUp() const override
    {
        while (QApplication::activeWindow() != view.get()) {
            view->activateWindow();
            Settle();
        }
    }

    CLayoutRes *layout = nullptr;
    CZulClass *box = nullptr;
    std::unique_ptr<CLotEditorView> view;
    std::string told; // what the callback `changed` was called with

    static inline const QByteArray CLASSES =
        "<catalogue version='1'><enumeration name='Side'><item name='left'/><item name='right'/></enumeration>"
        "<structure name='Edges'><member name='top' type='ZulS32'/><member name='bottom' type='ZulS32'/></structure>"
        "<class name='Shape'><member name='pos' type='ZulPoint'/><member name='size' type='ZulSize'/>"
        "<member name='shown' type='ZulBool'/></class>"
        "<class name='Panel' base='Shape'/>"
        "<class name='Box' base='Shape'><member name='edges' type='Edges'/><member name='tint' type='ZulColor'/>"
        "<member name='wait' type='ZulMsec'/><member name='count' type='ZulS32'/><member name='side' type='Side'/>"
        "<member name='area' type='ZulRect'/><member name='picture' type='ZulImageSrc'/></class></catalogue>";
};

/// Clicks on the swatch, and chooses a colour in the dialog that opens, or cancels it. Returns the colour that the
/// dialog began with.
QColor ChooseColor(ColorButton &swatch, const QColor &color)
{
    QColor start;
    QTimer::singleShot(50, [&] {
        auto *const dialog = dynamic_cast<QColorDialog *>(QApplication::activeModalWidget());
        ASSERT_TRUE(dialog);
        start = dialog->currentColor();
        dialog->setCurrentColor(color);
        color.isValid() ? dialog->accept() : dialog->reject();
    });
    TestWindow::Click(swatch, swatch.rect().center());
    return start;
}

} // namespace

TEST(PropertyGrid, ShowsThePropertiesOfAComponentAndFiltersThem)
{
    PropertyWindow window;
    const auto cell = [&](const QString &name, int col) {
        return window.Grid().model()->index(window.RowOf(name), col);
    };
    EXPECT_EQ(window.Grid().model()->rowCount(), 15);
    EXPECT_TRUE(cell(u"tint"_s, 0).data(ROLE_IS_SET).toBool() && !cell(u"count"_s, 0).data(ROLE_IS_SET).toBool());
    EXPECT_TRUE(cell(u"edges"_s, 0).data(ROLE_IS_HEADING).toBool());
    EXPECT_EQ(cell(u"top"_s, 0).data().toString() + cell(u"top"_s, 2).data().toString(), u"    topZulS32"_s);
    EXPECT_EQ(window.Value(u"tint"_s) + window.Value(u"wait"_s) + window.Value(u"pos"_s), "RGB(16, 32, 48)2s(1, 2)");
    EXPECT_EQ(window.Grid().Widths(), (std::vector<int>{150, 400, 77}));
    EXPECT_EQ(window.view->State().last().key + window.view->State().last().value, u"sort0"_s);

    window.view->Run(ACTION_FIND_BAR);
    window.Type(u"bot"_s);
    EXPECT_EQ(window.Grid().model()->rowCount(), 2) << "the row and its heading";
    window.Key(Qt::Key_Down);
    window.Click(u"bottom"_s);
    window.Type(u"7\r"_s);
    window.view->Run(ACTION_FIND_BAR);
    window.Type(u"7"_s);
    EXPECT_EQ(window.RowOf(u"bottom"_s), 1);
    window.Key(Qt::Key_Escape);
    EXPECT_EQ(window.Grid().model()->rowCount(), 15);
    EXPECT_TRUE(window.Grid().hasFocus() && !window.view->StateOf(ACTION_FIND_BAR)->checked);
}

TEST(PropertyGrid, EveryEditorIsReachableByTheKeyboard)
{
    PropertyWindow window;
    for (int row = 0; row < 5; ++row)
        window.Key(Qt::Key_Down);
    EXPECT_EQ(window.Grid().currentIndex().row(), 4) << "arrows pass rows with editors and headings";
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
    window.Type(u"5"_s);
    window.Key(Qt::Key_PageDown); // a text box doesn't use this key, and it must not reach the grid
    EXPECT_EQ(window.Control(u"top"_s).text(), u"5"_s);
    window.Key(Qt::Key_Escape);
    EXPECT_TRUE(window.Grid().hasFocus() && !window.IsOpen() && window.Value(u"top"_s).empty());

    window.Click(u"area"_s);
    window.Key(Qt::Key_Tab);
    EXPECT_TRUE(window.Control(u"area, Top"_s).hasFocus());
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
    EXPECT_EQ(window.Control<QComboBox>(u"side"_s).currentText(), u"right"_s);
    QWheelEvent wheel({5, 5}, window.Control<QComboBox>(u"side"_s).mapToGlobal(QPointF(5, 5)), {}, {0, 120}, {}, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&window.Control<QComboBox>(u"side"_s), &wheel);
    window.Key(Qt::Key_Return);
    EXPECT_EQ(window.Stored("side"), "right");
    EXPECT_EQ(window.Stored("wait"), "2000ms") << "an unused editor changes nothing";
}

TEST(PropertyGrid, EndingAnEditorAppliesItsValueAndMenusDoNotEndIt)
{
    PropertyWindow window;
    const auto type = [&](const QString &number) {
        window.Click(u"count"_s);
        EXPECT_TRUE(window.Control(u"count"_s).hasFocus());
        EXPECT_EQ(window.Grid().horizontalScrollBar()->value(), 0) << "the name stays visible";
        window.Type(number);
    };
    type(u"1"_s);
    QLineEdit menu(window.view.get());
    menu.show();
    for (const Qt::FocusReason reason : {Qt::PopupFocusReason, Qt::MenuBarFocusReason}) {
        menu.setFocus(reason);
        window.Control(u"count"_s).setFocus(reason);
        EXPECT_EQ(window.Control(u"count"_s).text(), u"1"_s);
    }
    const std::vector<std::function<void()>> ends{
        [&] { window.Click(u"top"_s); }, [&] { window.Grid().setColumnWidth(0, 160); },
        [&] { window.view->resize(360, 200); }, [&] { window.Grid().verticalScrollBar()->setValue(9); },
        [&] { window.Activate(); }};
    int number = 20;
    for (const auto &end : ends) {
        type(QString::number(++number));
        end();
        EXPECT_EQ(window.Value(u"count"_s), std::to_string(number)) << number;
    }
    window.view->resize(220, 200);
    window.Click(u"wait"_s);
    EXPECT_GE(window.Control(u"wait"_s).width(), 100) << "and as much of the value as can be";
    window.Key(Qt::Key_Escape);
    window.Grid().horizontalScrollBar()->setValue(0);
    window.view->resize(400, 400);
    type(u"30"_s);
    EXPECT_TRUE(window.view->TakeEdit() && !window.IsOpen());
    type(u"31"_s);
    window.told.clear();
    window.view->ShowComponent(window.layout, window.layout->Components().front().get());
    EXPECT_EQ(window.told, "value ") << "before the other is shown";
    EXPECT_EQ(window.Stored("count"), "31");
    EXPECT_EQ(window.Value(u"Class"_s), "panel");
}

TEST(PropertyGrid, ReportsARefusedInputOnceAndKeepsTheRowSelected)
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
    window.Type(u"x"_s);
    EXPECT_FALSE(window.view->TakeEdit());
    EXPECT_EQ(window.told, "");
}

TEST(PropertyGrid, WritesAColorFromTheDialogWhenTheEditorEnds)
{
    PropertyWindow window;
    window.Click(u"tint"_s);
    auto &swatch = window.Control<ColorButton>(u"tint, color"_s);
    EXPECT_EQ(swatch.toolTip(), u"#102030"_s);
    EXPECT_EQ(ChooseColor(swatch, {}), QColor(16, 32, 48));
    window.WakeUp();
    EXPECT_TRUE(window.IsOpen());
    for (const auto &[part, typed] : {std::pair(u"tint, Red"_s, u"300"_s), {u"tint, Green"_s, u"x"_s}})
        window.Control(part).setText(typed);
    EXPECT_EQ(ChooseColor(swatch, {}), QColor(255, 0, 48)) << "of what is typed, as far as it is a colour";
    window.Key(Qt::Key_Escape);
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
        window.Click(u"tint"_s);
        ChooseColor(swatch, QColor(1, 2, 3));
        EXPECT_EQ(window.Control(u"tint, Blue"_s).text(), u"3"_s);
        EXPECT_EQ(swatch.Color(), QColor(1, 2, 3));
        EXPECT_EQ(window.Value(u"tint"_s), "RGB(16, 32, 48)");
        window.Key(key);
    }
    EXPECT_EQ(window.Value(u"tint"_s), "RGB(1, 2, 3)");
    window.Click(u"tint"_s);
    QTimer::singleShot(20, [&] { window.view->LetGo(); }); // a reload does this
    ChooseColor(swatch, QColor(4, 5, 6));
    window.Settle();
    EXPECT_TRUE(!window.IsOpen() && window.Grid().model()->rowCount() == 0);
    EXPECT_EQ(window.Stored("tint"), "#010203");
}

TEST(PropertyGrid, EditsNameAndParentAndClosesTheEditorOfADestroyedComponent)
{
    PropertyWindow window;
    window.Click(u"Class"_s);
    window.Type(u"lid\r"_s);
    EXPECT_EQ(window.told, "") << "not within the key";
    window.view->changed = [&](Applied applied) {
        EXPECT_EQ(applied, Applied::TreeChanged);
        window.view->ShowComponent(window.layout, nullptr); // a rebuild of the list may do this
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

TEST(PropertyGrid, TheEditMenuAppliesToTheTextBoxAndPastedLineEndsBecomeBlanks)
{
    PropertyWindow window;
    FocusedEdit edit;
    window.Click(u"Class"_s);
    QLineEdit &line = window.Control(u"Class"_s);
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
