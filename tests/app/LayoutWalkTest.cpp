// SPDX-License-Identifier: MIT
// Tests the layout panes with random user actions, while other programs write the layout file.
#include "CLayoutRes.h"
#include "CLotCplistView.h"
#include "CLotEditorView.h"
#include "CLotScreenView.h"
#include "LayoutPanes.h"
#include "LinedTree.h"
#include "PropertyModel.h"
#include "RandomUser.h"
#include "StringWindow.h"
#include "TestCatalogue.h"
#include "ToolboxList.h"

#include <QComboBox>
#include <QLineEdit>

namespace
{

const QByteArray CLASSES =
    "<catalogue version='1'><enumeration name='Side'><item name='left'/><item name='right'/></enumeration>"
    "<structure name='Edges'><member name='top' type='ZulS32'/><member name='face' type='ZrpStateImage'/></structure>"
    "<class name='Base' excluded='true'><member name='pos' type='ZulPoint'/><member name='size' type='ZulSize'/>"
    "<member name='anchor' type='ZulFPoint'/><member name='text' type='ZulWString'/></class>"
    "<class name='Label' base='Base'><member name='bgColor' type='ZulColor'/><member name='side' type='Side'/></class>"
    "<class name='Box' base='Base'><member name='edges' type='Edges'/><member name='wait' type='ZulMsec'/>"
    "<member name='count' type='ZulU32'/><member name='part' type='ZulFloat'/><member name='area' type='ZulRect'/>"
    "<member name='shown' type='ZulBool'/><member name='next' type='ZulResId'/><member name='icon' "
    "type='ZulImageSrc'/></class><class name='Bare'/></catalogue>";
const QByteArray RESOURCES = "<APP><STRING>res\\ref_list_demo.txt</STRING>"
                             "<RESOLUTION width=\"240\" height=\"320\" class=\"image\">"
                             "<IMAGE id=\"ID_P\" type=\"Normal\">p.png</IMAGE></RESOLUTION>"
                             "<RESOLUTION width=\"240\" height=\"320\" class=\"layout\">"
                             "<LAYOUT>res\\l.xml</LAYOUT></RESOLUTION></APP>";
const QString TYPED[] = {u"12"_s,    u"-40"_s,  u"1.5"_s,   u"2s"_s,    u"x y"_s,     u"(1,2)"_s,
                         u"255"_s,   u""_s,     u"left"_s,  u"@ID_P"_s, u"\u0416"_s,  u"RGB(1,2,3)"_s,
                         u"false"_s, u"cp01"_s, u"<&\">"_s, u"0,1"_s,   u"200ms\t"_s, QString(300, u'7')};
const Qt::Key ENDS[] = {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Tab, Qt::Key_Escape,
                        Qt::Key_Up,     Qt::Key_Down,  Qt::Key_F2};
const ActionId ZOOMS[] = {ACTION_ZOOM_IN, ACTION_ZOOM_OUT, ACTION_FIT_VIEW, ActionId(ACTION_ZOOM_PRESET),
                          ACTION_ZOOM_CUSTOM};

struct LayoutWalk : TestWindow, RandomUser
{
    explicit LayoutWalk(unsigned seed)
        : TestWindow(WITH_LAYOUTS + "pictures=1\ncatalogue=classes.xml\n[split2nd]\nheight=200\n"), RandomUser(seed)
    {
        folder.Put("bin/classes.xml", CLASSES);
        MakeProject("demo", RESOURCES);
        folder.Put("demo/res/ref_list_demo.txt", StringFileBytes(StringWindow::THREE_ROWS));
        PutLayouts();
        Start({Project()});
        Frame().resize(900, 700);
        GoTo(KIND_LAYOUT);
    }

