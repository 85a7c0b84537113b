// SPDX-License-Identifier: MIT
#pragma once

#include "Actions.h"
#include "CInfoPane.h"
#include "CListGrid.h"
#include "CMorvaniteApp.h"
#include "CSizingControlBar.h"
#include "TempFolder.h"

#include <QAbstractButton>
#include <QApplication>
#include <QContextMenuEvent>
#include <QDeadlineTimer>
#include <QDragEnterEvent>
#include <QHeaderView>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

/// The folders of a program and of a project called demo, and the program itself once a test starts it.
struct TestWindow
{
    /// `settings` are added to those of the program.
    explicit TestWindow(const QByteArray &settings = {})
    {
        qputenv("XDG_CONFIG_HOME", folder.Path("user").toUtf8());
        qputenv("XDG_STATE_HOME", folder.Path("state").toUtf8());
        qputenv("MORVANITE_PROGRAM_DIR", folder.Path("bin").toUtf8());
        qputenv("MORVANITE_RUNTIME_DIR", folder.Path("run").toUtf8());
        folder.Put("bin/Morvanite.ini", "[Path]\nreso_set=sizes.ini\n" + settings);
        folder.Put("bin/sizes.ini", "[Resolution]\n176x220\n240x320\n320x240\n");
        folder.Put("bin/tuvik.ini", "[Language]\nEnglish=0\n");
        MakeProject("demo", "<APP><IMAGE id=\"ID_IMAGE\" type=\"Normal\">a.png</IMAGE></APP>");
    }
    virtual ~TestWindow()
    {
        qunsetenv("MORVANITE_PROGRAM_DIR");
        qunsetenv("MORVANITE_RUNTIME_DIR");
    }

    void MakeProject(const QByteArray &name, const QByteArray &resources) const
    {
        folder.Put(name + "/config.xml",
                   "<config><zxa><zepversion>20</zepversion><tarvo>Checked</tarvo></zxa><resolution>"
                   "<Width>240</Width><Height>320</Height></resolution></config>");
        folder.Put(name + "/res/" + name + ".res.xml", resources);
        folder.Put(name + '/' + name + ".vcproj", "");
    }

    [[nodiscard]] QString Project(const QByteArray &name = "demo") const
    {
        return folder.Path(name + '/' + name + ".vcproj");
    }

    /// Starts the program and waits until it is idle.
    void Start(const QStringList &arguments = {})
    {
        app = std::make_unique<CMorvaniteApp>();
        ASSERT_EQ(app->InitInstance(arguments), std::nullopt);
        app->Frame().activateWindow();
        Settle();
    }
    void Restart()
    {
        app.reset();
        Start();
    }

