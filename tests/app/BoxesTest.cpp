// SPDX-License-Identifier: MIT
// Tests the boxes and dialogs of the program as a user operates them.
#include "CommandRecord.h"
#include "TestWindow.h"

#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>

namespace
{

QComboBox *TypesOf(const QFileDialog &dialog)
{
    return dialog.findChild<QComboBox *>(u"fileTypeCombo"_s);
}

QStringList FilesIn(const QFileDialog &dialog)
{
    auto *const list = dialog.findChild<QListView *>(u"listView"_s);
    QStringList files;
    for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row)
        files.append(list->model()->index(row, 0, list->rootIndex()).data().toString());
    return files;
}

} // namespace

TEST(UserBoxes, FileDialogShowsFilesWithoutADotAndSelectsTheGivenFile)
{
    OpenWindow window;
    window.folder.Put("demo/res/pics/README", "");
    window.folder.Put("demo/res/pics/Old.png", "");
    window.folder.Put("demo/res/pics/a.wav", "");
    WhenOpen<QFileDialog>(window, [&](QFileDialog &dialog) {
        QComboBox *const combo = TypesOf(dialog);
        EXPECT_EQ(combo->itemText(0), u"Image Files (*.bmp; *.png; *.gif; *.jpg)"_s);
        EXPECT_EQ(combo->currentText(), u"All Files (*.*)"_s);
        EXPECT_EQ(dialog.findChild<QLineEdit *>()->text(), u"Old.png"_s);
        EXPECT_TRUE(TestWindow::WaitFor([&] { return FilesIn(dialog).size() == 3; })) << FilesIn(dialog).size();
        EXPECT_TRUE(FilesIn(dialog).contains(u"README"_s));
        combo->setFocus();
        QTest::keyClick(combo, Qt::Key_Up);
        EXPECT_TRUE(TestWindow::WaitFor([&] { return FilesIn(dialog) == QStringList(u"Old.png"_s); }));
        QTest::keyClick(dialog.findChild<QLineEdit *>(), Qt::Key_Return);
    });
    QStringList chosen;
    window.Document().ChooseFiles(KIND_IMAGES | KIND_BINARY, false, u".\\res\\Pics\\old.png"_s, chosen);
    EXPECT_EQ(chosen, QStringList(window.folder.Path("demo/res/pics/Old.png"))) << "with any case of its name";
}

TEST(UserBoxes, FileDialogAddsTheOnlyExtensionOfItsTypeToATypedName)
{
    TestWindow window;
    window.Start();
    for (const char *file : {"logo.gif", "logo.png", "README"})
        window.folder.Put(QByteArray("pics/") + file, "");
    const QString filter = u"Gif files (*.gif)|*.gif|Pictures|*.gif; *.png|All Files (*.*)|*.*||"_s;
    const auto open = [&](int type, const QString &name) {
        WhenOpen<QFileDialog>(window, [&](QFileDialog &dialog) {
            dialog.setDirectory(window.folder.Path("pics"));
            for (int i = 0; i < type; ++i)
                QTest::keyClick(TypesOf(dialog), Qt::Key_Down);
            dialog.findChild<QLineEdit *>()->setText(name);
            WhenOpen<QMessageBox>(window, [&](QMessageBox &box) { box.reject(); }); // reports the missing file
            QTest::keyClick(dialog.findChild<QLineEdit *>(), Qt::Key_Return);
        });
        return window.Frame().Boxes().OpenFileDialog(filter, 1, true, QString()).join(u' ');
    };
    EXPECT_EQ(open(0, u"logo"_s), window.folder.Path("pics/logo.gif"));
    EXPECT_EQ(open(1, u"logo"_s), QString());
    EXPECT_EQ(open(2, u"README"_s), window.folder.Path("pics/README"));
}

