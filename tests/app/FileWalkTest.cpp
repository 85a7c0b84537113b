// SPDX-License-Identifier: MIT
// Tests the pane of files and its list with random user actions, on a disk with files of any kind.
#include "CFileWatchDlg.h"
#include "CTreeFltrDlg.h"
#include "FileWindow.h"
#include "RandomUser.h"

#include <QAbstractItemModelTester>
#include <QTreeWidget>

#include <set>

#include <sys/stat.h>

namespace
{

const ActionId PLAIN[] = {ACTION_NEW,        ACTION_RENAME,  ACTION_BROWSE,     ACTION_IMPORT,     ACTION_DELETE,
                          ACTION_PUSH_FILE,  ACTION_DETAILS, ACTION_THUMBNAILS, ACTION_SELECT_ALL, ACTION_DELETE_ALL,
                          ACTION_RESOLUTION, ACTION_COPY,    ACTION_PASTE,      ACTION_PUSH_FILE};
const Qt::Key ENDS[] = {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Escape, Qt::Key_Up, Qt::Key_Down, Qt::Key_F2};

const QByteArray IMAGES = "<RESOLUTION width=\"240\" height=\"320\" class=\"image\">"
                          "<IMAGE id=\"ID_P\" type=\"Push\">..\\in\\p.png</IMAGE></RESOLUTION>"
                          "<RESOLUTION width=\"320\" height=\"240\" class=\"image\">"
                          "<IMAGE id=\"ID_P\" type=\"Push\">..\\in\\cut.png</IMAGE></RESOLUTION></APP>";

struct FileWalk : FileWindow, RandomUser
{
    explicit FileWalk(unsigned seed) : FileWindow(RESOURCES.chopped(6) + IMAGES), RandomUser(seed) { FillDisk(); }

private:
    void FillDisk() const;
    void Step() override;
    void Check() const override;
    void Fill(QDialog &dialog) override;
    void Rename();
    void ChooseType();
    void ClickAnywhere();
    void DropSome();
    void OtherFolder();
    void ClearAFolder();
    void ChangeTheDisk();
    void SaveAndReload() const;
    void WriteFromOutside();
    [[nodiscard]] std::vector<CResFolder *> Folders() const;
    [[nodiscard]] std::string TreeRows() const;
    [[nodiscard]] QString Row(const CFileRes &res) const
    {
        const Environment &env = Document().env;
        return env.NarrowToWide(res.Id()->name) + (res.Id()->push ? u"|Push|"_s : u"|Normal|"_s) +
               env.NarrowToWide(res.path);
    }

