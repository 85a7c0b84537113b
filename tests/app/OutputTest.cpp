#include "TestWindow.h"

#include <QClipboard>
#include <QTextBlock>

TEST(InfoPane, FollowsTheEndUnlessTheUserIsElsewhere)
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
    pane.Run(CMD_SELECT_ALL); // the selection ends where the text does, and stays what it is
    const qsizetype selected = pane.textCursor().selectedText().size();
    append(u"x"_s);
    EXPECT_EQ(pane.textCursor().selectedText().size(), selected);
    pane.Run(CMD_COPY);
    EXPECT_TRUE(QApplication::clipboard()->text().startsWith(u"line 0\nline 1\n"_s));
    pane.Run(CMD_CLEAR_OUTPUT);
    EXPECT_TRUE(pane.toPlainText().isEmpty() && !pane.StateOf(CMD_SELECT_ALL)->enabled &&
                !pane.StateOf(CMD_COPY)->enabled && !pane.StateOf(CMD_SAVE));
    append(u"new"_s);
    EXPECT_TRUE(pane.textCursor().atEnd()) << "an empty pane is followed again";
}

TEST(MainFrame, WhatIsWrittenWhileTheOutputIsHiddenIsDropped)
{
    TestWindow window;
    window.Start();
    window.Frame().WriteOutput(u"seen\r\n");
    window.Frame().RunCommand(CMD_OUTPUT);
    window.Frame().WriteOutput(u"not seen\r\n");
    window.Frame().RunCommand(CMD_OUTPUT);
    EXPECT_EQ(window.OutputText(), "seen\n");
    EXPECT_TRUE(window.Frame().Output().textCursor().atEnd());
}
