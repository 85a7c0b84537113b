// SPDX-License-Identifier: MIT
#include "ManualViews.h"

#include "CFileWatchDlg.h"
#include "CLotEditorView.h"
#include "CLotScreenView.h"
#include "FindingsPane.h"
#include "LayoutPanes.h"

#include <QClipboard>
#include <QLineEdit>
#include <QListWidget>
#include <QStatusBar>
#include <QTableView>

namespace
{

/// Runs an action that opens a menu, a box or a dialog, takes a picture of it, and closes it. `prepare` gets it before.
void TakeDialog(
    SampleWindow &window, Pictures &pictures, const char *name, const std::function<void()> &action,
    const std::function<void(QWidget &)> &prepare = [](QWidget &) {})
{
    QTimer::singleShot(100, [&] {
        QWidget *const menu = QApplication::activePopupWidget();
        QWidget *const dialog = menu ? menu : QApplication::activeModalWidget();
        if (!dialog)
            throw std::runtime_error(std::string("There is no dialog for ") + name);
        prepare(*dialog);
        pictures.Take(name, *dialog);
        dialog->close();
    });
    action();
    window.Activate();
}

void TakeNewProject(SampleWindow &window, Pictures &pictures)
{
    const auto fill = [](QWidget &dialog) {
        QTest::keyClicks(dialog.findChild<QLineEdit *>(), u"timer"_s);
        const auto lists = dialog.findChildren<QListWidget *>();
        for (const auto &[list, texts] : {std::pair(lists[0], QStringList{u"240x320"_s, u"176x220"_s}),
                                          std::pair(lists[1], QStringList{u"English"_s, u"Japanese"_s})}) {
            for (const QString &text : texts)
                list->findItems(text, Qt::MatchExactly).front()->setCheckState(Qt::Checked);
        }
    };
    TakeDialog(
        window, pictures, "new-project", [&] { window.Frame().RunAction(ACTION_NEW_PROJECT); }, fill);
}

void TakeProject(SampleWindow &window, Pictures &pictures)
{
    CMainFrame &frame = window.Frame();
    frame.resize(900, 560);
    window.PutOutputBelow(140);
    pictures.Take("start", frame);
    window.OpenSample();
    TakeNewProject(window, pictures);
    window.FitColumns(220, {});
    window.Go(window.Row(u"weatherclock"_s));
    pictures.Take("project", frame);
    TakeDialog(window, pictures, "folder-menu", [&] {
        auto *const folder = CProjView::FolderOf(window.Row(u"Images"_s));
        window.Tree().OpenContextMenu(*folder, frame.mapToGlobal(QPoint(60, 120)));
    });
    TakeDialog(
        window, pictures, "go-to", [&] { frame.RunAction(ACTION_GO_TO_ID); },
        [](QWidget &dialog) { dialog.findChild<QLineEdit *>()->setText(u"image s"_s); });
    window.Tree().SetContextFolder(&window.Document().root);
    TakeDialog(window, pictures, "resolutions", [&] { frame.RunAction(ACTION_RESOLUTION); });
    TakeDialog(window, pictures, "v1-list", [&] { frame.RunAction(ACTION_V1_LIST); });
    qint32 isReloadedAlways = 0;
    CFileWatchDlg question(u"/tmp/weatherclock/res/weatherclock.res.xml"_s, &isReloadedAlways, nullptr, true);
    question.show();
    pictures.Take("reload", question);
    question.close();
    window.Activate();
    frame.Notices().Add(window.Document(),
                        u"Opening weatherclock.vcproj reported 0 error(s) and left out 3 element(s). The files "
                        "that the save replaced are kept in /home/me/.local/state/morvanite/kept/weatherclock-1a2b/7; "
                        "\"morvanite-cli kept\" lists and restores them."_s);
    pictures.Take("notice", frame);
    QTest::keyClick(&window.Child().Notice(), Qt::Key_Escape);
    frame.RunAction(ACTION_OUTPUT);
}

void TakeFiles(SampleWindow &window, Pictures &pictures)
{
    CMainFrame &frame = window.Frame();
    frame.resize(900, 460);
    window.Go(window.Row(u"Files"_s));
    window.FitColumns(220, {220, 110, 310});
    const auto click = [&window](int row, int col) {
        window.GoToCell(window.Grid(), row, col);
        window.ClickCell(window.Grid(), row, col);
    };
    click(1, 1);
    pictures.Take("files", frame);
    window.Key(Qt::Key_Escape);
    TakeDialog(window, pictures, "files-menu", [&] {
        QWidget &list = *window.Grid().viewport();
        const QPoint place = window.PlaceOf(window.Grid(), 1, 0);
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, list.mapToGlobal(place));
        QApplication::sendEvent(&list, &event);
    });
    frame.resize(900, 640);
    window.Go(window.Row(u"Images"_s)->child(0));
    click(6, 2);
    frame.RunAction(ACTION_THUMBNAILS);
    frame.RunAction(ACTION_DETAILS);
    click(6, 2);
    pictures.Take("images", frame);
    frame.RunAction(ACTION_DETAILS);
}

