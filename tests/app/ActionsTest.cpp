// SPDX-License-Identifier: MIT
#include "TestWindow.h"

#include <QClipboard>
#include <QLineEdit>
#include <QMimeData>

TEST(EditActions, PasteIsEnabledByTheClipboardInTextControls)
{
    TestWindow window;
    window.Start();
    QLineEdit line(&window.Frame());
    line.show();
    auto *const picture = new QMimeData;
    picture->setData(u"image/png"_s, "x");
    for (const bool isText : {true, false, true}) {
        isText ? QApplication::clipboard()->setText(u"text"_s) : QApplication::clipboard()->setMimeData(picture);
        window.Frame().Bars().Output().setFocus();
        window.Settle();
        EXPECT_FALSE(window.Frame().IsEnabled(ACTION_PASTE));
        line.setFocus();
        window.Settle();
        EXPECT_EQ(window.Frame().IsEnabled(ACTION_PASTE), isText);
    }
}

namespace
{

/// Returns the menu bar as a user reads it: titles, entries, keys. Disabled entries are in parentheses.
std::string Shown(const QMenuBar &bar)
{
    QString all;
    for (const QAction *title : bar.actions()) {
        all += title->text().remove(u'&') + u": "_s;
        for (const QAction *entry : title->menu()->actions()) {
            if (!entry->isVisible())
                continue;
            QString text = entry->text().remove(u'&');
            for (const QKeySequence &key : entry->shortcuts())
                text += u' ' + key.toString(QKeySequence::PortableText);
            all += entry->isSeparator() ? u"| "_s : entry->isEnabled() ? text + u", "_s : u'(' + text + u"), "_s;
        }
        all += u'\n';
    }
    return all.toStdString();
}

} // namespace

TEST(MainFrame, HasMenusWithAndWithoutADocument)
{
    TestWindow window;
    window.Start();
    const std::string help = "Help: About Morvanite..., \n";
    const std::string view = "View: Toolbar, Status Bar, Output, Findings, | ";
    EXPECT_EQ(Shown(*window.Frame().menuBar()),
              "File: Open... Ctrl+O, New Project..., | (Recent File), | (Close Ctrl+F4), Exit, \n" + view +
                  "(Split), \n" + help);
    ASSERT_TRUE(window.Frame().Projects().Open(window.Project()));
    window.Settle();
    const std::string recent = "1 " + window.Project().toStdString();
    EXPECT_EQ(
        Shown(*window.Frame().menuBar()),
        "File: Open... Ctrl+O, New Project..., Close Ctrl+F4, Save Ctrl+S, | (Import...), (Export...), | " + recent +
            ", | Exit, \n"
            "Edit: (Undo Ctrl+Z Alt+Backspace), (Redo Ctrl+Y), | (Rename F2), (Copy Ctrl+C Ctrl+Ins), "
            "(Paste Ctrl+V Shift+Ins), (Delete All), | (Select All Ctrl+A), \n" +
            view +
            "Split, | (Find Bar Ctrl+F), (Details F4), \nWindow: Cascade, Tile, Arrange Icons, \nOther: 1.0 Res, \n" +
            help);
    window.Frame().RunAction(ACTION_CLOSE);
    window.Settle();
    EXPECT_EQ(window.Frame().ActiveChild(), nullptr);
    EXPECT_TRUE(window.app->Documents().Documents().empty());
    EXPECT_EQ(window.Frame().menuBar()->actions().size(), 3);
}

TEST(MainFrame, ShowsAndHidesToolBarStatusBarAndOutput)
{
    TestWindow window;
    window.Start();
    const auto marks = [&window] {
        const QList<QAction *> view = window.Frame().menuBar()->actions()[1]->menu()->actions();
        return std::count_if(view.begin(), view.end(), [](const QAction *entry) { return entry->isChecked(); });
    };
    EXPECT_EQ(marks(), 3);
    for (const ActionId id : {ACTION_TOOLBAR, ACTION_STATUS_BAR, ACTION_OUTPUT}) {
        const bool before = window.Frame().StateOf(id)->checked;
        EXPECT_TRUE(before);
        window.Frame().RunAction(id);
        EXPECT_FALSE(window.Frame().StateOf(id)->checked);
        window.Settle();
        EXPECT_EQ(marks(), 2) << "the View menu shows what is visible";
        window.Frame().RunAction(id);
        EXPECT_TRUE(window.Frame().StateOf(id)->checked);
    }
}
