// SPDX-License-Identifier: MIT
// Tests when and in which order the user is asked about files that other programs have changed, without a window, and
// the dialog that asks.
#include "ReloadQueue.h"
#include "CFileWatchDlg.h"
#include "Document.h"
#include "TestWindow.h"

#include <QLabel>

#include <map>

namespace
{

struct FakeDocument : CDocument
{
    void Serialize(bool) override {}
    bool OnSaveDocument(const QString &) override { return true; }
    void ReportSaveLoadException(const QString &, const ArchiveException &, bool) override {}
};

/// Files of two projects, each with the class of its handle: 1 and 11 are resources, 2 and 12 strings, 3, 13 and above
/// layouts, 9 the configuration. Records questions ("?") and reloads ("!").
struct FakeHost : IReloadHost
{
    FakeHost()
    {
        for (const quint32 handle : {1U, 2U, 3U, 4U, 9U, 11U, 12U, 13U})
            files[handle] = {QString::number(handle), 1, handle < 10 ? &first : &second, nullptr, nullptr};
    }

    std::optional<FILEWATCHITEM> ItemOf(quint32 handle) const override
    {
        const auto found = files.find(handle);
        return found == files.end() ? std::nullopt : std::optional(found->second);
    }
    std::optional<WatchClass> ClassOf(const CDocument &, quint32 handle) const override
    {
        constexpr WatchClass CLASSES[] = {WATCH_RESOURCES, WATCH_RESOURCES, WATCH_STRINGS};
        return handle == 9 ? WATCH_CONFIGURATION : handle % 10 < 3 ? CLASSES[handle % 10] : WATCH_LAYOUT;
    }
    bool MayAsk() override { return mayAsk; }
    bool Ask(const FILEWATCHITEM &item) override
    {
        log += item.path + u'?';
        if (whileAsked)
            std::exchange(whileAsked, nullptr)();
        return answer;
    }
    void Reload(CDocument &, quint32 handle) override
    {
        log += QString::number(handle) + u'!';
        if (handle == 1) // its reload watches all files of the project again
            std::erase_if(files, [&](const auto &file) { return file.second.doc == &first; });
    }

    /// Returns the questions and reloads after these files have changed together.
    std::string Change(const std::vector<quint32> &handles)
    {
        queue.Add(handles);
        queue.Run();
        return std::exchange(log, {}).toStdString();
    }

    FakeDocument first, second;
    std::map<quint32, FILEWATCHITEM> files;
    bool mayAsk = true, answer = false;
    std::function<void()> whileAsked;
    QString log;
    ReloadQueue queue{*this};
};

} // namespace

TEST(ReloadQueue, AsksOnceForACheckoutInTheOrderOfClasses)
{
    FakeHost host;
    EXPECT_EQ(host.Change({4, 3, 2, 12, 2, 77}), "2?12?4?3?") << "the strings first, each once, none for a dead handle";
    EXPECT_EQ(host.Change({13, 12, 3, 2, 9, 1}), "1?12?13?") << "No to the list applies to all files of its project";
    EXPECT_EQ(host.Change({3, 9}), "9?");
    host.answer = true;
    EXPECT_EQ(host.Change({3, 2}), "2?2!3?3!");
    EXPECT_EQ(host.Change({12, 3, 2, 9, 1}), "1?1!12?12!");
    EXPECT_EQ(host.Change({1, 2, 3}), "") << "a file that is no longer watched";

    qint32 always = 1;
    host.files[12].autoReloadType = host.files[13].autoReloadFile = &always;
    host.answer = false;
    EXPECT_EQ(host.Change({13, 12, 11}), "11?");
    EXPECT_EQ(host.Change({13, 12}), "12!13!") << "without a question";
}

TEST(ReloadQueue, WaitsUntilTheUserCanBeAskedAndForgetsRemovedFiles)
{
    FakeHost host;
    host.mayAsk = false;
    EXPECT_EQ(host.Change({3, 2}), "");
    EXPECT_EQ(host.Change({11}), "");
    host.mayAsk = true;
    host.answer = true;
    host.whileAsked = [&] {
        EXPECT_EQ(host.Change({11, 12, 4}), "11?") << "one question at a time";
        host.log = u"11?"_s;
    };
    EXPECT_EQ(host.Change({}), "11?11!2?2!3?3!4?4!") << "the reload has also read changes made during the question";
    EXPECT_TRUE(host.queue.IsEmpty());
    host.answer = false;
    host.whileAsked = [&] { host.queue.Add({2, 11}); };
    EXPECT_EQ(host.Change({2}), "2?11?2?") << "No applies to changes before the question";

    host.whileAsked = [&] { host.files.clear(); }; // as if all projects were closed
    EXPECT_EQ(host.Change({2, 12, 13}), "2?");
    EXPECT_TRUE(host.queue.IsEmpty());
}

TEST(FileWatchDialog, StoresItsFlagsOnlyOnYesAndFitsTheScreen)
{
    qint32 file = 0, type = 1;
    const auto show = [&](bool hasChanges, const QString &path, qint32 *typeFlag, bool isYes) {
        CFileWatchDlg dialog(path, &file, typeFlag, hasChanges);
        ShowActive(dialog);
        EXPECT_LT(dialog.width(), dialog.screen()->availableSize().width());
        QStringList texts{dialog.windowTitle()};
        for (const QLabel *label : dialog.findChildren<QLabel *>())
            texts += label->text();
        for (QAbstractButton *button : dialog.findChildren<QAbstractButton *>()) {
            texts += button->text() + (button->isChecked() ? u"*"_s : QString());
            if (button->isCheckable())
                QTest::keyClick(button, Qt::Key_Space);
        }
        QTest::keyClick(&dialog, isYes ? Qt::Key_Y : Qt::Key_Escape, isYes ? Qt::AltModifier : Qt::NoModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog.isVisible(); }));
        EXPECT_EQ(dialog.result(), isYes ? QDialog::Accepted : QDialog::Rejected);
        return texts.join(u'|').toStdString();
    };
    const std::string question = "This file has been changed by another application, do you want to reload it?|";
    EXPECT_EQ(show(false, u"/a/<b>.xml"_s, nullptr, true),
              "Morvanite||/a/<b>.xml\n\n" + question + "&Automatically reload this file|&Yes|&No");
    EXPECT_EQ(file, 1);
    EXPECT_EQ(show(true, u"/a/b"_s, &type, false),
              "Morvanite||/a/b\n\n" + question +
                  "This project has unsaved changes. Reloading discards them.|"
                  "&Automatically reload this file*|&Automatically reload this type of file*|&Yes|&No");
    EXPECT_EQ(file, 1) << "No leaves them";
    EXPECT_EQ(type, 1);
    EXPECT_NE(show(false, u'/' + QString(4000, u'x') + u"/end"_s, nullptr, false).find("x/end\n"), std::string::npos);

    for (const bool hasChanges : {false, true}) {
        CFileWatchDlg dialog(u"/a"_s, &file, nullptr, hasChanges);
        dialog.show();
        QTest::keyClick(&dialog, Qt::Key_Return);
        EXPECT_EQ(dialog.result(), hasChanges ? QDialog::Rejected : QDialog::Accepted) << "by default";
    }
}