    /// Processes all pending events.
    static void Settle()
    {
        bool isOver = false;
        QTimer::singleShot(20, [&isOver] { isOver = true; });
        while (!isOver)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        // On a busy machine, the time may be over at the first pass. Timers without a delay and layouts cause further
        // events, each in the pass after.
        for (int pass = 0; pass < 10; ++pass)
            QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    template <typename Condition> static bool WaitFor(Condition condition)
    {
        for (const QDeadlineTimer deadline(10'000); !condition() && !deadline.hasExpired();)
            Settle();
        return condition();
    }

    /// Activates the window, as a window manager does after a box is closed.
    void Activate() const
    {
        Frame().activateWindow();
        Settle();
    }

    /// Answers the next boxes with these buttons, one each, and records their texts.
    void Answer(const QList<QMessageBox::StandardButton> &buttons)
    {
        answers = buttons;
        answering = std::make_unique<QTimer>();
        QObject::connect(answering.get(), &QTimer::timeout, [this] {
            auto *const box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (!box || answers.isEmpty())
                return;
            boxes.append(box->text());
            const QCursor *const pointer = QGuiApplication::overrideCursor();
            EXPECT_TRUE(!pointer || pointer->shape() == Qt::ArrowCursor) << "no wait cursor over a box";
            box->button(answers.takeFirst())->click();
        });
        answering->start(10);
    }

    [[nodiscard]] static QList<QUrl> UrlsOf(const QStringList &paths)
    {
        QList<QUrl> urls;
        for (const QString &path : paths)
            urls.append(QUrl::fromLocalFile(path));
        return urls;
    }
    /// Drops URLs from another program on a widget that accepts them.
    static void DropOn(QWidget &widget, const QList<QUrl> &urls)
    {
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&widget, &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&widget, &drop);
        Settle();
    }

    static void Click(QWidget &widget, const QPoint &place) { QTest::mouseClick(&widget, Qt::LeftButton, {}, place); }
    static void DoubleClick(QWidget &widget, const QPoint &place)
    {
        QTest::mouseClick(&widget, Qt::LeftButton, {}, place);
        QTest::mouseDClick(&widget, Qt::LeftButton, {}, place);
        QTest::mouseRelease(&widget, Qt::LeftButton, {}, place); // QTest doesn't send the second release
    }

    [[nodiscard]] static QPoint PlaceOf(const QTableView &grid, int row, int col)
    {
        return grid.visualRect(grid.model()->index(row, col)).center();
    }
    static void ClickCell(const QTableView &grid, int row, int col)
    {
        Click(*grid.viewport(), PlaceOf(grid, row, col));
    }
    static void ClickHeader(const QTableView &grid, int col)
    {
        const QHeaderView &header = *grid.horizontalHeader();
        Click(*header.viewport(), {header.sectionViewportPosition(col) + 20, 5});
    }
    /// Opens a widget's menu by the key for it, calls `use` with the menu, and closes it.
    static void OpenMenu(QWidget &widget, const std::function<void(QWidget &)> &use)
    {
        QTimer::singleShot(0, [&use] {
            QWidget *const menu = QApplication::activePopupWidget();
            ASSERT_NE(menu, nullptr);
            use(*menu);
            menu->close();
        });
        QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(), QPoint());
        QApplication::sendEvent(&widget, &key);
    }
    /// Returns the entries of a menu: "-" before a disabled one, "*" before a checked one, "|" after each, and "/" for
    /// a separator.
    [[nodiscard]] static std::string MenuEntriesOf(const QWidget &menu)
    {
        QString all;
        for (const QAction *entry : menu.actions()) {
            if (entry->isSeparator())
                all += u'/';
            else
                all += (entry->isEnabled() ? u""_s : u"-"_s) + (entry->isChecked() ? u"*"_s : u""_s) + entry->text() +
                       u'|';
        }
        return all.toStdString();
    }

    /// Returns the first descendant of that class.
    template <typename Widget> [[nodiscard]] static Widget &Find(const QWidget &parent)
    {
        for (QWidget *child : parent.findChildren<QWidget *>()) {
            if (auto *const found = dynamic_cast<Widget *>(child))
                return *found;
        }
        throw std::runtime_error("there is no such widget");
    }
    /// Returns the descendant with that class and accessible name.
    template <typename Widget> [[nodiscard]] static Widget &Named(const QWidget &parent, const QString &name)
    {
        for (QWidget *child : parent.findChildren<QWidget *>()) {
            if (auto *const found = dynamic_cast<Widget *>(child); found && child->accessibleName() == name)
                return *found;
        }
        throw std::runtime_error("there is no such widget");
    }

    /// Activates the window: without a screen no window manager activates a window below a box.
    virtual void WakeUp() const
    {
        QCoreApplication::processEvents();
        while (!QApplication::activeWindow()) {
            Frame().activateWindow();
            QCoreApplication::processEvents(); // may open a box
        }
    }
    /// Presses a key where the focus is.
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        WakeUp();
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void Type(const QString &text) const
    {
        WakeUp();
        QTest::keyClicks(QApplication::focusWidget(), text);
    }

    [[nodiscard]] CMainFrame &Frame() const { return app->Frame(); }
    [[nodiscard]] CChildFrame &Child() const { return *Frame().ActiveChild(); }
    [[nodiscard]] CProjView &Tree() const { return Child().Tree(); }
    [[nodiscard]] CResFolder *Selected() const { return Child().Selected().SelectedFolder(); }
    [[nodiscard]] CResDoc &Document() const { return Child().Document(); }
    /// Returns the row of the project tree with that label.
    [[nodiscard]] QTreeWidgetItem *Row(const QString &label) const
    {
        return Tree().findItems(label, Qt::MatchExactly | Qt::MatchRecursive).value(0);
    }
    [[nodiscard]] std::string OutputText() const
    {
        Settle();
        return Frame().Bars().Output().toPlainText().toStdString();
    }

    static inline const QByteArray WITH_LAYOUTS = "[Layout]\nfolders=1\n";
    /// An element of a resource list: the layouts for 240x320 are in res/l.xml.
    static inline const QByteArray LAYOUT_LIST = "<RESOLUTION width=\"240\" height=\"320\" class=\"layout\">"
                                                 "<LAYOUT>res\\l.xml</LAYOUT></RESOLUTION>";
    TempFolder folder;
    std::unique_ptr<CMorvaniteApp> app;
    QStringList boxes;
    QList<QMessageBox::StandardButton> answers;
    std::unique_ptr<QTimer> answering;
};

/// The program with the project demo open.
struct OpenWindow : TestWindow
{
    explicit OpenWindow(const QByteArray &settings = {}) : TestWindow(settings) { Start({Project()}); }
};

/// Shows a dialog that no action opens, and activates it.
inline void ShowActive(QDialog &dialog)
{
    dialog.show();
    QApplication::setActiveWindow(&dialog);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
}

/// Calls `what` once with the dialog or box that opens next, when it is active, and always closes it.
template <typename Dialog> void WhenOpen(const TestWindow &window, std::function<void(Dialog &)> what)
{
    auto *const timer = new QTimer(&window.Frame());
    QObject::connect(timer, &QTimer::timeout, timer, [timer, what = std::move(what)] {
        const QPointer<Dialog> dialog = dynamic_cast<Dialog *>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isActiveWindow())
            return;
        timer->stop();
        timer->deleteLater();
        what(*dialog);
        if (dialog && dialog->isVisible())
            dialog->reject();
    });
    timer->start(10);
}
