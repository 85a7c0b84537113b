#include "CommandRoute.h"
#include "MenuTable.h"
#include "TestWindow.h"

#include <QClipboard>
#include <QLineEdit>
#include <QMimeData>

TEST(EditCommands, BelongToTheControlThatHasTheFocus)
{
    const auto enabled = [](int command, EditControlState state) { return EditCommandState(command, state)->enabled; };
    EXPECT_TRUE(enabled(CMD_UNDO, {false, true, false, false}) && !enabled(CMD_UNDO, {true, true, false, false}) &&
                !enabled(CMD_UNDO, {false, false, false, false}));
    EXPECT_TRUE(enabled(CMD_PASTE, {false, false, false, true}) && !enabled(CMD_PASTE, {true, false, false, true}) &&
                !enabled(CMD_PASTE, {false, false, false, false}));
    for (const int command : {CMD_COPY, CMD_CUT})
        EXPECT_TRUE(enabled(command, {false, false, true, false}) && !enabled(command, {}));
    EXPECT_FALSE(EditCommandState(CMD_SAVE, {}));
}

TEST(EditCommands, PasteFollowsTheClipboardWhereAControlTakesText)
{
    TestWindow window;
    window.Start();
    QLineEdit line(&window.Frame());
    line.show();
    auto *const picture = new QMimeData;
    picture->setData(u"image/png"_s, "x");
    for (const bool isText : {true, false, true}) {
        isText ? QApplication::clipboard()->setText(u"text"_s) : QApplication::clipboard()->setMimeData(picture);
        window.Frame().Output().setFocus();
        window.Settle();
        EXPECT_FALSE(window.Frame().IsEnabled(CMD_PASTE));
        line.setFocus();
        window.Settle();
        EXPECT_EQ(window.Frame().IsEnabled(CMD_PASTE), isText);
    }
}

TEST(CommandRoute, TheFirstThatClaimsACommandHasItAndADisabledOneDoesNotRun)
{
    struct Target : ICommandTarget
    {
        Target(int claimed, bool isEnabled) : command(claimed), enabled(isEnabled) {}
        [[nodiscard]] std::optional<CommandState> StateOf(int asked) const override
        {
            return asked == command ? std::optional(CommandState{enabled}) : std::nullopt;
        }
        void Run(int) override { ++runs; }
        int command;
        bool enabled;
        int runs = 0;
    } first(CMD_COPY, false), second(CMD_COPY, true), third(CMD_SAVE, true);
    CommandRoute route;
    route.targets = [&] { return std::vector<ICommandTarget *>{nullptr, &first, &second, &third}; };
    for (const int command : {CMD_COPY, CMD_SAVE, CMD_OPEN})
        route.Run(command);
    EXPECT_TRUE(first.runs == 0 && second.runs == 0 && third.runs == 1);
    EXPECT_TRUE(!route.StateOf(CMD_COPY).enabled && !route.StateOf(CMD_OPEN).enabled &&
                route.StateOf(CMD_SAVE).enabled);
}

namespace
{

/// The menu bar as a user reads it: titles, entries, keys; a disabled entry stands in parentheses.
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

TEST(MainFrame, HasTheMenusOfNoDocumentAndThoseOfOne)
{
    TestWindow window;
    window.Start();
    const std::string help = "Help: About Morvanite..., \n";
    const std::string view = "View: Toolbar, Status Bar, Output, | ";
    EXPECT_EQ(Shown(*window.Frame().menuBar()),
              "File: Open... Ctrl+O, | (Recent File), | (Close Ctrl+F4), Exit, \n" + view + "(Split), \n" + help);
    ASSERT_TRUE(window.Frame().OpenProject(window.Project()));
    window.Settle();
    const std::string recent = "1 " + window.Project().toStdString();
    EXPECT_EQ(Shown(*window.Frame().menuBar()),
              "File: Open... Ctrl+O, Close Ctrl+F4, Save Ctrl+S, | (Import...), (Export...), | " + recent +
                  ", | Exit, \n"
                  "Edit: (Undo Ctrl+Z Alt+Backspace), (Redo Ctrl+Y), | (Rename F2), (Copy Ctrl+C Ctrl+Ins), "
                  "(Paste Ctrl+V Shift+Ins), (Delete All), | (Select All Ctrl+A), \n" +
                  view + "Split, \nWindow: Cascade, Tile, Arrange Icons, \nOther: (1.0 Res), \n" + help);
    window.Frame().RunCommand(CMD_CLOSE);
    window.Settle();
    EXPECT_EQ(window.Frame().ActiveChild(), nullptr);
    EXPECT_TRUE(window.app->Documents().Documents().empty());
    EXPECT_EQ(window.Frame().menuBar()->actions().size(), 3);
}

TEST(MainFrame, ToolBarStatusBarAndOutputAreShownAndHidden)
{
    TestWindow window;
    window.Start();
    const auto marks = [&window] {
        const QList<QAction *> view = window.Frame().menuBar()->actions()[1]->menu()->actions();
        return std::count_if(view.begin(), view.end(), [](const QAction *entry) { return entry->isChecked(); });
    };
    EXPECT_EQ(marks(), 3);
    for (const int command : {CMD_TOOLBAR, CMD_STATUS_BAR, CMD_OUTPUT}) {
        const bool before = window.Frame().StateOf(command)->checked;
        EXPECT_TRUE(before);
        window.Frame().RunCommand(command);
        EXPECT_FALSE(window.Frame().StateOf(command)->checked);
        window.Settle();
        EXPECT_EQ(marks(), 2) << "the View menu shows what is in sight";
        window.Frame().RunCommand(command);
        EXPECT_TRUE(window.Frame().StateOf(command)->checked);
    }
}
