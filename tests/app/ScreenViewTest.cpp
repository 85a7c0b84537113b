// SPDX-License-Identifier: MIT
#include "CLayoutRes.h"
#include "CLotScreenView.h"
#include "TestWindow.h"

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPaintEvent>
#include <QScrollBar>
#include <QStatusBar>
#include <QWheelEvent>

namespace
{

/// A window with a project that has a layout, opened at it. Its screen of 240 x 320 begins at (10, 10) of the view.
struct ScreenWindow : TestWindow
{
    ScreenWindow() : TestWindow(WITH_LAYOUTS + "catalogue=catalogue.xml\n[split3rd]\nwidth=100\n")
    {
        folder.Put("bin/catalogue.xml",
                   "<catalogue version=\"1\"><class name=\"Base\"><member name=\"pos\" type=\"ZulPoint\"/><member "
                   "name=\"size\" type=\"ZulSize\"/><member name=\"anchor\" type=\"ZulFPoint\"/></class>"
                   "<class name=\"Panel\" base=\"Base\"/><class name=\"Label\" base=\"Base\"/></catalogue>");
        MakeProject("demo", "<APP>" + LAYOUT_LIST + "</APP>");
        folder.Put("demo/res/l.xml",
                   "<TarvoXML><Layout id=\"ID_LAYOUT_A\"><Panel pos=\"(20,20)\" size=\"(150,120)\" name=\"panel\">"
                   "<Label pos=\"(10,30)\" size=\"(60,30)\" name=\"inner\"/></Panel>"
                   "<Label pos=\"(20,130)\" size=\"(200,40)\" name=\"over\"/></Layout></TarvoXML>");
        Start({Project()});
        Frame().setGeometry(0, 0, 790, 600); // completely on the screen, where the menu opens
        Child().Selected().SelectFolder(Document().root.FindFolder(KIND_LAYOUT, 3));
        Settle();
        View().setFixedSize(220, 200);
        Settle();
        View().setFocus();
        View().picked = [this](CZulClass &component) {
            picks.append(component.propName);
            View().Select(&component);
        };
    }

