// SPDX-License-Identifier: MIT
// Tests the dialog of the resources of version 1.0 as a user operates it.
#include "CListGrid.h"
#include "CZEP10ResDlg.h"
#include "FakeBoxes.h"
#include "TestModel.h"
#include "TestWindow.h"

#include <QPushButton>
#include <QTest>

namespace
{

void Press(const QDialog &dialog, const QString &text)
{
    for (QPushButton *button : dialog.findChildren<QPushButton *>()) {
        if (button->text() == text)
            return button->click();
    }
    ADD_FAILURE() << qPrintable(text);
}

std::string Shown(const QDialog &dialog)
{
    const QAbstractItemModel &model = *dialog.findChild<QTableView *>()->model();
    QStringList rows;
    for (int row = 0; row < model.rowCount(); ++row)
        rows.append(model.index(row, 0).data().toString() + u'=' + model.index(row, 1).data().toString());
    return rows.join(u' ').toStdString();
}

} // namespace

TEST(V1ListDialog, AddsAndRemovesFilesAndWritesThemOnlyOnOk)
{
    TestProgram program;
    FakeBoxes boxes;
    const QString project = program.folder.Path("demo.vcproj");
    const QString inside = program.folder.Path("sub/b.gif");
    program.folder.Put("demo_res.lst", ".\\a.gif\r\n/x/c.png");
    CZEP10ResDlg dialog(*program.env, project, boxes);
    auto &grid = *dynamic_cast<CListGrid *>(dialog.findChild<QTableView *>());
    ShowActive(dialog);
    EXPECT_EQ(grid.Widths(), (std::vector<int>{100, 270}));
    const std::string before = Shown(dialog);
    EXPECT_EQ(before, "a.gif=" + program.folder.Path("a.gif").toStdString() + " c.png=/x/c.png");
    Press(dialog, u"+"_s);
    EXPECT_EQ(Shown(dialog), before) << "nothing was chosen";
    EXPECT_TRUE(boxes.asked.first().startsWith(u"Open 1 1: Gif files (*.gif)|*.gif|Jpg"_s));
    boxes.files = {inside, u"/x/c.png"_s};
    Press(dialog, u"+"_s);
    EXPECT_EQ(Shown(dialog), before + " b.gif=" + inside.toStdString() + " c.png=/x/c.png");
    grid.Select({0, 1});
    QTest::keyClick(&grid, Qt::Key_Delete);
    EXPECT_EQ(grid.model()->rowCount(), 4) << "no key removes files";
    Press(dialog, u"-"_s);
    Press(dialog, u"-"_s);
    EXPECT_EQ(Shown(dialog), "b.gif=" + inside.toStdString() + " c.png=/x/c.png")
        << "none was selected the second time";
    EXPECT_EQ(program.folder.Get("demo_res.lst"), ".\\a.gif\r\n/x/c.png");
    QTest::keyClick(&grid, Qt::Key_Return);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(program.folder.Get("demo_res.lst"), ".\\sub\\b.gif\r\n/x/c.png");

    CZEP10ResDlg cancelled(*program.env, project, boxes);
    cancelled.findChild<QTableView *>()->selectAll();
    Press(cancelled, u"-"_s);
    EXPECT_EQ(Shown(cancelled), "");
    Press(cancelled, u"Cancel"_s);
    EXPECT_EQ(program.folder.Get("demo_res.lst"), ".\\sub\\b.gif\r\n/x/c.png");
}

TEST(V1ListDialog, OpensForTheLastOpenedProjectAndIgnoresOkWithoutOne)
{
    TestWindow window;
    window.folder.Put("demo/demo_res.lst", ".\\a.gif");
    window.Start();
    const auto run = [&] { // presses OK, and cancels the dialog if it stays open
        std::string shown;
        WhenOpen<CZEP10ResDlg>(window, [&shown](CZEP10ResDlg &dialog) {
            shown = Shown(dialog);
            Press(dialog, u"OK"_s);
            if (dialog.isVisible())
                shown += "open";
        });
        window.Frame().RunAction(ACTION_V1_LIST);
        return shown;
    };
    EXPECT_EQ(run(), "open");
    (void)window.Frame().Projects().Open(window.Project());
    EXPECT_EQ(run(), "a.gif=" + window.folder.Path("demo/a.gif").toStdString());
    EXPECT_FALSE(window.Document().IsModified());

    window.MakeProject("other", "<APP/>");
    window.folder.Put("other/morvanite.ini", "[Text]\ncode_page=936\n");
    window.folder.Put("other/other_res.lst", ".\\\xD6\xD0.gif");
    (void)window.Frame().Projects().Open(window.Project("other"));
    EXPECT_EQ(run(), "中.gif=" + window.folder.Path("other/中.gif").toStdString()) << "in the project's code page";
    EXPECT_EQ(window.folder.Get("other/other_res.lst"), ".\\\xD6\xD0.gif");
}
