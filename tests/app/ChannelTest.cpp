// SPDX-License-Identifier: MIT
#include "IdeCommands.h"
#include "LocalSocket.h"
#include "RuntimeFolder.h"
#include "SingleInstance.h"

#include <QContextMenuEvent>
#include <QLineEdit>
#include <QStatusBar>
#include <QTest>

#include <thread>

TEST(Channel, RunsIdeCommandsInTheWindowWithoutBoxes)
{
    TestWindow window;
    window.MakeProject("bad", "<APP>");
    window.Start();
    EXPECT_THAT(Send(IDE_COMMAND_LOAD, RecordOf(window.Project())), testing::EndsWith("\r\n\r\nload done\r\n"));
    ASSERT_NE(window.Frame().ActiveChild(), nullptr);
    EXPECT_EQ(window.OutputText(), "");
    window.MakeProject("other", "<APP/>");
    Send(IDE_COMMAND_LOAD, RecordOf(window.Project("other")));
    Send(IDE_COMMAND_LOAD, RecordOf(window.Project()));
    EXPECT_EQ(window.Document().PathName(), window.Project()) << "the open one comes to the front";
    window.Document().SetModifiedFlag(true);
    EXPECT_THAT(Send(IDE_COMMAND_SAVE, RecordOf(window.Project())), testing::EndsWith("\r\n\r\nsave done\r\n"));
    EXPECT_FALSE(window.Document().IsModified());
    testing::internal::CaptureStderr();
    EXPECT_THAT(Send(IDE_COMMAND_LOAD, RecordOf(window.Project("bad"))),
                testing::EndsWith("\r\n### error 110 ###\r\n"));
    EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::ContainsRegex("morvanite: .*bad.res.xml"));
    EXPECT_TRUE(TestWindow::WaitFor([&] { return window.OutputText().find("bad.res.xml") != std::string::npos; }))
        << "the explanation is in the pane after the command";
    EXPECT_EQ(window.boxes, QStringList());
    EXPECT_EQ(window.Frame().statusBar()->currentMessage(), QString());

    {
        const CMainFrame::Busy busy(window.Frame(), IDE_COMMAND_PACK);
        EXPECT_TRUE(window.Frame().statusBar()->currentMessage().contains(u"packing"_s));
        EXPECT_FALSE(window.Frame().close()) << "not while a command runs";
        EXPECT_FALSE(window.Child().close());
        window.Document().SetModifiedFlag(true);
        QTest::keyClick(&window.Frame(), Qt::Key_S, Qt::ControlModifier);
        EXPECT_TRUE(window.Document().IsModified()) << "user input during a command is dropped";
        window.Document().SetModifiedFlag(false);
    }
    EXPECT_TRUE(window.Frame().close());
}

TEST(Channel, ACommandEndsAnUnfinishedUserAction)
{
    TestWindow window(TestWindow::WITH_LAYOUTS);
    window.MakeProject("other", "<APP/>");
    window.Start({window.Project()});
    QTimer::singleShot(0, [&] {
        ASSERT_NE(QApplication::activePopupWidget(), nullptr);
        Send(IDE_COMMAND_LOAD, RecordOf(window.Project("other")));
    });
    QContextMenuEvent click(QContextMenuEvent::Mouse, QPoint(9, 9),
                            window.Tree().viewport()->mapToGlobal(QPoint(9, 9)));
    QApplication::sendEvent(window.Tree().viewport(), &click); // a menu left open would act on the other project
    EXPECT_EQ(window.Document().PathName(), window.Project("other"));
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);

    Send(IDE_COMMAND_LOAD, RecordOf(window.Project()));
    window.Activate();
    window.Tree().setFocus();
    QTest::keyClick(&window.Frame(), Qt::Key_F, Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    TestWindow::Settle(); // the screen activates the menu later, and must not do so after the command has closed it
    Send(IDE_COMMAND_SAVE, RecordOf(window.Project()));
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(QApplication::focusWidget(), &window.Tree());
    window.Document().SetModifiedFlag(true);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(window.Document().IsModified()) << "the closed menu has released the keyboard";

    window.Tree().setCurrentItem(window.Row(u"Layouts"_s)->child(0));
    window.Frame().RunAction(ACTION_NEW_LAYOUT);
    window.Tree().findChild<QLineEdit *>()->setText(u"1 bad"_s);
    QTimer boxes;
    QObject::connect(&boxes, &QTimer::timeout,
                     [&] { EXPECT_TRUE(!QApplication::activeModalWidget() || !window.Frame().Turn().IsOn()); });
    boxes.start(1);
    window.Answer({QMessageBox::Ok});
    Send(IDE_COMMAND_LOAD, RecordOf(window.Project("other")));
    EXPECT_TRUE(TestWindow::WaitFor([&] { return !window.boxes.isEmpty(); }));
    EXPECT_EQ(window.boxes, QStringList(u"The ID is invalid."_s)) << "after the end of the command";
}

TEST(Channel, WaitsUntilNoCommandIsRunning)
{
    ChannelTurn turn;
    int done = 0;
    turn.Begin();
    turn.AfterCommand([&] { ++done; });
    turn.End();
    turn.Begin();
    TestWindow::Settle();
    EXPECT_EQ(done, 0);
    turn.End();
    EXPECT_EQ(done, 0) << "the sender of the command still waits for its answer";
    TestWindow::Settle();
    EXPECT_EQ(done, 1);
}

TEST(SingleInstance, ASecondStartRaisesTheFirstAndReportsOneThatHangs)
{
    TestWindow window;
    QString error;
    EXPECT_EQ(ShowFirstInstance(1000, error), FirstInstance::None);
    window.Start();
    window.Frame().showMinimized();
    std::thread second([&] { EXPECT_EQ(ShowFirstInstance(5000, error), FirstInstance::Shown); });
    QTimer::singleShot(0, [&] {
        EXPECT_TRUE(TestWindow::WaitFor([&] { return !window.Frame().isMinimized(); })) << "a box doesn't delay it";
        QApplication::activeModalWidget()->close();
    });
    window.Frame().Boxes().MessageBox(u"wait"_s);
    second.join();
    EXPECT_EQ(ShowFirstInstance(200, error), FirstInstance::NoAnswer) << "its events don't run here";
    EXPECT_TRUE(error.contains(u"doesn't answer"_s));

    window.folder.Put("in the way", "");
    qputenv("MORVANITE_RUNTIME_DIR", window.folder.Path("in the way").toUtf8());
    CMorvaniteApp other;
    window.Answer({QMessageBox::Ok});
    EXPECT_EQ(other.InitInstance({}), 1);
    EXPECT_EQ(window.boxes.size(), 1);
}