    /// Returns all layouts as the file has them.
    [[nodiscard]] std::string Layouts() const;
    void SaveAndReload();

private:
    void Step() override;
    void Check() const override;
    [[nodiscard]] LayoutPanes &Panes() const { return Find<LayoutPanes>(Child()); }
    [[nodiscard]] LinedTree &List() const { return Find<LinedTree>(Panes().List()); }
    [[nodiscard]] CLotScreenView &Preview() const { return Panes().Preview(); }
    [[nodiscard]] CListGrid &Grid() const { return Find<CListGrid>(Panes().Grid()); }
    [[nodiscard]] const PropertyModel &Model() const { return static_cast<const PropertyModel &>(*Grid().model()); }
    [[nodiscard]] CLayoutRes *Layout() const
    {
        const CResFolder *const shown = Selected();
        return shown && shown->kind == KIND_LAYOUT ? static_cast<CLayoutRes *>(shown->resources.First()) : nullptr;
    }
    void GoTo(quint32 kind) const { Child().Selected().SelectFolder(Document().root.FindFolder(kind, 3)); }
    [[nodiscard]] CResFolder &ResolutionLayouts() const { return *Document().root.FindFolder(KIND_RESO_LAYOUTS, 1, 2); }

    QByteArray Components(int most, int depth = 0)
    {
        QByteArray all;
        for (int count = Below(most + 1); count > 0; --count) {
            const QByteArray type = OneOf({"Label", "Box", "Box", "Label", "Bare", "Unknown"});
            const auto number = [&] { return QByteArray::number(Below(200)); };
            all += '<' + type + " pos=\"(" + number() + ',' + number() + ")\" size=\"(" + number() + ',' + number() +
                   ")\" wait=\"2000ms\"";
            all += (Below(3) ? " name=\"n" + number() + '"' : "") + '>' + Components(depth < 3 ? 2 : 0, depth + 1) +
                   "</" + type + '>';
        }
        return all;
    }
    void PutLayouts()
    {
        folder.Put("demo/res/l.xml", "<TarvoXML><Layout id=\"ID_ONE\">" + Components(6) +
                                         "</Layout><Layout id=\"ID_TWO\"/><Layout id=\"ID_THREE\">" + Components(3) +
                                         "</Layout></TarvoXML>");
    }
    static void KeyIfPossible(Qt::Key key)
    {
        if (QApplication::focusWidget()) // there is no focus widget below a box
            QTest::keyClick(QApplication::focusWidget(), key);
    }
    void ClickInList()
    {
        QWidget &sheet = *List().viewport();
        if (Below(3) == 0) {
            List().setFocus();
            return KeyIfPossible(OneOf({Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right, Qt::Key_End}));
        }
        QTest::mouseClick(&sheet, Below(8) ? Qt::LeftButton : Qt::RightButton, {}, PointIn(sheet));
    }
    void ClickInPreview()
    {
        const QPoint place = PointIn(*Preview().viewport());
        const PreviewEntries entries = Layout() ? EntriesOf(*Layout()) : PreviewEntries();
        const QPoint point = Preview().Zoom().LayoutPoint(place, Preview().Place());
        const bool isThrough = Below(3) == 0;
        const CZulClass *const selected = Panes().List().Selected();
        const PreviewEntry *const hit =
            isThrough ? NextEntryAt(entries, point.x(), point.y(), selected) : EntryAt(entries, point.x(), point.y());
        QTest::mouseClick(Preview().viewport(), Qt::LeftButton, isThrough ? Qt::AltModifier : Qt::NoModifier, place);
        if (QApplication::activeModalWidget())
            return;
        EXPECT_EQ(Panes().List().Selected(), hit ? hit->component : selected);
    }
    void EditProperty()
    {
        if (Model().rowCount() == 0)
            return;
        const QModelIndex cell = Model().index(Below(Model().rowCount()), Below(3));
        if (cell.row() >= Model().rowCount())
            return;
        Grid().scrollTo(cell);
        QWidget &sheet = *Grid().viewport();
        const QPoint place = Grid().visualRect(cell).center();
        QTest::mouseClick(sheet.childAt(place) ? sheet.childAt(place) : &sheet, Qt::LeftButton, {},
                          sheet.childAt(place) ? QPoint(3, 3) : place);
        for (int again = Below(3); again >= 0 && !QApplication::activeModalWidget(); --again) {
            QWidget *const focus = QApplication::focusWidget();
            if (qobject_cast<QComboBox *>(focus))
                KeyIfPossible(OneOf({Qt::Key_Down, Qt::Key_Up, Qt::Key_F, Qt::Key_N, Qt::Key_End}));
            else if (auto *const line = qobject_cast<QLineEdit *>(focus))
                line->insert(Below(3) ? OneOf({u""_s, u"n"_s}) + QString::number(Below(300)) : OneOf(TYPED));
            if (Below(2))
                KeyIfPossible(OneOf(ENDS));
        }
    }
    void AddOrDelete()
    {
        if (Below(3) == 0) {
            List().setFocus();
            return KeyIfPossible(Qt::Key_Delete);
        }
        ToolboxList &toolbox = Frame().Bars().Classes();
        DoubleClick(*toolbox.viewport(), toolbox.visualItemRect(toolbox.item(Below(toolbox.count() + 1))).center());
    }
    void FilterProperties()
    {
        Frame().RunAction(ACTION_FIND_BAR);
        if (Below(3)) // closes it again
            Frame().RunAction(ACTION_FIND_BAR);
        else if (QApplication::focusWidget())
            QTest::keyClicks(QApplication::focusWidget(), OneOf({u"s"_s, u"1"_s, u"edges"_s, u"none"_s}));
    }
    void Zoom()
    {
        if (Below(2)) {
            Preview().setFocus();
            Frame().RunAction(OneOf(ZOOMS));
        } else if (Below(2)) {
            Preview().horizontalScrollBar()->setValue(Below(100));
        } else {
            ResizeOrScroll(Grid(), Frame());
        }
    }
    void OtherFolder()
    {
        const auto &layouts = ResolutionLayouts().subfolders;
        if (Below(4) && !layouts.empty())
            Child().Selected().SelectFolder(layouts[size_t(Below(int(layouts.size())))].get());
        else
            GoTo(OneOf({KIND_STRINGS, KIND_RESO_LAYOUTS, KIND_AUDIO, KIND_RESO_IMAGES}));
        if (Below(3) == 0)
            Document().UpdateAllViews(nullptr);
    }
    void NewOrDeletedLayout()
    {
        Tree().setFocus();
        if (Below(2) && Selected()->kind != KIND_LAYOUT) {
            Child().Selected().SelectFolder(&ResolutionLayouts());
            return Frame().RunAction(ACTION_NEW_LAYOUT);
        }
        Frame().RunAction(Below(2) ? ACTION_DELETE : ACTION_RENAME);
    }
    void WriteFromOutside()
    {
        PutLayouts();
        for (quint32 handle = 0; handle < 10 && Below(3); ++handle) { // otherwise the window asks
            if (Document().WatchedClass(handle) == WATCH_LAYOUT)
                return Document().OnWatchedFileChanged(handle);
        }
    }
    void ClearAFolder()
    {
        CResFolder *const going = Document().root.FindFolder(
            OneOf({KIND_LAYOUTS, KIND_RESO_LAYOUTS, KIND_STRINGS, KIND_RESO_IMAGES, KIND_LAYOUT}), 3);
        if (!going)
            return;
        Document().ClearByKind(*going);
        Document().UpdateAllViews(nullptr);
    }
    /// Has another program replace the project by another version.
    void CheckOut()
    {
        folder.Put("demo/res/demo.res.xml", RESOURCES);
        PutLayouts();
        Document().SetModifiedFlag(false);
        EXPECT_EQ(Document().TakeInChanges(), CResDoc::Outside::TakenIn);
    }
};

std::string LayoutWalk::Layouts() const
{
    QByteArray all;
    for (const auto &each : ResolutionLayouts().subfolders) {
        const auto &layout = static_cast<const CLayoutRes &>(*each->resources.First());
        all += layout.Id()->name + ":\n";
        for (const auto &component : layout.Layout().components)
            all += Dump(*component) + '\n';
    }
    return all.toStdString();
}

void LayoutWalk::SaveAndReload()
{
    Document().SetModifiedFlag(true);
    Frame().RunAction(ACTION_SAVE);
    if (Document().IsModified())
        return; // a typed text was refused
    const std::string saved = Layouts();
    const QByteArray file = folder.Get("demo/res/l.xml");
    folder.Put("demo/res/demo.res.xml", folder.Get("demo/res/demo.res.xml") + "\n"); // gives it a new time stamp
    EXPECT_EQ(Document().TakeInChanges(), CResDoc::Outside::TakenIn);
    EXPECT_EQ(Layouts(), saved);
    Document().SetModifiedFlag(true);
    Frame().RunAction(ACTION_SAVE);
    EXPECT_EQ(folder.Get("demo/res/l.xml"), file);
}

void LayoutWalk::Step()
{
    WakeUp();
    if (!QApplication::focusWidget())
        Tree().setFocus();
    const int what = Below(60);
    if (what == 0)
        return SaveAndReload();
    if (what == 1)
        return ClearAFolder();
    if (what < 4)
        return WriteFromOutside();
    if (what < 6)
        return NewOrDeletedLayout();
    if (ResolutionLayouts().subfolders.size() < 2 && what < 20)
        return CheckOut();
    if (what < 12 || !Layout())
        return OtherFolder();
    ActOneOf({{1, [&] { ClickInList(); }},
              {1, [&] { ClickInPreview(); }},
              {1, [&] { FilterProperties(); }},
              {2, [&] { AddOrDelete(); }},
              {1, [&] { Zoom(); }},
              {3, [&] { EditProperty(); }}});
}

void LayoutWalk::Check() const
{
    CLayoutRes *const layout = Layout();
    if (!layout || !Panes().isVisible())
        return;
    const std::vector<ListedComponent> components = ComponentsOf(*layout);
    const PreviewEntries entries = EntriesOf(*layout);
    ASSERT_EQ(Preview().Entries().size(), components.size());
    QTreeWidgetItemIterator item(&List());
    for (size_t place = 0; place < components.size(); ++place, ++item) {
        const PreviewEntry &entry = Preview().Entries()[place];
        ASSERT_TRUE(*item);
        ASSERT_EQ((*item)->data(0, Qt::UserRole).value<void *>(), components[place].component);
        ASSERT_EQ((*item)->text(0), ComponentLabel(Document().env, *components[place].component));
        ASSERT_EQ(entry.component, components[place].component);
        ASSERT_TRUE(entry.rect == entries[place].rect && entry.depth == components[place].depth &&
                    entry.background == entries[place].background && entry.border == entries[place].border);
    }
    ASSERT_FALSE(*item);
    CZulClass *const current = Panes().Grid().Current();
    ASSERT_TRUE(Panes().List().Selected() == current && Preview().Selected() == current);
    ASSERT_EQ(current == nullptr, components.empty());
    const auto rows = current ? RowsOf(Document().env, *current) : std::vector<PropertyRow>();
    ASSERT_TRUE(Model().rowCount() == int(rows.size()) || !Model().Filter().isEmpty());
    for (int row = 0; row < Model().rowCount(); ++row) {
        const PropertyRow &shown = Model().At(row);
        const PropertyRow &real = rows.at(size_t(Model().PlaceOf(row)));
        ASSERT_TRUE(shown.target == real.target && shown.name == real.name && shown.isSet == real.isSet);
        ASSERT_TRUE(shown.value == real.value && shown.type == real.type)
            << qPrintable(real.name) << qPrintable(shown.value) << qPrintable(real.value);
    }
}

class LayoutWalkFrom : public testing::TestWithParam<unsigned>
{
};

} // namespace

TEST_P(LayoutWalkFrom, ThreePanesShowTheSameTree)
{
    const FailOnWarnings guard;
    LayoutWalk walk(GetParam());
    walk.Run(500);
    walk.SaveAndReload();
}

INSTANTIATE_TEST_SUITE_P(Seeds, LayoutWalkFrom, testing::Range(1U, 4U));