TEST(UserBoxes, SaveDialogAddsTheExtensionOfItsTypeAndAsksBeforeItReplaces)
{
    OpenWindow window;
    window.folder.Put("demo/texts.csv", "");
    const QString filter = u"Excel files (*.xls)|*.xls|Text (*.csv; *.tsv)|*.csv; *.tsv||"_s;
    IViewBoxes &boxes = window.Frame().Boxes();
    const auto save = [&](int type, QMessageBox::StandardButton replace) {
        QString asked;
        WhenOpen<QFileDialog>(window, [&](QFileDialog &dialog) {
            EXPECT_EQ(TypesOf(dialog)->currentText(), u"Excel files (*.xls)"_s);
            for (int i = 0; i < type; ++i)
                QTest::keyClick(TypesOf(dialog), Qt::Key_Down);
            WhenOpen<QMessageBox>(window, [&](QMessageBox &box) {
                asked = box.text();
                box.button(replace)->click();
            });
            QTest::keyClick(dialog.findChild<QLineEdit *>(), Qt::Key_Return);
        });
        const QString path = boxes.SaveFileDialog(filter, window.folder.Path("demo\\texts"));
        EXPECT_EQ(asked.isEmpty(), type == 0) << qPrintable(asked);
        return path;
    };
    EXPECT_EQ(save(0, QMessageBox::Yes), window.folder.Path("demo/texts.xls"));
    EXPECT_EQ(save(1, QMessageBox::Yes), window.folder.Path("demo/texts.csv"));
    EXPECT_EQ(save(1, QMessageBox::No), QString());
}

TEST(UserBoxes, AsksQuestionsInsideADialogAndContinuesAfterAMessageIsClosed)
{
    TestWindow window;
    window.Start();
    IViewBoxes &boxes = window.Frame().Boxes();
    QDialog dialog(&window.Frame());
    const auto answer = [&](QMessageBox::StandardButton button) {
        WhenOpen<QMessageBox>(window, [button](QMessageBox &box) {
            EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::Ok));
            EXPECT_EQ(box.text(), u"2 will be added.\nGo on?"_s);
            EXPECT_TRUE(qobject_cast<QDialog *>(box.parentWidget())) << "it is in front of the dialog";
            box.button(button)->click();
        });
        return boxes.AskOkCancel(u"2 will be added.\r\nGo on?"_s);
    };
    WhenOpen<QDialog>(window, [&](QDialog &open) {
        EXPECT_FALSE(answer(QMessageBox::Cancel));
        EXPECT_TRUE(window.Frame().Boxes().IsAnyOpen()) << "commands of the channel still wait";
        EXPECT_TRUE(answer(QMessageBox::Ok));
        open.accept();
    });
    EXPECT_TRUE(boxes.RunDialog(dialog));
    WhenOpen<QDialog>(window, [](QDialog &open) { QTest::keyClick(&open, Qt::Key_Escape); });
    EXPECT_FALSE(boxes.RunDialog(dialog));

    QStringList told;
    window.Answer({QMessageBox::Ok, QMessageBox::Ok});
    for (const QString &text : {u"first"_s, u"second"_s}) {
        boxes.ShowMessage(text, [&, text] {
            EXPECT_FALSE(window.Frame().Boxes().IsAnyOpen());
            told.append(window.boxes.join(u' ') + u'/' + text);
        });
    }
    EXPECT_TRUE(TestWindow::WaitFor([&] { return told.size() == 2; }));
    EXPECT_EQ(told, QStringList({u"first/first"_s, u"first second/second"_s}));
}

TEST(UserBoxes, OpenNoBoxDuringACommandAndShowMessagesAfterIt)
{
    TestWindow window;
    window.Start();
    UserBoxes &boxes = window.Frame().Boxes();
    bool told = false;
    QDialog dialog;
    window.Answer({QMessageBox::Ok});
    {
        const CMainFrame::Busy busy(window.Frame(), IDE_COMMAND_PACK);
        EXPECT_FALSE(boxes.AskOkCancel(u"?"_s) || boxes.AskYesNo(u"?"_s) || boxes.RunDialog(dialog));
        EXPECT_EQ(boxes.SaveFileDialog(u"Text (*.txt)|*.txt||"_s, QString()), QString());
        EXPECT_EQ(boxes.OpenFileDialog(u"Text (*.txt)|*.txt||"_s, 1, true, QString()), QStringList());
        boxes.ShowMessage(u"after"_s, [&told] { told = true; });
        window.Settle();
        EXPECT_FALSE(told);
    }
    EXPECT_TRUE(TestWindow::WaitFor([&told] { return told; }));
    EXPECT_EQ(window.boxes, QStringList(u"after"_s));
}
