// SPDX-License-Identifier: MIT
#include "TestWindow.h"

#include <QClipboard>
#include <QTextBlock>

TEST(InfoPane, ScrollsToTheEndUnlessTheUserScrolledAway)
{
    CInfoPane pane;
    pane.resize(300, 100);
    pane.show();
    const auto append = [&pane](const QString &text) {
        pane.Append(text);
        pane.Flush();
    };
    for (int i = 0; i < 50; ++i)
        append(u"line %1\r\n"_s.arg(i));
    EXPECT_TRUE(pane.textCursor().atEnd());
    append(u"cut\r"_s);
    append(u"\nhere"_s);
    EXPECT_TRUE(pane.toPlainText().endsWith(u"line 49\ncut\nhere"_s));

    QTextCursor selection = pane.textCursor();
    selection.setPosition(3);
    selection.setPosition(9, QTextCursor::KeepAnchor);
    pane.setTextCursor(selection);
    append(u" more\r\n"_s);
    EXPECT_EQ(pane.textCursor().selectedText(), selection.selectedText());
    pane.Run(ACTION_SELECT_ALL); // the selection ends at the end of the text, and new text doesn't extend it
    const qsizetype selected = pane.textCursor().selectedText().size();
    append(u"x"_s);
    EXPECT_EQ(pane.textCursor().selectedText().size(), selected);
    pane.Run(ACTION_COPY);
    EXPECT_TRUE(QApplication::clipboard()->text().startsWith(u"line 0\nline 1\n"_s));
    pane.Run(ACTION_CLEAR_OUTPUT);
    EXPECT_TRUE(pane.toPlainText().isEmpty() && !pane.StateOf(ACTION_SELECT_ALL)->enabled &&
                !pane.StateOf(ACTION_COPY)->enabled && !pane.StateOf(ACTION_SAVE));
    append(u"new"_s);
    EXPECT_TRUE(pane.textCursor().atEnd()) << "an empty pane scrolls to the end again";
}

TEST(InfoPane, ShowsMuchOutputInOrderPieceByPiece)
{
    CInfoPane pane;
    QString all;
    for (int i = 0; i < 5000; ++i) {
        const QString line = u"line %1 of many\r\n"_s.arg(i);
        pane.Append(line.first(7));
        pane.Append(line.mid(7));
        all += line;
    }
    QCoreApplication::processEvents();
    EXPECT_LT(pane.toPlainText().size(), all.size() / 2) << "the rest waits, and nothing else waits for it";
    all.remove(u'\r');
    EXPECT_TRUE(TestWindow::WaitFor([&] { return pane.toPlainText().size() >= all.size(); }));
    EXPECT_EQ(pane.toPlainText(), all);
    pane.Append(u"late\r\n");
    pane.Run(ACTION_CLEAR_OUTPUT); // drops the text that isn't shown yet
    TestWindow::Settle();
    EXPECT_TRUE(pane.toPlainText().isEmpty());
}

TEST(OutputTail, IsTheLastThousandCharacters)
{
    OutputTail tail;
    QString all;
    for (int i = 0; i < 5000; ++i) {
        const QString line = u"line %1\r\n"_s.arg(i);
        tail.Append(line);
        all += u"line %1\n"_s.arg(i);
        ASSERT_EQ(tail.Text(), all.right(1000)) << i;
    }
}

TEST(InfoPane, TheMenuKeyOpensTheMenuInsideThePane)
{
    CInfoPane pane;
    pane.resize(300, 100);
    pane.show();
    pane.Append(QString(u"a long line that goes on and on, far beyond the right edge of the pane\r\n"_s).repeated(50));
    for (const bool isAllSelected : {true, false}) { // the selection begins above the visible part
        pane.GoToEnd();
        if (isAllSelected)
            pane.Run(ACTION_SELECT_ALL);
        TestWindow::OpenMenu(*pane.viewport(), [&pane](const QWidget &menu) {
            EXPECT_TRUE(pane.viewport()->rect().contains(pane.viewport()->mapFromGlobal(menu.pos())));
        });
    }
}

TEST(MainFrame, DropsTextWrittenWhileTheOutputIsHidden)
{
    TestWindow window;
    window.Start();
    window.Frame().Bars().WriteOutput(u"seen\r\n");
    window.Frame().RunAction(ACTION_OUTPUT);
    window.Frame().Bars().WriteOutput(u"not seen\r\n");
    window.Frame().RunAction(ACTION_OUTPUT);
    EXPECT_EQ(window.OutputText(), "seen\n");
    EXPECT_TRUE(window.Frame().Bars().Output().textCursor().atEnd());
}
