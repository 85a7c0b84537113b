// SPDX-License-Identifier: MIT
#include "NoticeText.h"

#include "CommandRecord.h"
#include "TestWindow.h"

#include <QClipboard>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>

TEST(NoticeText, IsHighEnoughForAllItsLines)
{
    NoticeText text(nullptr, 22);
    text.setPlainText(u"The files are kept in /home/"_s + QString(200, u'x') + u"."_s);
    text.show();
    int before = 0;
    for (const int width : {2000, 600, 400, 300}) {
        const int height = text.heightForWidth(width);
        EXPECT_GE(height, before);
        before = height;
        text.resize(width, height);
        TestWindow::Settle();
        text.moveCursor(QTextCursor::End);
        EXPECT_EQ(text.verticalScrollBar()->maximum(), 0) << width;
        EXPECT_LE(text.cursorRect().bottom(), text.viewport()->height()) << width;
        EXPECT_GT(text.cursorRect().bottom() + text.fontMetrics().height(), text.viewport()->height()) << width;
    }
    EXPECT_EQ(text.heightForWidth(20), text.heightForWidth(40)) << "a narrow one scrolls";
}

TEST(NoticeBar, CanBeReadCopiedAndDismissedByTheKeyboard)
{
    OpenWindow window;
    window.Tree().setFocus();
    NoticeBar &bar = window.Child().Notice();
    EXPECT_FALSE(bar.isVisible());
    for (const QString &text : {u"Kept in <b>/home/x</b>."_s, u"second"_s, u"Kept in <b>/home/x</b>."_s, QString()})
        window.Frame().Notices().Add(window.Document(), text);
    window.Settle();
    EXPECT_TRUE(bar.isVisible());
    EXPECT_EQ(bar.geometry().top(), 0);
    EXPECT_GE(window.Tree().mapTo(bar.parentWidget(), QPoint()).y(), bar.geometry().bottom()) << "it covers nothing";
    EXPECT_EQ(QApplication::focusWidget(), &window.Tree()) << "it doesn't take the focus from the user";
    auto *const text = bar.findChild<QPlainTextEdit *>();
    auto *const close = bar.findChild<QToolButton *>();
    EXPECT_EQ(text->toPlainText(), u"Kept in <b>/home/x</b>."_s) << "plain text";
    EXPECT_EQ(bar.Texts().Place(), u"1 of 2"_s) << "each message is shown once";
    EXPECT_FALSE(close->toolTip().isEmpty() || close->accessibleName().isEmpty());

    QTest::keyClick(&window.Frame(), Qt::Key_F6);
    QTest::keyClick(&window.Frame(), Qt::Key_F6);
    EXPECT_EQ(QApplication::focusWidget(), text);
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_C}) {
        window.Settle();
        QTest::keyClick(&window.Frame(), key, Qt::ControlModifier);
    }
    EXPECT_EQ(QApplication::clipboard()->text(), u"Kept in <b>/home/x</b>."_s);
    QTest::keyClick(text, Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), close);
    QTest::keyClick(close, Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &window.Tree());
    QTest::keyClick(&window.Tree(), Qt::Key_Backtab);
    EXPECT_EQ(QApplication::focusWidget(), close);
    QTest::keyClick(close, Qt::Key_Space);
    EXPECT_EQ(text->toPlainText(), u"second"_s);
    QWidget *const contents = window.Child().Panes()[1];
    contents->setFocus();
    text->setFocus();
    QTest::keyClick(text, Qt::Key_Escape);
    EXPECT_FALSE(bar.isVisible());
    EXPECT_EQ(QApplication::focusWidget(), contents) << "the previous control has the focus again";
}

TEST(NoticeBar, AppearsOnlyInTheWindowOfAProjectThatIsBeingLoaded)
{
    TestWindow window;
    window.MakeProject("other", "<APP/>");
    window.Start({window.Project("other")});
    const auto opened = window.app->Documents().opened;
    window.app->Documents().opened = [&](CDocument &document) {
        window.Frame().Notices().Add(static_cast<CResDoc &>(document), u"while it loads"_s);
        opened(document);
    };
    ASSERT_TRUE(window.Frame().Projects().Open(window.Project()));
    EXPECT_EQ(window.Child().Notice().Texts().Unread(), QStringList(u"while it loads"_s));
    window.Frame().RunAction(ACTION_CLOSE);
    window.Settle();
    EXPECT_THAT(window.OutputText(), testing::HasSubstr("while it loads\n")) << "nobody has read it yet";
    EXPECT_FALSE(window.Child().Notice().isVisible()) << "it belongs to the first project";

    const CResDoc &other = window.Document();
    window.app->Documents().opened = opened;
    {
        const CMainFrame::Busy busy(window.Frame(), IDE_COMMAND_SAVE);
        window.Frame().Notices().Add(other, u"a command's"_s);
        EXPECT_TRUE(window.Child().Notice().isVisible()) << "it doesn't wait for an answer";
    }
}

TEST(NoticeBar, MessagesOfASaveOnClosingAppearInABoxAndOnStandardError)
{
    OpenWindow window;
    window.Frame().Notices().Add(window.Document(), u"seen before"_s);
    const auto changeOutside = [&window] {
        window.folder.Put("demo/res/demo.res.xml", "<APP><IMAGE id=\"ID_OTHER\" type=\"Normal\">b.png</IMAGE></APP>");
        window.Document().SetModifiedFlag(true);
    };
    changeOutside();
    window.Frame().Bars().OutputBar().hide(); // if it were visible, it would show the message
    window.Answer({QMessageBox::Yes, QMessageBox::Ok});
    window.Frame().RunAction(ACTION_CLOSE);
    EXPECT_TRUE(TestWindow::WaitFor([&window] { return window.boxes.size() == 2; }));
    EXPECT_TRUE(window.boxes.value(1).contains(u"/state/morvanite/kept/demo-"_s));

    ASSERT_TRUE(window.Frame().Projects().Open(window.Project()));
    window.Frame().Notices().Add(window.Document(), u"seen before"_s);
    changeOutside();
    window.Answer({QMessageBox::Yes, QMessageBox::Ok});
    testing::internal::CaptureStderr();
    EXPECT_TRUE(window.Frame().close());
    EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::HasSubstr("/state/morvanite/kept/demo-"));
    EXPECT_TRUE(window.boxes.value(3).contains(u"/state/morvanite/kept/demo-"_s));
    EXPECT_FALSE(window.boxes.value(3).contains(u"seen before"_s));
}
