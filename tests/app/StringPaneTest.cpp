// SPDX-License-Identifier: MIT
#include "StringWindow.h"

#include "FindBar.h"
#include "Spreadsheet.h"
#include "StringGridRules.h"

#include <QClipboard>
#include <QFileDialog>

// Rows by ID: ID_A2 (Push), ID_A10, ID_C, the new-row line.

namespace
{

const ActionId ACTIONS[] = {ACTION_NEW,    ACTION_IMPORT,     ACTION_EXPORT, ACTION_LANGUAGE, ACTION_UNDO,
                            ACTION_REDO,   ACTION_COPY,       ACTION_PASTE,  ACTION_DELETE,   ACTION_DELETE_ALL,
                            ACTION_RENAME, ACTION_SELECT_ALL, ACTION_CUT};

/// Returns which commands are enabled, a letter for each.
std::string Enabled(const StringWindow &window)
{
    std::string text;
    for (const ActionId id : ACTIONS)
        text += window.Frame().IsEnabled(id) ? 'x' : '-';
    return text;
}

/// Runs an action that opens a file dialog, and types a name there; an empty name cancels. Returns the types of files.
QStringList ChooseFile(const StringWindow &window, ActionId action, const QString &name)
{
    QStringList types;
    auto *const timer = new QTimer(&window.Frame());
    QObject::connect(timer, &QTimer::timeout, timer, [&types, timer, name] {
        auto *const dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        timer->deleteLater();
        types = dialog->nameFilters();
        dialog->findChild<QLineEdit *>()->setText(name);
        QTest::keyClick(dialog->findChild<QLineEdit *>(), name.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
    });
    timer->start(10);
    window.Frame().RunAction(action);
    StringWindow::Settle();
    window.Activate();
    return types;
}

} // namespace

TEST(StringPane, EnablesThePossibleCommands)
{
    StringWindow empty("Number of Language|1\nString ID|Resource Type|Description|English(9)\n##number|0\n");
    EXPECT_EQ(Enabled(empty), "xx-x-----x-x-");
    empty.Grid().SelectAlone(0, 0); // the line for a new row
    EXPECT_EQ(Enabled(empty), "xx-x-----xxx-");
    empty.app.reset();

    StringWindow window;
    EXPECT_EQ(Enabled(window), "xxxx-----x-x-") << "nothing is selected at first";
    window.Grid().SelectAlone(3, 0);
    EXPECT_EQ(Enabled(window), "xxxx-----xxx-");
    window.Grid().Select({2, 3});
    EXPECT_EQ(Enabled(window), "xxxx--x-xxxx-");
    window.Frame().RunAction(ACTION_COPY);
    EXPECT_EQ(Enabled(window), "xxxx--xxxxxx-");
    window.Frame().RunAction(ACTION_PASTE);
    EXPECT_EQ(window.Table().RowCount(), 4);
    EXPECT_EQ(Enabled(window), "xxxxx-xxxxxx-");
    window.Frame().RunAction(ACTION_UNDO);
    EXPECT_EQ(Enabled(window), "xxxx-xxxxxxx-");
    QGuiApplication::clipboard()->clear();
    window.Edit(0, 3);
    EXPECT_EQ(Enabled(window), "xxxx-xx-xxxxx") << "with the focus in the editor, its text all selected";
}

TEST(StringPane, ShowsTheKindOfTheSelectionInItsMenu)
{
    const struct
    {
        int selected;
        bool isNewSelected;
        int pushed;
        bool enabled, checked;
    } cases[] = {{0, false, 0, false, false}, {1, true, 0, false, false}, {1, false, 1, true, true},
                 {1, false, 0, true, false},  {3, false, 3, true, true},  {3, false, 0, true, false},
                 {3, false, 1, false, false}};
    for (const auto &each : cases) {
        const ActionState state = PushEntryState({9, each.selected, each.isNewSelected}, each.pushed);
        EXPECT_TRUE(state.enabled == each.enabled && state.checked == each.checked)
            << each.selected << each.isNewSelected << each.pushed;
    }
    StringWindow window;
    window.Frame().RunAction(ACTION_SELECT_ALL);
    window.Frame().RunAction(ACTION_PUSH_STRING);
    EXPECT_EQ(window.Shown(0, 1) + window.Shown(1, 1) + window.Shown(2, 1), "NormalPushPush");
    EXPECT_EQ(window.Table().Head(1)->Id()->pushKind, PUSH_STRING);
    window.Frame().RunAction(ACTION_UNDO);
    EXPECT_EQ(window.Shown(0, 1) + window.Shown(1, 1) + window.Shown(2, 1), "NormalPushNormal") << "each row is a step";
}

TEST(StringPane, AsksBeforeItDeletes)
{
    StringWindow window;
    window.Answer({QMessageBox::No, QMessageBox::Yes, QMessageBox::Yes});
    window.Grid().Select({0, 2, 3});
    window.Frame().RunAction(ACTION_DELETE);
    EXPECT_EQ(window.Table().RowCount(), 3);
    window.Frame().RunAction(ACTION_DELETE);
    EXPECT_EQ(window.Table().RowCount(), 1);
    window.Frame().RunAction(ACTION_DELETE_ALL);
    EXPECT_EQ(window.Table().RowCount(), 0);
    EXPECT_EQ(window.boxes, (QStringList{u"The selected item(s) will be deleted. Continue?"_s,
                                         u"The selected item(s) will be deleted. Continue?"_s,
                                         u"All the item(s) will be deleted. Continue?"_s}));
    window.Frame().RunAction(ACTION_UNDO);
    window.Frame().RunAction(ACTION_UNDO);
    EXPECT_EQ(window.Ids(), "ID_A2 ID_A10 ID_C <New> ");

    window.Answer({QMessageBox::Yes, QMessageBox::Ok});
    window.Grid().SelectAlone(2, 0);
    window.Frame().RunAction(ACTION_DELETE);
    window.Document().root.FindFolder(KIND_AUDIO, 2)->AddResource(window.Document().CreateFileRes("ID_C", -1));
    window.Frame().RunAction(ACTION_UNDO);
    EXPECT_TRUE(window.WaitFor([&] { return window.boxes.size() == 5; }));
    EXPECT_EQ(window.boxes.last(), u"The ID already exists, or it is reserved."_s);
}

TEST(StringPane, SortsByAClickAndRemembersOrderAndWidths)
{
    StringWindow window;
    const auto header = [&]() -> QHeaderView & { return *window.Grid().horizontalHeader(); };
    EXPECT_EQ(window.Ids(), "ID_A2 ID_A10 ID_C <New> ");
    EXPECT_EQ(window.Grid().Widths(), (std::vector<int>{200, 100, 200, 200, 200}));
    window.ClickHeader(window.Grid(), 0);
    EXPECT_EQ(window.Ids(), "ID_C ID_A10 ID_A2 <New> ");
    EXPECT_EQ(header().sortIndicatorOrder(), Qt::DescendingOrder);
    window.ClickHeader(window.Grid(), 0);
    EXPECT_EQ(window.Ids(), "ID_A2 ID_A10 ID_C <New> ");
    window.ClickHeader(window.Grid(), 1);
    EXPECT_EQ(window.Ids(), "ID_A10 ID_C ID_A2 <New> ") << "Normal before Push";
    window.Put(0, 3, u"Aaa"_s);
    window.ClickHeader(window.Grid(), 3);
    EXPECT_EQ(window.Ids(), "ID_A10 ID_C ID_A2 <New> ");
    header().resizeSection(4, 77);
    window.app.reset();
    window.Open();
    EXPECT_EQ(window.Ids(), "ID_C ID_A10 ID_A2 <New> ") << "by English: See, Ten, Two";
    EXPECT_EQ(header().sortIndicatorSection(), 3);
    EXPECT_EQ(window.Grid().Widths(), (std::vector<int>{200, 100, 200, 200, 77}));
    EXPECT_THAT(window.folder.Get("bin/Morvanite.ini").toStdString(), testing::HasSubstr("[wnd_1014]"));
}

/// Selects another node and the strings again: the grid shows the tree, with the same row in focus.
TEST(StringPane, ReturnsToItsRow)
{
    StringWindow window;
    window.Grid().SelectAlone(1, 3);
    window.Child().Selected().SelectFolder(&window.Document().root);
    EXPECT_FALSE(window.View().isVisible());
    int resets = 0;
    QObject::connect(window.Grid().model(), &QAbstractItemModel::modelReset, [&resets] { ++resets; });
    window.Child().Selected().SelectFolder(window.Document().root.FindFolder(KIND_STRINGS, 2));
    window.Settle();
    EXPECT_EQ(resets, 1) << "one rebuild";
    EXPECT_EQ(window.Grid().SelectedRows(), std::vector<int>{1});
    EXPECT_EQ(window.Grid().currentIndex().column(), 3);

    window.Put(1, 0, u"id_b"_s);
    window.Document().UpdateAllViews(nullptr);
    EXPECT_EQ(window.Grid().SelectedRows(), std::vector<int>{1}) << "under another ID";
}

TEST(StringPane, ALongCommandShowsTheWaitCursorAndKeepsTheSelection)
{
    QByteArray table = "Number of Language|1\nString ID|Resource Type|Description|English(9)\n";
    for (int row = 0; row < 50'000; ++row)
        table += "ID_" + QByteArray::number(row) + "|Normal|d|t\n";
    StringWindow window(table + "##number|50000\n");
    bool isWaiting = false;
    QObject::connect(window.Grid().model(), &QAbstractItemModel::modelReset, [&isWaiting] {
        const QCursor *const pointer = QGuiApplication::overrideCursor();
        isWaiting = pointer && pointer->shape() == Qt::WaitCursor;
    });
    window.Frame().RunAction(ACTION_SELECT_ALL);
    window.Frame().RunAction(ACTION_COPY);
    window.Grid().Select({5, 7});
    for (const auto &[action, rows] : {std::pair(ACTION_PASTE, 100'000), {ACTION_UNDO, 50'000}}) {
        window.Frame().RunAction(action);
        EXPECT_TRUE(std::exchange(isWaiting, false));
        EXPECT_EQ(window.Table().RowCount(), rows);
        EXPECT_EQ(window.Grid().SelectedRows(), (std::vector<int>{5, 7}));
    }
}

TEST(StringPane, ExtendsTheSelectionToANewLanguage)
{
    StringWindow window;
    window.Grid().SelectAlone(1, 0);
    CResFolder &strings = *window.Strings();
    strings.AddFolder(window.Document().CreateFolder(KIND_LANGUAGE, 1));
    window.Table().AddLanguageColumn(*strings.FindFolder(KIND_LANGUAGE, 1, 1));
    EXPECT_TRUE(window.Grid().selectionModel()->isSelected(window.Grid().model()->index(1, 5)));
}

TEST(StringPane, FindsFiltersAndGoesToAnId)
{
    StringWindow window;
    window.Grid().SelectAlone(2, 3);
    window.Grid().Select({1, 2});
    window.Frame().RunAction(ACTION_FIND_BAR);
    window.Type(u"te"_s);
    EXPECT_EQ(window.Ids(), "ID_A10 <New> ") << "Ten";
    EXPECT_EQ(window.Grid().SelectedRows(), std::vector<int>{0}) << "a visible selection stays";
    window.Type(u"x"_s);
    EXPECT_EQ(window.Ids(), "<New> ");
    window.Key(Qt::Key_Backspace);
    window.Grid().setFocus();
    window.Put(0, 3, u"Zehn"_s);
    EXPECT_EQ(window.Ids(), "ID_A10 <New> ") << "the edited row stays visible";
    window.Frame().RunAction(ACTION_FIND_BAR);
    window.Key(Qt::Key_Escape);
    EXPECT_EQ(window.Ids(), "ID_A2 ID_A10 ID_C <New> ");

    window.Grid().SelectAlone(0, 0);
    window.Frame().RunAction(ACTION_NEXT_GAP);
    EXPECT_EQ(window.Grid().currentIndex(), window.Grid().model()->index(0, 4));
    window.Frame().RunAction(ACTION_FIND_BAR);
    window.Type(u"Mer"_s);
    window.Child().Selected().SelectFolder(&window.Document().root);
    QTimer::singleShot(0, [] {
        QWidget *const dialog = QApplication::activeModalWidget();
        QTest::keyClicks(dialog->findChild<QLineEdit *>(), u"a1"_s);
        QTest::keyClick(dialog->findChild<QLineEdit *>(), Qt::Key_Return);
    });
    window.Frame().RunAction(ACTION_GO_TO_ID);
    EXPECT_TRUE(window.View().isVisible());
    EXPECT_EQ(window.Shown(window.Grid().currentIndex().row(), 0), "ID_A10") << "a filter that hides it is off";
}

TEST(StringPane, CopiesPastesAndReplacesCellsInOneStep)
{
    StringWindow window;
    window.Grid().Select({0, 1});
    window.Frame().RunAction(ACTION_COPY_CELLS);
    const QString copied = QGuiApplication::clipboard()->text();
    EXPECT_EQ(copied.toStdString(), "ID\tResource Type\tDescription\tEnglish\tFrench\nID_A2\tPush\ta\tTwo\t\n"
                                    "ID_A10\tNormal\tb\tTen\tDix\n");
    QGuiApplication::clipboard()->setText(u"ID\tFrench\nID_A2\tDeux\nid_new\tNeuf\n"_s);
    window.Answer({QMessageBox::Cancel, QMessageBox::Ok, QMessageBox::Ok});
    window.Frame().RunAction(ACTION_PASTE_CELLS);
    EXPECT_EQ(window.Shown(0, 4), "");
    window.Frame().RunAction(ACTION_PASTE_CELLS);
    EXPECT_EQ(window.Shown(0, 4) + window.Shown(3, 0) + window.Shown(3, 4), "DeuxID_NEWNeuf");
    ASSERT_EQ(window.boxes.size(), 2);
    EXPECT_TRUE(window.boxes[1].startsWith(u"1 cell(s) will change, and 1 row(s) will be added. Continue?"_s));
    window.Frame().RunAction(ACTION_UNDO);
    EXPECT_EQ(window.Table().RowCount(), 3);

    window.Activate();
    window.Frame().RunAction(ACTION_REPLACE);
    window.Type(u"e"_s); // occurs in See, Ten and Mer
    TestWindow::Named<QLineEdit>(window.View(), u"Replace with"_s).setText(u"3"_s);
    TestWindow::Find<FindBar>(window.View()).replaceAll();
    EXPECT_EQ(window.Table().CellText(window.Table().RowOf("ID_C", 0), 3), u"S33"_s);
    window.Grid().setFocus();
    window.Frame().RunAction(ACTION_UNDO);
    EXPECT_EQ(window.Table().CellText(window.Table().RowOf("ID_C", 0), 3), u"See"_s);
}

TEST(StringPane, HasItsCommandsInItsMenu)
{
    StringWindow window;
    window.Grid().SelectAlone(0, 3);
    std::string shown;
    window.OpenMenu(window.Grid(), [&shown](const QWidget &menu) { shown = TestWindow::MenuEntriesOf(menu); });
    EXPECT_EQ(shown, "&New|/&Import...|&Export...|/&Language...|/-&Undo\tCtrl+Z|-Redo\tCtrl+Y|/&Copy\tCtrl+C|"
                     "-&Paste\tCtrl+V|/&Delete\tDel|Delete &All|/*Push Resource|");
    QContextMenuEvent above(QContextMenuEvent::Mouse, QPoint(20, -5),
                            window.Grid().viewport()->mapToGlobal(QPoint(20, -5)));
    QApplication::sendEvent(window.Grid().viewport(), &above);
    EXPECT_FALSE(QApplication::activePopupWidget());
}

TEST(StringPane, ExportsAndImportsByDialogs)
{
    StringWindow window;
    const auto choose = [&](ActionId action, const QString &name) { return ChooseFile(window, action, name); };
    window.Put(0, 4, u"Deux"_s);
    const QString book = window.folder.Path("out");
    const QStringList types = choose(ACTION_EXPORT, book);
    EXPECT_TRUE(types.value(0).startsWith(u"Excel files (*.xls)"_s) && types.size() == 5);
    EXPECT_TRUE(QFileInfo::exists(book + u".xls"_s));
    window.Frame().RunAction(ACTION_UNDO);
    window.Grid().SelectAlone(1, 0);
    window.Frame().RunAction(ACTION_COPY);
    choose(ACTION_IMPORT, QString()); // cancels the dialog
    EXPECT_TRUE(window.Table().history.CanRedo() && !window.Table().Copied().empty());
    choose(ACTION_IMPORT, book + u".xls"_s);
    EXPECT_EQ(window.Shown(0, 4), "Deux");
    const std::string nothing = NothingImported().toStdString();
    EXPECT_THAT(window.OutputText(), testing::Not(testing::HasSubstr(nothing)));
    choose(ACTION_IMPORT, book + u".xls"_s);
    EXPECT_THAT(window.OutputText(), testing::HasSubstr(nothing));
    EXPECT_FALSE(window.Table().history.CanRedo() || window.Table().history.CanUndo());
    EXPECT_TRUE(window.Table().Copied().empty());
    window.folder.Put("bad.xls", "no workbook");
    window.Answer({QMessageBox::Ok});
    choose(ACTION_IMPORT, window.folder.Path("bad.xls"));
    ASSERT_TRUE(window.WaitFor([&] { return window.boxes.size() == 1; }));
    EXPECT_TRUE(window.boxes[0].startsWith(u"Failed to import from Excel."_s));
}

TEST(StringPane, ExportsAndImportsTranslationFilesByDialogs)
{
    StringWindow window("Number of Language|3\nString ID|Resource Type|Description|English(9)|French(12)|Arabic(1)\n"
                        "ID_A|Normal|a|See|Mer|\nID_B|Push|b|Two||\n##number|2\n");
    window.folder.Put("demo/morvanite-check.ini", "[Language]\n12=fr\n1=ar\n9=en\n");
    const auto has = [&](const char *name) { return QFileInfo::exists(window.folder.Path(name)); };
    window.folder.Put("all_fr.po", "old");
    window.Answer({QMessageBox::No, QMessageBox::Yes});
    ChooseFile(window, ACTION_EXPORT, window.folder.Path("all.po"));
    EXPECT_TRUE(window.folder.Get("all_fr.po") == "old" && !has("all_ar.po"));
    ChooseFile(window, ACTION_EXPORT, window.folder.Path("all.po"));
    ASSERT_EQ(window.boxes.size(), 2);
    EXPECT_EQ(window.boxes[1], u"Each language has its own file, and these exist: all_fr.po.\n"
                               "Do you want to replace them?"_s);
    EXPECT_TRUE(has("all_ar.po") && !has("all.po"));
    ChooseFile(window, ACTION_EXPORT, window.folder.Path("fr.xlf"));
    EXPECT_TRUE(window.folder.Get("fr.xlf").contains("<target state=\"translated\">Mer</target>") && !has("fr_ar.xlf"));

    const auto translate = [&](const char *name, const QByteArray &text) {
        QByteArray file = window.folder.Get(name);
        const qsizetype place = file.indexOf("msgstr \"\"", file.indexOf("ID_B"));
        window.folder.Put(name, file.replace(place, 9, "msgstr \"" + text + '"'));
    };
    translate("all_fr.po", "Deux");
    translate("all_ar.po", "a\\tb");
    const QString both = u"\"%1\" \"%2\""_s.arg(window.folder.Path("all_fr.po"), window.folder.Path("all_ar.po"));
    window.Answer({QMessageBox::Ok});
    ChooseFile(window, ACTION_IMPORT, both);
    ASSERT_TRUE(window.WaitFor([&] { return window.boxes.size() == 3; }));
    EXPECT_TRUE(window.boxes[2].startsWith(u"Failed to import the translations, so the table is as before."_s));
    EXPECT_FALSE(window.Document().IsModified());
    window.folder.Put("all_ar.po", window.folder.Get("all_ar.po").replace("a\\tb", "b"));
    ChooseFile(window, ACTION_IMPORT, both);
    EXPECT_EQ(window.TreeRows().last(), u"ID_B|Push|b|Two|Deux|b"_s);
    const std::string nothing = NothingImported().toStdString();
    EXPECT_THAT(window.OutputText(), testing::Not(testing::HasSubstr(nothing)));
    ChooseFile(window, ACTION_IMPORT, both);
    EXPECT_THAT(window.OutputText(), testing::HasSubstr(nothing));
}
