// SPDX-License-Identifier: MIT
// Tests the window while another program changes the files of its projects.
#include "CFileWatchDlg.h"
#include "CommandRecord.h"
#include "StringWindow.h"

#include <QFileInfo>
#include <QLabel>
#include <QPushButton>

#include <filesystem>

namespace
{

/// A window with strings. A simulated user answers its questions about reloads, and another program changes files.
struct WatchedWindow : StringWindow
{
    WatchedWindow()
    {
        QObject::connect(&user, &QTimer::timeout, [this] {
            auto *const dialog = dynamic_cast<CFileWatchDlg *>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            for (const QLabel *label : dialog->findChildren<QLabel *>()) {
                if (!label->text().isEmpty())
                    asked += QFileInfo(label->text().section(u'\n', 0, 0)).fileName();
            }
            if (meanwhile)
                std::exchange(meanwhile, nullptr)();
            EXPECT_FALSE(Frame().Turn().IsOn());
            EXPECT_FALSE(Frame().IsEditing());
            answer ? dialog->accept() : dialog->reject();
        });
        user.start(10);
    }
    /// Has another program replace the string file by a rename: the English text of ID_C becomes `text`.
    void Translate(const QByteArray &text) const
    {
        folder.Put("demo/res/new", StringFileBytes(QByteArray(THREE_ROWS).replace("See", text)));
        std::filesystem::rename(folder.Path("demo/res/new").toStdString(),
                                folder.Path("demo/res/ref_list_demo.txt").toStdString());
    }
    /// Returns the questions asked until the condition is true, and for a while longer.
    template <typename Condition> std::string AskedUntil(Condition condition)
    {
        EXPECT_TRUE(WaitFor(condition));
        QTest::qWait(SETTLED_MS);
        return std::exchange(asked, {}).join(u' ').toStdString();
    }
    /// Returns the questions asked within the time in which a change leads to a question.
    std::string Asked()
    {
        QTest::qWait(SETTLED_MS);
        return AskedUntil([] { return true; });
    }
    [[nodiscard]] bool Shows(const char *text) const
    {
        for (int row = 0; row < Grid().model()->rowCount(); ++row) {
            if (Shown(row, 3) == text)
                return true;
        }
        return false;
    }

    static constexpr int SETTLED_MS = 400; // longer than the watcher and the window wait
    QStringList asked;
    bool answer = true;
    std::function<void()> meanwhile; // is called before the next answer
    QTimer user;
};

} // namespace

TEST(WatchedFiles, AskOnceAboutAChangeAndNeverAboutTheProgramsOwnSave)
{
    WatchedWindow window;
    window.Translate("One");
    EXPECT_EQ(window.AskedUntil([&] { return window.Shows("One"); }), "ref_list_demo.txt");
    window.answer = false;
    window.Translate("Two");
    EXPECT_EQ(window.AskedUntil([&] { return !window.asked.isEmpty(); }), "ref_list_demo.txt");
    EXPECT_TRUE(window.Shows("One"));
    window.answer = true;
    window.Translate("Three"); // other files follow, as in a checkout
    window.folder.Put("demo/config.xml", window.folder.Get("demo/config.xml"));
    window.folder.Put("demo/res/demo.res.xml", window.folder.Get("demo/res/demo.res.xml"));
    EXPECT_EQ(window.AskedUntil([&] { return window.Shows("Three"); }), "demo.res.xml");

    window.Activate();
    window.Put(0, 3, u"Here"_s);
    window.Frame().RunAction(ACTION_SAVE);
    EXPECT_EQ(window.Asked(), "");
    EXPECT_FALSE(window.Document().IsModified());
    EXPECT_TRUE(window.Shows("Here"));
    window.Translate("Four");
    EXPECT_EQ(window.AskedUntil([&] { return window.Shows("Four"); }), "ref_list_demo.txt") << "still watched";
}

TEST(WatchedFiles, AskAfterACommandABoxAMenuOrARefusedEdit)
{
    WatchedWindow window;
    {
        const CMainFrame::Busy busy(window.Frame(), IDE_COMMAND_PACK);
        window.Translate("Packed");
        EXPECT_EQ(window.Asked(), "");
    }
    EXPECT_EQ(window.AskedUntil([&] { return window.Shows("Packed"); }), "ref_list_demo.txt");

    QTimer::singleShot(0, &window.user, [&] {
        window.Translate("Boxed");
        EXPECT_EQ(window.Asked(), "");
        window.Answer({QMessageBox::Ok});
    });
    window.Frame().Boxes().MessageBox(u"read this"_s);
    EXPECT_EQ(window.AskedUntil([&] { return window.Shows("Boxed"); }), "ref_list_demo.txt");

    window.Activate();
    window.Edit(0, 0);
    window.Type(u"NO ID"_s);
    window.Translate("Refused");
    EXPECT_TRUE(window.WaitFor([&] { return window.boxes.size() == 1 || QApplication::activeModalWidget(); }));
    window.Answer({QMessageBox::Ok});
    EXPECT_TRUE(window.WaitFor([&] { return !window.boxes.isEmpty(); }));
    window.Activate();
    EXPECT_EQ(window.Asked(), "") << window.boxes.join(u'|').toStdString();
    EXPECT_EQ(window.Edited(), "0,0") << "no question interrupts the correction";
    window.Key(Qt::Key_Escape);
    EXPECT_EQ(window.AskedUntil([&] { return window.Shows("Refused"); }), "ref_list_demo.txt");
}

TEST(WatchedFiles, KeepTheProjectOnAHalfWrittenListAndLoadTheNextVersion)
{
    WatchedWindow window;
    const QByteArray list = window.folder.Get("demo/res/demo.res.xml");
    window.Put(0, 3, u"Unsaved"_s);
    window.Answer({QMessageBox::Ok});
    window.folder.Put("demo/res/demo.res.xml", "<APP><STR");
    EXPECT_EQ(window.AskedUntil([&] { return !window.boxes.isEmpty(); }),
              "demo.res.xml This project has unsaved changes. Reloading discards them.");
    EXPECT_TRUE(window.boxes.first().contains(u"demo.vcproj could not be read again"_s));
    EXPECT_TRUE(window.Shows("Unsaved"));
    window.folder.Put("demo/res/demo.res.xml", list);
    (void)window.AskedUntil([&] { return !window.Shows("Unsaved"); });
    EXPECT_TRUE(window.Shows("See"));

    window.MakeProject("other", "<APP/>");
    (void)window.Frame().Projects().Open(window.Project("other"));
    window.folder.Put("demo/res/demo.res.xml", list);
    window.meanwhile = [&] { window.folder.Put("other/res/other.res.xml", "<APP/>"); };
    EXPECT_EQ(window.AskedUntil([&] { return window.asked.size() == 2; }), "demo.res.xml other.res.xml");
    window.Frame().RunAction(ACTION_CLOSE);
    window.folder.Put("demo/res/demo.res.xml", list);
    EXPECT_EQ(window.Asked(), "") << "closing a project ends all watching";
}
