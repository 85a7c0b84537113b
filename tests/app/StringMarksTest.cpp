// SPDX-License-Identifier: MIT
// Tests the marks of cells with findings in the window.
#include "DetailsStrip.h"
#include "ElidedLabel.h"
#include "ListCellDelegate.h"
#include "ProjectCheck.h"
#include "StringCommands.h"
#include "StringWindow.h"
#include "UiIcon.h"

#include <QClipboard>
#include <QHelpEvent>
#include <QToolTip>

// Columns: 0 ID, 1 kind, 2 description, 3 English, 4 French. Rows by ID: ID_A, ID_B, ID_C, the new-row line.

namespace
{

const QByteArray MARKED = "Number of Language|2\nString ID|Resource Type|Description|English(9)|French(12)\n"
                          "ID_A|Normal||Take %d|Prenez %s\nID_B|Normal||Two|\nID_C|Normal||Sea|Mer\n##number|3\n";

struct MarkedWindow : StringWindow
{
    explicit MarkedWindow(const QByteArray &settings = "[Check]\n") : StringWindow(MARKED)
    {
        folder.Put("demo/morvanite-check.ini", settings);
        Child().Check().FollowSettings(); // as when the user comes back from an editor
        Wait();
    }
    void Wait() const
    {
        EXPECT_TRUE(WaitFor([this] { return !Child().Check().IsRunning(); }));
    }
    [[nodiscard]] UiIcon Mark(int row, int col) const
    {
        return UiIcon(Grid().model()->index(row, col).data(ROLE_MARK).toInt());
    }
    [[nodiscard]] std::string Findings(int row, int col) const
    {
        return Grid().model()->index(row, col).data(ROLE_FINDINGS).toString().toStdString();
    }
    [[nodiscard]] QString Tip(int row, int col) const
    {
        const QPoint place = PlaceOf(Grid(), row, col);
        QHelpEvent help(QEvent::ToolTip, place, Grid().viewport()->mapToGlobal(place));
        QApplication::sendEvent(Grid().viewport(), &help);
        return QToolTip::text();
    }
};

constexpr char MISSING[] = "warning: the translation is missing [translation-missing]";

} // namespace

TEST(StringMarks, FollowEveryEdit)
{
    MarkedWindow window;
    EXPECT_EQ(window.Mark(0, 4), UiIcon::Error);
    EXPECT_EQ(window.Mark(1, 4), UiIcon::Warning);
    EXPECT_EQ(window.Findings(1, 4), MISSING);
    EXPECT_EQ(window.Mark(2, 4), UiIcon::None);

    window.Put(0, 4, u"Prenez %d"_s);
    EXPECT_EQ(window.Mark(0, 4), UiIcon::None);
    window.Frame().RunAction(ACTION_UNDO);
    EXPECT_EQ(window.Mark(0, 4), UiIcon::Error);
    window.Frame().RunAction(ACTION_REDO);
    EXPECT_EQ(window.Mark(0, 4), UiIcon::None);

    window.Put(2, 2, u"[same, sam]"_s); // about the row, not a language
    EXPECT_EQ(window.Mark(2, 0), UiIcon::Error);
    EXPECT_EQ(window.Mark(2, 2), UiIcon::None);

    window.Put(3, 3, u"new"_s);
    EXPECT_EQ(window.Mark(3, 4), UiIcon::Warning) << "a new row";
    EXPECT_EQ(window.Mark(4, 4), UiIcon::None) << "the new-row line";
    window.Grid().SelectAlone(2, 4);
    QGuiApplication::clipboard()->setText(u"Mer  morte\t\nNouveau"_s);
    window.Answer({QMessageBox::Ok});
    window.Frame().RunAction(ACTION_PASTE_CELLS);
    EXPECT_EQ(window.Mark(2, 4), UiIcon::Note);
    window.Grid().SortBy(3);
    EXPECT_EQ(window.Mark(window.Table().RowOf("ID_B", 0), 4), UiIcon::Warning);
    window.Table().history.Run(std::make_unique<STR_DEL_CMD>(window.Table(), std::vector<int>{0, 1, 2, 3}));
    EXPECT_EQ(window.Child().Check().Counts().errors + window.Child().Check().Counts().warnings, 0);
    window.Frame().RunAction(ACTION_UNDO);
    EXPECT_EQ(window.Mark(window.Table().RowOf("ID_B", 0), 4), UiIcon::Warning);
}

TEST(StringMarks, SayWhatIsWrongWhereverTheUserLooks)
{
    const MarkedWindow window;
    EXPECT_TRUE(window.Tip(1, 4).contains(u"the translation is missing [translation-missing]"_s));
    window.Put(0, 4, QString(400, u'x') + u" %s"_s);
    const QString tip = window.Tip(0, 4);
    EXPECT_LT(tip.indexOf(u"xxx"_s), tip.indexOf(u"[placeholder-mismatch]"_s)) << "below the text";
    EXPECT_GT(tip.indexOf(u"xxx"_s), -1);
    EXPECT_TRUE(window.Grid()
                    .model()
                    ->index(1, 4)
                    .data(Qt::AccessibleTextRole)
                    .toString()
                    .endsWith(QLatin1StringView(MISSING)));

    window.Frame().RunAction(ACTION_DETAILS);
    const auto shown = [&] {
        QStringList texts;
        for (const QLabel *label : TestWindow::Find<DetailsStrip>(window.View()).findChildren<QLabel *>()) {
            if (label->isVisible() && label->text().contains(u'['))
                texts << label->text();
        }
        return texts.join(u'/').toStdString();
    };
    window.Grid().SelectAlone(1, 4);
    EXPECT_EQ(shown(), MISSING);
    const int height = TestWindow::Find<DetailsStrip>(window.View()).height();
    window.Grid().SelectAlone(2, 4);
    window.Settle();
    EXPECT_EQ(shown(), "");
    EXPECT_EQ(TestWindow::Find<DetailsStrip>(window.View()).height(), height) << "the grid must not jump";
    window.Child().Check().Stop();
    EXPECT_EQ(window.Mark(1, 4), UiIcon::None);
}

TEST(StringMarks, FollowSavesLanguagesAndSettings)
{
    const MarkedWindow window;
    window.folder.Put("demo/morvanite-check.ini", "[Severity]\ntranslation-missing=note\n");
    EXPECT_TRUE(window.Save() || !window.Document().IsModified());
    window.Put(2, 4, u"Mer."_s);
    EXPECT_TRUE(window.Save());
    window.Wait();
    EXPECT_EQ(window.Mark(1, 4), UiIcon::Note) << "the settings are read again after a save";
    window.Document().DeleteFolder(*window.Strings()->FindFolder(KIND_LANGUAGE, 12, 1));
    window.Wait();
    EXPECT_EQ(window.Child().Check().Counts().errors, 0);
    EXPECT_EQ(window.Mark(0, 3), UiIcon::None);
}
