// SPDX-License-Identifier: MIT
// Tests File, New Project... as a user operates it, and its choices without a window.
#include "TestWindow.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace
{

/// The dialog's widgets.
struct Parts
{
    explicit Parts(QDialog &dialog)
        : lines(dialog.findChildren<QLineEdit *>()), lists(dialog.findChildren<QListWidget *>()),
          build(*dialog.findChild<QCheckBox *>()),
          ok(*dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)),
          state(*dialog.findChildren<QLabel *>().front())
    {
    }
    QLineEdit &Name() const { return *lines[0]; }
    QLineEdit &Folder() const { return *lines[1]; }
    /// Checks or unchecks a row by a key, as a user does.
    static void Toggle(QListWidget &list, const QString &text)
    {
        list.setFocus();
        list.setCurrentItem(list.findItems(text, Qt::MatchExactly).front());
        QTest::keyClick(&list, Qt::Key_Space);
    }

    QList<QLineEdit *> lines;
    QList<QListWidget *> lists; // screens, languages
    QCheckBox &build;
    QPushButton &ok;
    QLabel &state;
};

} // namespace

TEST(NewProject, IsMadeAndOpenedFromTheMenu)
{
    TestWindow window;
    window.folder.Put("bin/tuvik.ini", "[Language]\nEnglish=0\nGerman=8\nDescription=-1\n");
    window.folder.Put("clock/config.xml", window.folder.Get("demo/config.xml"));
    window.Start({window.Project()});
    WhenOpen<QDialog>(window, [&](QDialog &dialog) {
        const Parts parts(dialog);
        EXPECT_TRUE(parts.Name().hasFocus());
        EXPECT_FALSE(parts.ok.isEnabled());
        QTest::keyClicks(&parts.Name(), u"clo ck"_s);
        EXPECT_TRUE(parts.state.text().startsWith(u"A project can't have the name \"clo ck\""_s));
        parts.Name().selectAll();
        QTest::keyClicks(&parts.Name(), u"clock"_s);
        EXPECT_EQ(parts.Folder().text(), window.folder.Path("clock")) << "beside the open project";
        EXPECT_EQ(parts.lists[1]->count(), 2) << "descriptions are no language";
        Parts::Toggle(*parts.lists[0], u"320x240"_s);
        Parts::Toggle(*parts.lists[0], u"240x320"_s);
        EXPECT_FALSE(parts.ok.isEnabled());
        for (const QString &language : {u"English"_s, u"German"_s, u"English"_s, u"English"_s})
            Parts::Toggle(*parts.lists[1], language);
        EXPECT_EQ(parts.state.text(), u"Screen of the configuration: 320x240. Language to translate from: German."_s);
        QTest::mouseClick(&parts.build, Qt::LeftButton, {}, {8, parts.build.height() / 2});
        EXPECT_TRUE(parts.build.isChecked());
        QTest::mouseClick(&parts.ok, Qt::LeftButton);
    });
    window.Answer({QMessageBox::Ok});
    window.Frame().RunAction(ACTION_NEW_PROJECT);
    ASSERT_TRUE(TestWindow::WaitFor([&] { return !window.boxes.isEmpty(); }));
    EXPECT_EQ(window.boxes.front(),
              u"These files existed already and were not changed:\n\n"_s + window.folder.Path("clock/config.xml"));
    EXPECT_EQ(window.Document().PathName(), window.folder.Path("clock/clock.vcproj"));
    EXPECT_NE(window.Document().root.FindFolder(KIND_LANGUAGE, 8, 3), nullptr);
    EXPECT_TRUE(window.folder.Has("clock/main.c"));
    EXPECT_EQ(window.Document().findings.All().size(), 0U);
}

TEST(NewProject, TheDialogStaysOpenIfTheProjectCannotBeMade)
{
    TestWindow window;
    window.folder.Put("file", "no folder");
    window.Start();
    WhenOpen<QDialog>(window, [&](QDialog &dialog) {
        const Parts parts(dialog);
        QTest::keyClicks(&parts.Name(), u"clock"_s);
        parts.Folder().selectAll();
        QTest::keyClicks(&parts.Folder(), u"clock"_s);
        Parts::Toggle(*parts.lists[0], u"240x320"_s);
        Parts::Toggle(*parts.lists[1], u"English"_s);
        EXPECT_EQ(parts.state.text(), u"The folder needs its whole path, such as /home/me/clock."_s);
        parts.Folder().selectAll();
        QTest::keyClicks(&parts.Folder(), window.folder.Path("file/clock"));
        parts.Name().setFocus();
        QTest::keyClicks(&parts.Name(), u"2"_s);
        EXPECT_EQ(parts.Folder().text(), window.folder.Path("file/clock")) << "the user's own folder stays";
        window.Answer({QMessageBox::Ok});
        QTest::keyClick(&parts.Name(), Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());
    });
    window.Frame().RunAction(ACTION_NEW_PROJECT);
    ASSERT_EQ(window.boxes.size(), 1);
    EXPECT_TRUE(window.boxes.front().contains(u"file\" isn't a folder"_s)) << qPrintable(window.boxes.front());
    EXPECT_EQ(window.Frame().ActiveChild(), nullptr);
}

TEST(NewProject, CtrlNHasNoEffect)
{
    TestWindow window;
    window.Start();
    bool isOpen = false;
    WhenOpen<QDialog>(window, [&isOpen](QDialog &) { isOpen = true; });
    QTest::keyClick(&window.Frame(), Qt::Key_N, Qt::ControlModifier);
    TestWindow::Settle();
    EXPECT_FALSE(isOpen);
}