    std::set<const CBaseRes *> withTypeBox; // whose cell may show the type that the box was closed with
};

void FileWalk::FillDisk() const
{
    QImage picture(20, 10, QImage::Format_ARGB32);
    picture.fill(Qt::red);
    folder.MakeFolder("in/folder");
    ASSERT_TRUE(picture.save(folder.Path("in/p.png")));
    folder.Put("in/cut.png", folder.Get("in/p.png").first(60));
    for (const char *name : {"in/1.wav", "in/2.mp3", "in/3.avi", "in/4.txt", "demo/5.wav", "in/secret.wav"})
        folder.Put(name, "x");
    ASSERT_EQ(chmod(folder.Path("in/secret.wav").toUtf8().constData(), 0), 0);
    ASSERT_EQ(mkfifo(folder.Path("in/pipe.wav").toUtf8().constData(), S_IRUSR), 0);
}

/// Returns all folders that the pane can show.
std::vector<CResFolder *> FileWalk::Folders() const
{
    std::vector<CResFolder *> folders{Document().root.FindFolder(KIND_FILES, 2)};
    for (CResFolder *above : {folders.front(), Document().root.FindFolder(KIND_IMAGES, 2)}) {
        for (const auto &below : above->subfolders) {
            if ((below->kind & KIND_FLAG_OFF) == 0)
                folders.push_back(below.get());
        }
    }
    return folders;
}

std::string FileWalk::TreeRows() const
{
    QStringList rows; // a reload sorts files by kind
    for (const CResFolder *each : Folders()) {
        for (CBaseRes *res : each->resources)
            rows << (each->kind & KIND_IMAGES ? each->title : u"Files"_s) + u'/' +
                        Row(static_cast<const CFileRes &>(*res));
    }
    rows.sort();
    return rows.join(u'\n').toStdString();
}

void FileWalk::Fill(QDialog &dialog)
{
    if (auto *const files = qobject_cast<QFileDialog *>(&dialog))
        files->selectFile(folder.Path(OneOf({"in/1.wav", "in/p.png", "in/3.avi", "in/4.txt", "in/pipe.wav"})));
    if (dynamic_cast<CTreeFltrDlg *>(&dialog)) {
        auto &tree = Find<QTreeWidget>(dialog);
        tree.setCurrentItem(tree.topLevelItem(0)->child(Below(3)));
        QTest::keyClick(&tree, Qt::Key_Space);
    }
}

void FileWalk::Rename()
{
    if (!Editor().IsOpen())
        Frame().RunAction(Below(2) ? ACTION_NEW : ACTION_RENAME);
    if (!Editor().IsOpen())
        return;
    Editor().setText(Below(4) ? u"id_%1"_s.arg(Below(60))
                              : OneOf({u"1 bad"_s, u""_s, u"<New>"_s, u"Push"_s, u"\u0416"_s}));
    if (Below(4))
        Key(OneOf(ENDS));
}

void FileWalk::ChooseType()
{
    Click(Below(Grid().model()->rowCount() + 1), FileList::TYPE_COLUMN);
    if (!TypeBox().IsOpen())
        return;
    withTypeBox.insert(List().At(Grid().Selected().first));
    TypeBox().setCurrentIndex(Below(4) - 1);
    if (Below(2))
        Q_EMIT TypeBox().activated(TypeBox().currentIndex());
    else if (Below(4))
        Key(OneOf(ENDS));
}

void FileWalk::ClickAnywhere()
{
    QWidget &sheet = *Grid().viewport();
    const QPoint place = PointIn(sheet);
    if (Below(4) == 0) {
        QContextMenuEvent menu(QContextMenuEvent::Mouse, place, sheet.mapToGlobal(place));
        QApplication::sendEvent(&sheet, &menu);
    } else if (Below(4) == 0) {
        ClickHeader(Grid(), Below(3));
    } else if (Below(4) == 0) {
        TestWindow::DoubleClick(sheet, place);
    } else {
        TestWindow::Click(sheet, place);
    }
}

void FileWalk::DropSome()
{
    QList<QUrl> urls;
    for (int count = Below(20) ? Below(4) : 150; count > 0; --count)
        urls << QUrl::fromLocalFile(
            folder.Path(OneOf({"in/1.wav", "in/2.mp3", "in/3.avi", "in/4.txt", "in/p.png", "in/cut.png", "demo/5.wav",
                               "in/folder", "in/pipe.wav", "in/secret.wav", "in/none.wav"})));
    if (Below(4) == 0)
        urls << QUrl::fromEncoded("file:///%FF.wav") << QUrl(u"https://example.org/a.wav"_s);
    if (!urls.isEmpty() && View().isVisible())
        Drop(urls);
}

void FileWalk::OtherFolder()
{
    const std::vector<CResFolder *> folders = Folders();
    Child().Selected().SelectFolder(Below(8) ? folders[size_t(Below(int(folders.size())))] : &Document().root);
    if (Below(3) == 0)
        Document().UpdateAllViews(nullptr);
}

/// Clears the tree or the folder that is shown, or takes a resolution out of use or back into use.
void FileWalk::ClearAFolder()
{
    CResFolder *const images = Document().root.FindFolder(KIND_IMAGES, 2);
    CResFolder &one = *images->subfolders[size_t(Below(int(images->subfolders.size())))];
    const std::vector<CResFolder *> folders = Folders();
    if (Below(2))
        Document().ClearByKind(*folders[size_t(Below(int(folders.size())))]);
    else if (one.kind & KIND_FLAG_OFF)
        CResModel::PutIntoUse(one);
    else if (one.index >= 0)
        Document().TakeOutOfUse(one);
    Document().UpdateAllViews(nullptr);
}

/// Changes the kinds of the files on the disk, and changes them back.
void FileWalk::ChangeTheDisk()
{
    const QString picture = folder.Path("in/p.png");
    const QString away = folder.Path("in/p.away");
    if (!QFile::rename(picture, away) && !QFile::rename(away, picture))
        ADD_FAILURE();
    QEvent active(QEvent::WindowActivate);
    QApplication::sendEvent(&View(), &active);
}

void FileWalk::SaveAndReload() const
{
    Frame().RunAction(ACTION_SAVE);
    if (Document().IsModified())
        return; // a typed text was refused
    const std::string saved = TreeRows();
    folder.Put("demo/res/demo.res.xml", folder.Get("demo/res/demo.res.xml") + "\n"); // gives it a new time stamp
    EXPECT_EQ(Document().TakeInChanges(), CResDoc::Outside::TakenIn);
    EXPECT_EQ(TreeRows(), saved);
}

/// Has another program replace the list of resources.
void FileWalk::WriteFromOutside()
{
    QByteArray rows = "<APP>";
    for (int row = Below(30); row > 0; --row)
        rows += "<FILE id=\"ID_" + QByteArray::number(row * 3) +
                (Below(2) ? "\" type=\"Push\">" : "\" type=\"Normal\">") + "..\\in\\" +
                OneOf({"1.wav", "3.avi", "4.txt", "gone.wav"}) + "</FILE>";
    folder.Put("demo/res/demo.res.xml", rows + IMAGES);
    if (Below(3) == 0)
        return; // leaves the change to the window, which asks
    const bool isModified = Document().IsModified();
    EXPECT_EQ(Document().TakeInChanges(), isModified ? CResDoc::Outside::LeftOut : CResDoc::Outside::TakenIn);
}

void FileWalk::Step()
{
    WakeUp();
    if (!QApplication::focusWidget())
        Grid().setFocus();
    ActOneOf({{1, [&] { Below(2) ? SaveAndReload() : WriteFromOutside(); }},
              {1, [&] { Below(3) ? ChangeTheDisk() : ClearAFolder(); }},
              {1,
               [&] { // an IDE's command begins during any user action
                   const CMainFrame::Busy busy(Frame(), 0xAFBDDBFC);
                   QCoreApplication::processEvents();
               }},
              {3, [&] { OtherFolder(); }},
              {2, [&] { ResizeOrScroll(Grid(), Frame()); }},
              {3, [&] { DropSome(); }},
              {3, [&] { SelectSome(Grid(), 4); }},
              {4, [&] { ClickAnywhere(); }},
              {4, [&] { ChooseType(); }},
              {3, [&] { Frame().RunAction(OneOf(PLAIN)); }},
              {15, [&] { Rename(); }}});
}

void FileWalk::Check() const
{
    const QAbstractItemModel &model = *Grid().model();
    if (!View().isVisible())
        return;
    const CResFolder *const shown = Selected();
    ASSERT_EQ(List().Folder(), shown);
    std::set<const CBaseRes *> tree;
    const auto take = [&](const CResFolder &each) {
        for (const CBaseRes *res : each.resources)
            tree.insert(res);
    };
    take(*shown);
    if (shown->kind == KIND_FILES) {
        for (const auto &below : shown->subfolders)
            take(*below);
    }
    const int rows = model.rowCount() - 1;
    for (int row = 0; row < rows; ++row) {
        const CFileRes *const res = List().At(row);
        ASSERT_EQ(tree.erase(res), 1U) << row;
        const QStringList cells = Row(*res).split(u'|');
        for (int col = 0; col < 3; ++col) {
            const QString text = model.index(row, col).data(Qt::EditRole).toString();
            const bool mayDiffer = col == FileList::TYPE_COLUMN && withTypeBox.contains(res);
            ASSERT_TRUE(text == cells[col] || mayDiffer) << row << qPrintable(text) << qPrintable(cells[col]);
        }
    }
    ASSERT_TRUE(tree.empty());
    ASSERT_EQ(model.index(rows, 0).data().toString(), u"<New>"_s);
    const std::vector<int> selected = Grid().SelectedRows();
    ASSERT_TRUE(selected.empty() || (selected.front() >= 0 && selected.back() <= rows));
    ASSERT_EQ(Grid().Selected().count, int(selected.size()));
    ASSERT_TRUE(!Editor().IsOpen() || (Editor().Cell().isValid() && !Editor().isHidden()));
    ASSERT_LE(Editor().IsOpen() + TypeBox().IsOpen() + Button().isVisible(), 1)
        << Editor().IsOpen() << TypeBox().IsOpen() << Button().isVisible();
}

class FileWalkFrom : public testing::TestWithParam<unsigned>
{
};

} // namespace

TEST_P(FileWalkFrom, ListShowsEveryFileOfTheFolder)
{
    const FailOnWarnings guard;
    FileWalk walk(GetParam());
    const QAbstractItemModelTester tester(walk.Grid().model(), QAbstractItemModelTester::FailureReportingMode::Warning);
    walk.Run(1'000);
}

INSTANTIATE_TEST_SUITE_P(Seeds, FileWalkFrom, testing::Range(1U, 5U));
