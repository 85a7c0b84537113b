// SPDX-License-Identifier: MIT
// Takes pictures of the window's main states, with the sample: app_pictures FOLDER [dark] [rtl]. QT_SCALE_FACTOR=2
// takes them for a high-resolution screen. "rtl" shows a right-to-left window. "icons" after FOLDER makes the
// application's icon in the usual sizes instead.
#include "CFileWatchDlg.h"
#include "CLotCplistView.h"
#include "CLotEditorView.h"
#include "CLotScreenView.h"
#include "LayoutPanes.h"
#include "ProgramStyle.h"
#include "TestWindow.h"
#include "UiIcons.h"

#include <QDockWidget>
#include <QListWidget>
#include <QMenu>
#include <QSplitter>
#include <QStyleFactory>
#include <QTableView>
#include <QTest>
#include <QTreeWidget>

#include <filesystem>

namespace
{

QPalette DarkPalette()
{
    const QColor window(0x2B, 0x2B, 0x2B), base(0x1E, 0x1E, 0x1E), text(0xE6, 0xE6, 0xE6), dim(0x80, 0x80, 0x80);
    QPalette dark(text, window, window.lighter(150), window.darker(150), window, text, Qt::white, base, window);
    dark.setColor(QPalette::Highlight, QColor(0x2F, 0x65, 0xA8));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(QPalette::Disabled, role, dim);
    return dark;
}

void Take(TestWindow &window, const QString &folder, const char *name)
{
    window.Settle();
    window.Frame().grab().save(folder + u'/' + QLatin1String(name) + u".png"_s);
}

/// Copies the sample into `to`, whose short path appears in the pictures. Gives `window` the program's own settings
/// and image converter.
void CopySample(const TestWindow &window, const std::filesystem::path &to)
{
    constexpr auto options =
        std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing;
    if (!std::filesystem::create_directory(to))
        throw std::runtime_error(to.string() + " is in the way; take it away first.");
    std::filesystem::copy(MORVANITE_SAMPLE, to, options);
    const std::filesystem::path program = window.folder.Path("bin").toStdString();
    std::filesystem::copy(MORVANITE_PROGRAM_FILES, program, options);
    std::filesystem::create_symlink(MORVANITE_CONVERTER, program / "qrk_resgenerator.exe");
}

/// Takes a menu of the window, with an entry under the pointer.
void TakeMenu(TestWindow &window, const QString &folder)
{
    QMenu *const menu = window.Frame().menuBar()->actions().first()->menu();
    menu->popup(window.Frame().mapToGlobal(QPoint(8, 24)));
    menu->setActiveAction(menu->actions().value(2));
    Take(window, folder, "tip");
    menu->grab().save(folder + u"/file-menu.png"_s);
    menu->close();
}

void TakeContextMenu(TestWindow &window, const QString &folder)
{
    QTimer::singleShot(100, [&] {
        if (QWidget *menu = QApplication::activePopupWidget()) {
            menu->grab().save(folder + u"/menu.png"_s);
            menu->close();
        }
    });
    window.Tree().OpenContextMenu(*CProjView::FolderOf(window.Row(u"Images"_s)),
                                  window.Frame().mapToGlobal(QPoint(60, 120)));
}

/// Makes the project tree narrow, and gives the columns of the grid these widths.
void FitColumns(TestWindow &window, QTableView &grid, const QList<int> &widths)
{
    constexpr int TREE = 150;
    auto *const splitter = window.Child().findChild<QSplitter *>();
    splitter->setSizes({TREE, splitter->width() - TREE});
    for (int col = 0; col < int(widths.size()); ++col)
        grid.setColumnWidth(col, widths[col]);
}

/// Moves the output below the project, and makes the columns of the grid as narrow as most of their texts.
void FitGrid(TestWindow &window, QTableView &grid)
{
    for (QDockWidget *bar : window.Frame().findChildren<QDockWidget *>()) {
        if (bar->windowTitle() != u"Output"_s)
            continue;
        window.Frame().addDockWidget(Qt::BottomDockWidgetArea, bar);
        window.Frame().resizeDocks({bar}, {110}, Qt::Vertical);
    }
    QTest::qWait(500); // the animation of the bars
    FitColumns(window, grid, {182, 96, 140, 115, 112, 126, 112, 112, 112});
}

void PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
{
    if (QApplication::focusWidget())
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

/// Takes the dialog that an action opens.
void TakeDialog(TestWindow &window, const QString &folder, const char *name, ActionId id)
{
    QTimer::singleShot(100, [&] {
        if (QWidget *dialog = QApplication::activeModalWidget()) {
            dialog->grab().save(folder + u'/' + QLatin1String(name) + u".png"_s);
            dialog->close();
        }
    });
    window.Frame().RunAction(id);
}

/// Takes the question about a file that another program has changed, with all its parts.
void TakeReloadQuestion(const QString &folder)
{
    qint32 file = 0, type = 0;
    const QString path = u"/home/x/projects/weatherclock/res/weatherclock.res.xml"_s;
    const auto take = [&](CFileWatchDlg &&dialog, const char *name) {
        dialog.show();
        QTest::qWait(50);
        dialog.grab().save(folder + u'/' + QLatin1String(name) + u".png"_s);
    };
    take({path, &file, nullptr, true}, "reload");
    take({path, &file, &type, false}, "reload-flags");
    take({u'/' + path.repeated(80), nullptr, nullptr, false}, "reload-long");
}

/// Takes the string view: plain, with an editor, with its bars, and with the question of a replacement.
void TakeStrings(TestWindow &window, const QString &folder)
{
    window.Frame().resize(1280, 640);
    window.Row(u"Layouts"_s)->setExpanded(false);
    window.Tree().setCurrentItem(window.Row(u"Strings"_s));
    window.Settle();
    auto &grid = *window.Child().findChild<QTableView *>();
    FitGrid(window, grid);
    grid.setFocus();
    const auto goTo = [&grid](int row, int col) {
        grid.selectionModel()->setCurrentIndex(grid.model()->index(row, col),
                                               QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    };
    goTo(5, 3);
    Take(window, folder, "strings");
    goTo(9, 7); // a missing translation
    PressKey(Qt::Key_Return);
    Take(window, folder, "string-editor");
    PressKey(Qt::Key_Tab, Qt::ShiftModifier);
    Take(window, folder, "string-editor-arabic");
    PressKey(Qt::Key_Escape);
    PressKey(Qt::Key_Down, Qt::AltModifier);
    Take(window, folder, "string-types");
    PressKey(Qt::Key_Escape);
    window.Frame().RunAction(ACTION_DETAILS);
    window.Frame().RunAction(ACTION_FIND_BAR);
    if (QApplication::focusWidget())
        QTest::keyClicks(QApplication::focusWidget(), u"warning"_s);
    PressKey(Qt::Key_Down);
    goTo(1, 6);
    Take(window, folder, "string-bars");
    window.Frame().RunAction(ACTION_REPLACE);
    window.Frame().resize(620, 500);
    Take(window, folder, "string-narrow");
    window.Frame().RunAction(ACTION_DETAILS);
    PressKey(Qt::Key_Escape);
    TakeDialog(window, folder, "languages", ACTION_LANGUAGE);
    window.Frame().resize(900, 560);
}

/// Takes the file pane: initially, with thumbnails and the preview, with all files, and with an ID in its editor.
void TakeFiles(TestWindow &window, const QString &folder)
{
    window.Frame().resize(1100, 640);
    window.Frame().activateWindow();
    window.Tree().setCurrentItem(window.Row(u"Images"_s)->child(0));
    window.Settle();
    auto &grid = *window.Child().findChild<QTableView *>();
    FitColumns(window, grid, {230, 110, 325});
    const auto goTo = [&grid](int row, int col) {
        TestWindow::Settle(); // a change of the size ends an editor
        grid.setFocus();
        grid.selectionModel()->setCurrentIndex(grid.model()->index(row, col),
                                               QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, grid.visualRect(grid.currentIndex()).center());
    };
    goTo(2, 2);
    Take(window, folder, "files");
    window.Frame().RunAction(ACTION_THUMBNAILS);
    window.Frame().RunAction(ACTION_DETAILS);
    goTo(0, 2);
    QTest::qWait(1000); // until the pictures are loaded and converted
    Take(window, folder, "file-pictures");
    goTo(4, 1);
    QTest::qWait(500);
    Take(window, folder, "file-types");
    window.Tree().setCurrentItem(window.Row(u"Files"_s));
    window.Settle();
    goTo(1, 2);
    QTest::qWait(500);
    Take(window, folder, "file-kinds");
    window.Frame().RunAction(ACTION_THUMBNAILS);
    window.Frame().RunAction(ACTION_DETAILS);
    goTo(1, 0);
    window.Frame().RunAction(ACTION_RENAME);
    Take(window, folder, "file-rename");
    PressKey(Qt::Key_Escape);
    window.Child().findChild<QSplitter *>()->setSizes({200, 700});
    window.Frame().resize(900, 560);
}

/// Takes the panes of the start screen: with a component selected, zoomed, and with an editor of each form.
void TakeLayout(TestWindow &window, const QString &folder)
{
    window.Frame().resize(1280, 800);
    window.Frame().activateWindow();
    window.Tree().setCurrentItem(window.Row(u"ID_LAYOUT_START"_s));
    window.Settle();
    const QList<QWidget *> widgets = window.Child().findChildren<QWidget *>();
    const auto isPanes = [](const QWidget *widget) { return dynamic_cast<const LayoutPanes *>(widget) != nullptr; };
    auto &panes = dynamic_cast<LayoutPanes &>(**std::find_if(widgets.begin(), widgets.end(), isPanes));
    auto &grid = *panes.Grid().findChild<QTableView *>();
    const auto select = [&](const QString &label) {
        auto &list = *panes.List().findChild<QTreeWidget *>();
        list.setCurrentItem(list.findItems(label, Qt::MatchExactly | Qt::MatchRecursive).value(0));
        window.Settle();
    };
    const auto click = [&](const QString &property) {
        for (int row = 0; row < grid.model()->rowCount(); ++row) {
            if (grid.model()->index(row, 0).data().toString().trimmed() == property)
                QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                                  grid.visualRect(grid.model()->index(row, 1)).center());
        }
    };
    select(u"Panel: today"_s);
    Take(window, folder, "layout");
    const QSize size = panes.Preview().size();
    panes.Preview().setFixedSize(260, 340); // the size of the screen and its margins
    panes.Preview().Select(nullptr);
    QTest::qWait(500); // until the images are loaded
    panes.Preview().viewport()->grab().save(folder + u"/preview.png"_s);
    panes.Preview().setMinimumSize(0, 0);
    panes.Preview().setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    panes.Preview().resize(size);
    panes.Preview().setFocus();
    select(u"Screen: start"_s);
    select(u"Panel: today"_s);
    window.Frame().RunAction(ACTION_FIT_VIEW);
    Take(window, folder, "layout-fit");
    click(u"bgColor"_s);
    Take(window, folder, "layout-color");
    click(u"size"_s);
    Take(window, folder, "layout-size");
    PressKey(Qt::Key_Escape);
    select(u"Label: title"_s);
    click(u"text"_s);
    Take(window, folder, "layout-choice");
    PressKey(Qt::Key_Escape);
    click(u"Class"_s);
    Take(window, folder, "layout-name");
    PressKey(Qt::Key_Escape);
    window.Frame().resize(900, 560);
}

void TakeAll(TestWindow &window, const QString &folder, const QString &sample)
{
    window.Frame().resize(900, 560);
    Take(window, folder, "empty");
    (void)window.Frame().Projects().Open(sample);
    Take(window, folder, "project");
    window.Tree().setCurrentItem(window.Row(u"Images"_s));
    window.Document().SetModifiedFlag(true);
    Take(window, folder, "images");
    window.Tree().SetContextFolder(&window.Document().root);
    TakeDialog(window, folder, "resolutions", ACTION_RESOLUTION);
    TakeDialog(window, folder, "v1-list", ACTION_V1_LIST);
    TakeReloadQuestion(folder);
    TakeFiles(window, folder);
    TakeLayout(window, folder);
    window.Tree().setCurrentItem(window.Row(u"Images"_s)->child(0));
    window.Frame().Notices().Add(
        window.Document(), u"3 elements were left out when the project was opened. The files that this save replaced "
                           "are kept in /home/x/.local/state/morvanite/kept/demo-1a2b/7."_s);
    Take(window, folder, "notice");
    window.Frame().Notices().Add(window.Document(), u"A second notice."_s);
    window.Frame().resize(500, 450);
    Take(window, folder, "small");
    window.Frame().resize(900, 560);
    QTest::keyClick(&window.Child().Notice(), Qt::Key_Escape);
    Take(window, folder, "second-notice");
    QTest::keyClick(&window.Child().Notice(), Qt::Key_Escape);
    TakeMenu(window, folder);
    TakeContextMenu(window, folder);
    window.Document().SetModifiedFlag(false);
    (void)window.Frame().Projects().Open(window.Project("天气时钟"));
    Take(window, folder, "chinese");
    (void)window.Frame().Projects().Open(window.Project("ساعة الطقس"));
    Take(window, folder, "arabic");
    (void)window.Frame().Projects().Open(sample); // brings its window to the front, and its path into the status bar
    window.Frame().RunAction(ACTION_TILE);
    Take(window, folder, "tiled");
    window.Frame().RunAction(ACTION_CASCADE);
    Take(window, folder, "cascaded");
    {
        const CMainFrame::Busy busy(window.Frame(), IDE_COMMAND_PACK);
        Take(window, folder, "busy");
    }
    while (window.Frame().ActiveChild())
        window.Frame().RunAction(ACTION_CLOSE);
    window.Frame().Bars().Output().clear();
    (void)window.Frame().Projects().Open(sample);
    TakeStrings(window, folder); // last, as it changes the window
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    if (argc < 2)
        return 2;
    const QString folder = QDir(QString::fromLocal8Bit(argv[1])).absolutePath();
    if (argc > 2 && QByteArrayView(argv[2]) == "icons") {
        for (const int size : {16, 22, 24, 32, 48, 64, 128, 256, 512})
            MakeIcon(UiIcon::Application).pixmap(size, size).save(folder + u"/morvanite-%1.png"_s.arg(size));
        return 0;
    }
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QApplication::setStyle(new ProgramStyle);
    const QStringList looks = QApplication::arguments().sliced(2);
    if (looks.contains(u"dark"_s))
        QApplication::setPalette(DarkPalette());
    if (looks.contains(u"rtl"_s))
        QApplication::setLayoutDirection(Qt::RightToLeft);

    TestWindow window;
    const std::filesystem::path sample = std::filesystem::temp_directory_path() / "weatherclock";
    CopySample(window, sample);
    const QByteArray resolutions = "<RESOLUTION width=\"320\" height=\"240\" class=\"image\"/>";
    window.MakeProject("天气时钟", "<APP>" + resolutions + "</APP>");
    window.MakeProject("ساعة الطقس", "<APP/>");
    window.Start();
    TakeAll(window, folder, QString::fromStdString((sample / "weatherclock.vcproj").string()));
    std::filesystem::remove_all(sample);
    return 0;
}