void TakeStrings(SampleWindow &window, Pictures &pictures)
{
    CMainFrame &frame = window.Frame();
    frame.resize(1120, 520);
    window.Row(u"Layouts"_s)->setExpanded(false);
    window.Go(window.Row(u"Strings"_s));
    window.FitColumns(150, {176, 92, 112, 102, 100, 122, 96, 76, 60});
    QTableView &grid = window.Grid();
    window.GoToCell(grid, 5, 3);
    pictures.Take("strings", frame);
    frame.resize(1120, 446);
    window.GoToCell(grid, 9, 7); // a gap
    window.Key(Qt::Key_Return);
    SampleWindow::Type(u"पाले"_s);
    pictures.Take("strings-edit", frame);
    window.Key(Qt::Key_Escape);
    TakeDialog(window, pictures, "languages", [&] { frame.RunAction(ACTION_LANGUAGE); });
    window.GoToCell(grid, 0, 3);
    QApplication::clipboard()->setText(u"ID\tEnglish\tKorean\nID_STRING_CLEAR\tClear sky\t맑은 하늘\n"
                                       "ID_STRING_HAIL\tHail\t우박\n"_s);
    TakeDialog(window, pictures, "strings-paste", [&] { frame.RunAction(ACTION_PASTE_CELLS); });
    frame.RunAction(ACTION_DETAILS);
    frame.RunAction(ACTION_REPLACE);
    SampleWindow::Type(u"warning"_s);
    TestWindow::Settle();
    window.GoToCell(grid, 1, 4);
    pictures.Take("strings-find", frame);
    frame.RunAction(ACTION_DETAILS);
    frame.RunAction(ACTION_FIND_BAR);
    window.Row(u"Layouts"_s)->setExpanded(true);
}

void TakeFindings(SampleWindow &window, Pictures &pictures)
{
    CMainFrame &frame = window.Frame();
    frame.resize(1120, 560);
    window.Named<QAbstractButton>(window.Child(), u"Close the find bar"_s).click();
    frame.RunAction(ACTION_FINDINGS);
    window.PutOutputBelow(210);
    FindingsPane &pane = frame.Bars().Findings();
    window.WaitFor([&] { return !window.Child().Check().IsRunning() && pane.List().RowCount() > 0; });
    frame.RunAction(ACTION_NEXT_FINDING);
    pane.Run(ACTION_EXPLAIN_RULE);
    pictures.Take("findings", frame);
    frame.RunAction(ACTION_FINDINGS);
    frame.statusBar()->clearMessage();
}

void TakeLayouts(SampleWindow &window, Pictures &pictures)
{
    CMainFrame &frame = window.Frame();
    frame.resize(1120, 860);
    window.Go(window.Row(u"ID_LAYOUT_START"_s));
    LayoutPanes &panes = window.Panes();
    window.FitColumns(215, {});
    window.FitPanes(360, 260);
    window.SelectComponent(u"Panel: today"_s);
    pictures.Take("layout", frame);
    panes.Preview().setFixedSize(260, 340); // the screen and its margins
    frame.RunAction(ACTION_FIT_VIEW);
    pictures.Take("layout-preview", *panes.Preview().viewport());
    panes.Preview().setMinimumSize(0, 0);
    panes.Preview().setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    window.Settle();
    window.ClickProperty(u"bgColor"_s);
    pictures.Take("layout-properties", panes.Grid());
    window.Key(Qt::Key_Escape);
}

void TakeTiledProjects(SampleWindow &window, Pictures &pictures)
{
    window.Go(window.Row(u"weatherclock"_s));
    window.Frame().resize(900, 460);
    window.Document().SetModifiedFlag(false);
    (void)window.Frame().Projects().Open(window.Project());
    (void)window.Frame().Projects().Open(window.SampleProject()); // its window comes to the front
    window.Frame().RunAction(ACTION_TILE);
    pictures.Take("tiled", window.Frame());
}

} // namespace

void TakeManualViews(SampleWindow &window, Pictures &pictures)
{
    TakeProject(window, pictures);
    TakeFiles(window, pictures);
    TakeStrings(window, pictures);
    TakeFindings(window, pictures);
    TakeLayouts(window, pictures);
    TakeTiledProjects(window, pictures);
}