    [[nodiscard]] CLotScreenView &View() const { return Find<CLotScreenView>(Child()); }
    [[nodiscard]] QWidget &Port() const { return *View().viewport(); }
    [[nodiscard]] int Percent() const { return View().Zoom().Percent(); }
    [[nodiscard]] QPoint Scroll() const { return View().Place().scroll; }
    [[nodiscard]] QPoint PointAt(QPoint place) const { return View().Zoom().LayoutPoint(place, View().Place()); }
    [[nodiscard]] std::string Status() const { return Frame().statusBar()->currentMessage().toStdString(); }
    void Wheel(int delta, Qt::KeyboardModifiers keys, QPoint place = {60, 50}) const
    {
        const QPoint turned = keys & Qt::AltModifier ? QPoint(delta, 0) : QPoint(0, delta);
        QWheelEvent event(place, Port().mapToGlobal(place), {}, turned, Qt::NoButton, keys, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&Port(), &event);
    }
    /// Clicks at a point of the layout. Returns the component that the click selects.
    QByteArray Click(QPoint point, Qt::KeyboardModifiers keys = {})
    {
        picks.clear();
        QTest::mouseClick(&Port(), Qt::LeftButton, keys, point + QPoint(10, 10) - Scroll());
        return picks.join(' ');
    }
    /// Opens the menu of the view, returns its entries, and triggers `chosen`.
    std::string Menu(const QString &chosen = {}, bool isKeyboard = false, QPoint *place = nullptr) const
    {
        std::string all;
        QTimer::singleShot(0, [&] {
            auto *const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            ASSERT_TRUE(menu);
            if (place)
                *place = Port().mapFromGlobal(menu->pos());
            all = MenuEntriesOf(*menu);
            for (QAction *entry : menu->actions()) {
                if (!chosen.isEmpty() && entry->text() == chosen)
                    menu->setActiveAction(entry);
            }
            QTest::keyClick(menu, chosen.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
        });
        const QPoint at(30, 40);
        QContextMenuEvent event(isKeyboard ? QContextMenuEvent::Keyboard : QContextMenuEvent::Mouse, at,
                                Port().mapToGlobal(at));
        QApplication::sendEvent(&Port(), &event);
        Activate();
        return all;
    }

    QByteArrayList picks;
};

/// Records the region of a widget's next repaint.
struct PaintedRegion : QObject
{
    explicit PaintedRegion(QWidget &widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            region += static_cast<QPaintEvent *>(event)->region();
        return false;
    }
    QRegion region;
};

} // namespace

TEST(ScreenView, ZoomsAndScrollsByTheWheelWithAtMostOneModifierKey)
{
    ScreenWindow window;
    const QPoint place(60, 50);
    window.Wheel(120, Qt::ControlModifier);
    window.Wheel(59, Qt::ControlModifier);
    EXPECT_EQ(window.Percent(), 114);
    window.Wheel(12'000, Qt::ControlModifier);
    EXPECT_EQ(window.Percent(), 1000);
    const QPoint kept = window.PointAt(place);
    window.Wheel(-120, Qt::ControlModifier);
    EXPECT_EQ(window.Percent(), 990);
    EXPECT_LE((window.PointAt(place) - kept).manhattanLength(), 1) << "the point under the pointer stays there";
    for (int i = 0; i < 12; ++i)
        window.Wheel(-1, Qt::ControlModifier); // small steps, like a touchpad
    EXPECT_EQ(window.Percent(), 989);

    const QPoint before = window.Scroll();
    const int lineX = window.View().horizontalScrollBar()->singleStep();
    const int lineY = window.View().verticalScrollBar()->singleStep();
    const struct
    {
        int delta;
        Qt::KeyboardModifiers keys;
        QPoint moved;
    } turns[] = {
        {-120, {}, {0, lineY}},
        {120, {}, {0, -lineY}},
        {-240, Qt::ShiftModifier, {lineX, 0}},
        {120, Qt::ShiftModifier, {-lineX, 0}},
        {120, Qt::AltModifier, {}},
        {120, Qt::ControlModifier | Qt::ShiftModifier, {}},
    };
    QPoint expected = before;
    for (const auto &turn : turns) {
        window.Wheel(turn.delta, turn.keys);
        expected += turn.moved;
        EXPECT_EQ(window.Scroll(), expected) << turn.delta << ' ' << turn.keys;
    }
    EXPECT_EQ(window.Percent(), 989);
}

TEST(ScreenView, SelectsTheTopmostAndWithAltTheNextBelow)
{
    ScreenWindow window;
    EXPECT_EQ(window.Click({40, 60}), "inner");
    EXPECT_EQ(window.Click({40, 60}), "") << "it is selected already";
    EXPECT_EQ(window.Click({0, 0}), "") << "nothing is there";
    EXPECT_EQ(window.View().Selected()->propName, "inner");
    EXPECT_EQ(window.Click({29, 60}), "panel");
    EXPECT_EQ(window.Click({30, 50}), "inner");
    EXPECT_EQ(window.Click({40, 60}, Qt::AltModifier), "panel");
    EXPECT_EQ(window.Click({40, 60}, Qt::ControlModifier), "inner");
    EXPECT_EQ(window.Click({25, 135}), "over");
    EXPECT_EQ(window.View().accessibleDescription(), u"Selected: over at (20, 130), 200 wide, 40 high."_s);

    const QPoint before = window.Scroll();
    QTest::mousePress(&window.Port(), Qt::MiddleButton, {}, {100, 100});
    QTest::mouseMove(&window.Port(), {90, 80});
    QTest::mouseRelease(&window.Port(), Qt::MiddleButton, {}, {90, 80});
    EXPECT_EQ(window.Scroll(), before + QPoint(10, 20));
    QTest::keyPress(&window.View(), Qt::Key_Space);
    EXPECT_EQ(window.Port().cursor().shape(), Qt::OpenHandCursor);
    QTest::mousePress(&window.Port(), Qt::LeftButton, {}, {50, 50});
    QTest::mouseMove(&window.Port(), {55, 60});
    QTest::keyRelease(&window.View(), Qt::Key_Space, Qt::ShiftModifier);
    QTest::mouseRelease(&window.Port(), Qt::LeftButton, {}, {55, 60});
    EXPECT_EQ(window.Scroll(), before + QPoint(5, 10));
    EXPECT_EQ(window.View().Selected()->propName, "over") << "dragging selects nothing";
    EXPECT_EQ(window.Click({40, 60}), "inner") << "at the same point of the layout, wherever it is";

    window.View().LetGo();
    EXPECT_EQ(window.Click({40, 60}), "");
    EXPECT_EQ(window.View().Selected(), nullptr);
}

TEST(ScreenView, ZoomsByKeysAndByItsMenu)
{
    ScreenWindow window;
    EXPECT_EQ(window.Menu(), "Zoom &In|&Zoom Out|&Fit View|/500%|200%|150%|*100%|75%|50%|&Customize...|");
    window.Menu(u"50%"_s);
    EXPECT_EQ(window.Percent(), 50);
    for (int i = 0; i < 9; ++i)
        QTest::keyClick(&window.View(), Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(window.Percent(), 10);
    QTest::keyClick(&window.View(), Qt::Key_PageUp, Qt::ControlModifier);
    QPoint place;
    EXPECT_EQ(window.Menu({}, true, &place),
              "Zoom &In|&Zoom Out|&Fit View|/500%|200%|150%|100%|75%|50%|*Customize(20%)...|");
    EXPECT_EQ(place, window.View().Zoom().ScreenCorner(window.Port().size()) + QPoint(1, 1));
    WhenOpen<QDialog>(window, [](QDialog &dialog) {
        dialog.findChild<QLineEdit *>()->setText(u"1000"_s);
        dialog.accept();
    });
    window.Menu(u"Customize(20%)..."_s);
    EXPECT_EQ(window.Percent(), 1000);
    EXPECT_TRUE(window.Menu().starts_with("-Zoom &In|&Zoom Out|"));
    EXPECT_EQ(window.Frame().Zoom().text(), u"1000%"_s);

    QTest::keyClick(&window.View(), Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(window.Percent(), 56) << "180 of 320 lines";
    EXPECT_FALSE(window.View().verticalScrollBar()->isVisible() || window.View().horizontalScrollBar()->isVisible());
    window.Frame().Bars().Output().setFocus();
    EXPECT_FALSE(window.Frame().IsEnabled(ACTION_FIT_VIEW)) << "Ctrl+Home belongs to the text box";
    window.Settle();
    window.View().setFocus();
    QTest::keyClick(&window.View(), Qt::Key_PageUp, Qt::ControlModifier); // immediately after the focus
    EXPECT_EQ(window.Percent(), 66);
    QTest::keyClick(&window.View(), Qt::Key_Home, Qt::ControlModifier);
    const auto *const layout = dynamic_cast<CLayoutRes *>(window.Selected()->resources.First());
    window.View().ShowLayout(nullptr);
    window.View().ShowLayout(layout);
    EXPECT_EQ(window.Percent(), 56);
    window.Child().Selected().SelectFolder(&window.Document().root);
    window.Settle();
    EXPECT_EQ(window.Frame().Zoom().text(), QString());
}

TEST(ScreenView, ReportsThePointAndRepaintsOnlyChanges)
{
    ScreenWindow window;
    QTest::mouseMove(&window.Port(), {4, 25});
    EXPECT_EQ(window.Status(), "(-6, 15)");
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&window.Port(), &leave);
    EXPECT_EQ(window.Status(), "");

    const auto &layout = dynamic_cast<CLayoutRes &>(*window.Selected()->resources.First());
    CZulClass *const panel = layout.Components().front().get();
    window.View().Select(nullptr);
    window.Settle();
    PaintedRegion painted(window.Port());
    window.View().Select(panel);
    window.Settle();
    EXPECT_EQ(painted.region.boundingRect(), QRect(29, 29, 152, 122));
    EXPECT_FALSE(painted.region.contains(QPoint(40, 40)));
    painted.region = {};
    static_cast<CZulBase *>(panel->FindMember("pos"))->SetText("(0,20)");
    window.View().RefreshEntries(panel);
    window.Settle();
    EXPECT_TRUE(painted.region.contains(QPoint(10, 40)) && painted.region.contains(QPoint(179, 40)));
    EXPECT_FALSE(painted.region.contains(QPoint(60, 170)));
    window.Click({25, 60}); // the label inside moved along
    EXPECT_EQ(window.picks, QByteArrayList{"inner"});
}
