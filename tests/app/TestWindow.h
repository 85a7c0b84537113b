// SPDX-License-Identifier: MIT
#pragma once

#include "Actions.h"
#include "CInfoPane.h"
#include "CMorvaniteApp.h"
#include "CSizingControlBar.h"
#include "TempFolder.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDeadlineTimer>
#include <QDragEnterEvent>
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
    TestWindow()
    {
        qputenv("XDG_CONFIG_HOME", folder.Path("user").toUtf8());
        qputenv("XDG_STATE_HOME", folder.Path("state").toUtf8());
        qputenv("MORVANITE_PROGRAM_DIR", folder.Path("bin").toUtf8());
        qputenv("MORVANITE_RUNTIME_DIR", folder.Path("run").toUtf8());
        folder.Put("bin/Morvanite.ini", "[Path]\nreso_set=sizes.ini\n");
        folder.Put("bin/sizes.ini", "[Resolution]\n176x220\n240x320\n320x240\n");
        folder.Put("bin/tuvik.ini", "[Language]\nEnglish=0\n");
        MakeProject("demo", "<APP><IMAGE id=\"ID_IMAGE\" type=\"Normal\">a.png</IMAGE></APP>");
    }
    ~TestWindow()
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

    static void DoubleClick(QWidget &widget, const QPoint &place)
    {
        QTest::mouseClick(&widget, Qt::LeftButton, {}, place);
        QTest::mouseDClick(&widget, Qt::LeftButton, {}, place);
        QTest::mouseRelease(&widget, Qt::LeftButton, {}, place); // QTest doesn't send the second release
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

    TempFolder folder;
    std::unique_ptr<CMorvaniteApp> app;
    QStringList boxes;
    QList<QMessageBox::StandardButton> answers;
    std::unique_ptr<QTimer> answering;
};

/// Calls `what` once with the dialog or box that opens next, and always closes it.
template <typename Dialog> void WhenOpen(TestWindow &window, std::function<void(Dialog &)> what)
{
    auto *const timer = new QTimer(&window.Frame());
    QObject::connect(timer, &QTimer::timeout, timer, [timer, what = std::move(what)] {
        const QPointer<Dialog> dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        timer->stop();
        timer->deleteLater();
        what(*dialog);
        if (dialog && dialog->isVisible())
            dialog->reject();
    });
    timer->start(10);
}
