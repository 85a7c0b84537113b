// SPDX-License-Identifier: MIT
#include "CellPlace.h"
#include "FileActions.h"
#include "FileListModel.h"
#include "ListSettings.h"
#include "TestModel.h"

#include <QAbstractItemModelTester>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace
{

/// The folders of a project, and a list of them in an item model that QAbstractItemModelTester checks.
struct ListWorld : TestModel
{
    explicit ListWorld(const QByteArray &settings = {}) : TestModel(settings) { shown.SetList(&list); }

    /// Returns the rows: the ID, "*" for a Push one, and the path after "=".
    [[nodiscard]] std::string Rows() const
    {
        std::string text;
        for (int row = 0; row < shown.rowCount(); ++row) {
            const auto cell = [&](int col) { return shown.index(row, col).data().toString().toStdString(); };
            text += cell(0) + (cell(1) == "Push" ? "*" : "") + (cell(2).empty() ? "" : "=" + cell(2)) + ' ';
        }
        return text;
    }
    QString Put(const char *file) const
    {
        folder.Put(file, "x");
        return folder.Path(file);
    }

    CResFolder &files = AddFolder(root, KIND_FILES);
    CResFolder &audio = AddFolder(files, KIND_AUDIO);
    CResFolder &video = AddFolder(files, KIND_VIDEO);
    CResFolder &binary = AddFolder(files, KIND_BINARY);
    CResFolder &images = AddFolder(AddFolder(root, KIND_IMAGES), KIND_RESO_IMAGES, 1);
    FileListModel shown;
    FileList list{*this, shown};
    QAbstractItemModelTester tester{&shown, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

} // namespace

TEST(FileList, AddsFilesByClassWithUniqueIds)
{
    ListWorld world;
    world.list.Fill(&world.files, 1);
    const FileList::Additions added =
        world.list.AddFiles({world.Put("song.wav"), world.Put("a.bmp"), world.Put("x/song.MP3"), world.folder.Path("x"),
                             world.Put("+.txt")});
    EXPECT_EQ(added.added, 4);
    EXPECT_TRUE(added.refusals.isEmpty()) << "a folder is skipped silently";
    EXPECT_EQ(world.Rows(), "ID_AUDIO_SONG=.\\song.wav ID_FILE_A=.\\a.bmp ID_AUDIO_SONG1=.\\x\\song.MP3 "
                            "ID_FILE_TXT=.\\+.txt <New> ");
    EXPECT_EQ(NamesIn(world.audio) + "|" + NamesIn(world.binary), "ID_AUDIO_SONG ID_AUDIO_SONG1|ID_FILE_A ID_FILE_TXT");
    const QString project = QFileInfo(world.PathName()).path();
    const QString other = QFileInfo(project).path() + u'/' + QFileInfo(project).fileName().toUpper();
    ASSERT_TRUE(QDir().mkpath(other)); // differs in case only, so it is another folder here
    QFile::copy(world.folder.Path("song.wav"), other + u"/song.wav"_s);
    EXPECT_EQ(world.list.AddFileRow(0, other + u"/song.wav"_s), FILE_EDIT_DONE);
    EXPECT_EQ(world.list.CellText(0, 2), other + u"/song.wav"_s);
    world.list.Remove({0});
    QDir(other).removeRecursively();
    EXPECT_EQ(world.list.AddFileRow(1, world.Put("clip.avi")), FILE_EDIT_DONE);
    EXPECT_EQ(world.list.CellText(1, 0), u"ID_VIDEO_CLIP"_s);

    world.list.Fill(&world.audio, 1);
    EXPECT_EQ(world.list.AddFiles({world.folder.Path("a.bmp")}).refusals,
              QStringList{u"\"a.bmp\": Inappropriate file type."_s});
    world.list.Fill(&world.images, 1);
    EXPECT_EQ(world.list.AddFileRow(0, world.folder.Path("a.bmp")), FILE_EDIT_DONE);
    EXPECT_EQ(world.list.AddFileRow(0, world.folder.Path("song.wav")), FILE_WRONG_TYPE);
    EXPECT_EQ(world.list.At(0)->Id()->scope, 1);
}

TEST(FileList, RefusesFilesThatNoProjectCanHave)
{
    ListWorld world("[Text]\ncode_page=1252\n");
    const QString pipe = world.folder.Path("pipe.wav");
    ASSERT_EQ(mkfifo(qPrintable(pipe), 0600), 0);
    ASSERT_EQ(symlink("nowhere", qPrintable(world.folder.Path("broken.wav"))), 0);
    ASSERT_EQ(symlink(qPrintable(world.Put("real.wav")), qPrintable(world.folder.Path("link.wav"))), 0);
    world.Put("locked.wav");
    ASSERT_EQ(chmod(qPrintable(world.folder.Path("locked.wav")), 0), 0);
    QString deep; // a path of more than 3,000 characters
    for (int i = 0; i < 15; ++i) {
        deep += QString(200, u'd') + u'/';
        world.folder.MakeFolder(qPrintable(deep));
    }
    world.list.Fill(&world.audio, 1);
    const FileList::Additions added = world.list.AddFiles(
        {pipe, u"/dev/null"_s, world.folder.Path("broken.wav"), world.folder.Path("none.wav"), world.Put("\u4e00.wav"),
         world.Put("back\\slash.wav"), world.Put("two  blanks.wav"), world.folder.Path("no\uFFFDname.wav"),
         u"/"_s + QString(5000, u'x') + u".wav"_s, world.Put(qPrintable(deep + u"deep.wav"_s)),
         world.folder.Path("link.wav"), world.folder.Path("locked.wav")});
    EXPECT_EQ(added.added, 3) << "the deep one, the link and the one that can't be read";
    QStringList why;
    for (const QString &line : added.refusals)
        why << line.section(u": "_s, 1);
    QStringList expected;
    for (const int code :
         {FILE_NOT_REGULAR, FILE_WRONG_TYPE, FILE_NOT_FOUND, FILE_NOT_FOUND, FILE_NAME_NOT_IN_CODE_PAGE,
          FILE_NAME_HAS_BACKSLASH, FILE_NAME_NOT_KEPT_BY_LIST, FILE_NAME_NOT_UTF8, FILE_PATH_TOO_LONG})
        expected << FileEditMessage(code);
    EXPECT_EQ(why.join(u'\n').toStdString(), expected.join(u'\n').toStdString());
    EXPECT_EQ(world.list.Files(), 3);
}

TEST(FileList, EditsIdsFilesAndTypes)
{
    CountingObserver observer;
    ListWorld world;
    world.ids.observer = &observer;
    world.list.Fill(&world.files, 1);
    (void)world.list.AddFiles({world.Put("a.wav"), world.Put("b.txt")});
    EXPECT_EQ(world.list.ApplyIdEdit(2, u"<NEW>"_s), FILE_EDIT_DONE);
    EXPECT_EQ(world.list.ApplyIdEdit(2, u"1A"_s), FILE_ID_INVALID);
    EXPECT_EQ(world.list.ApplyIdEdit(2, u"ID_FILE_B"_s), FILE_ID_TAKEN);
    EXPECT_EQ(world.list.ApplyIdEdit(0, u"ID_FILE_B"_s), FILE_ID_TAKEN);
    EXPECT_EQ(world.list.ApplyIdEdit(2, u"ID_TYPED"_s), FILE_EDIT_DONE);
    EXPECT_EQ(world.list.ApplyIdEdit(0, u"ID_SONG"_s), FILE_EDIT_DONE);
    EXPECT_EQ(world.Rows(), "ID_SONG=.\\a.wav ID_FILE_B=.\\b.txt ID_TYPED <New> ");
    EXPECT_EQ(NamesIn(world.binary), "ID_FILE_B ID_TYPED");

    EXPECT_EQ(world.list.SetFile(0, world.folder.Path("b.txt")), FILE_WRONG_TYPE) << "an audio file's row";
    EXPECT_EQ(world.list.SetFile(0, world.Put("c.mp3")), FILE_EDIT_DONE);
    EXPECT_EQ(world.list.SetFile(3, world.Put("d.avi")), FILE_EDIT_DONE) << "the new row adds";
    EXPECT_EQ(world.Rows(), "ID_SONG=.\\c.mp3 ID_FILE_B=.\\b.txt ID_TYPED ID_VIDEO_D=.\\d.avi <New> ");

    const int changes = observer.changed;
    world.list.FlipPush({0, 3, 4});
    EXPECT_TRUE(world.list.SetType(1, u"push"_s) && world.list.SetType(0, u"Normal"_s));
    EXPECT_FALSE(world.list.SetType(1, u"Other"_s));
    EXPECT_EQ(world.Rows(), "ID_SONG=.\\c.mp3 ID_FILE_B*=.\\b.txt ID_TYPED ID_VIDEO_D*=.\\d.avi <New> ");
    EXPECT_EQ(world.list.At(3)->Id()->pushKind * 10 + world.list.At(1)->Id()->pushKind, 23);
    world.list.CloseType(1, u"Other"_s);
    EXPECT_EQ(world.list.CellText(1, 1), u"Other"_s) << "what the box showed";
    world.list.FlipPush({1});
    EXPECT_EQ(world.list.CellText(1, 1), u"Normal"_s);
    EXPECT_EQ(observer.changed, changes) << "a type doesn't mark the project as modified";

    world.list.Fill(&world.images, 1);
    EXPECT_EQ(world.list.AddFileRow(0, world.Put("i.png")), FILE_EDIT_DONE);
    world.list.FlipPush({0});
    EXPECT_EQ(world.list.At(0)->Id()->pushKind, PUSH_IMAGE);
}

TEST(FileList, SortsRemovesAndClears)
{
    ListWorld world;
    QStringList paths;
    for (int i = 0; i < 400; ++i)
        paths << world.Put(("n" + QByteArray::number(i) + (i % 2 ? ".wav" : ".txt")).constData());
    world.list.Fill(&world.files, -1);
    EXPECT_EQ(world.list.AddFiles(paths).added, 400);
    EXPECT_EQ(world.list.CellText(399, 0), u"ID_AUDIO_N399"_s) << "in the order of insertion";
    const QPersistentModelIndex last = world.shown.index(399, 0);
    world.list.Sort(-1);
    EXPECT_EQ(last.data().toString(), u"ID_AUDIO_N399"_s);
    EXPECT_EQ(world.list.CellText(399, 0) + world.list.CellText(400, 0), u"ID_AUDIO_N1<New>"_s);
    for (const int state : {2, 3}) { // both sort by path
        world.list.Sort(state);
        EXPECT_EQ(world.list.CellText(2, 2) + world.list.CellText(400, 0), u".\\n2.txt<New>"_s);
    }
    EXPECT_EQ(ListSettings::NextSortState(1, 0) * 10 + ListSettings::NextSortState(-1, 2), -7);

    std::vector<int> some{3, 4, 5, 400};
    world.list.Remove(some);
    EXPECT_EQ(world.list.CellText(3, 2), u".\\n6.txt"_s);
    some.clear();
    for (int row = 0; row < world.list.RowCount(); row += 2) // so many separate rows that the model is reset
        some.push_back(row);
    world.list.Remove(some);
    EXPECT_EQ(world.list.Files(), 198);
    EXPECT_EQ(world.audio.resources.Count() + world.binary.resources.Count(), 198U);
    world.list.Clear();
    EXPECT_EQ(world.Rows(), "<New> ");
    EXPECT_TRUE(world.audio.resources.IsEmpty() && world.ids.IsEmpty());

    CResFolder &component = world.AddFolder(world.root, KIND_COMPONENT);
    for (const char *id : {"ID_A", "ID_B", "ID_C"})
        component.AddResource(world.CreateFileRes(id, -1));
    for (CBaseRes *res : component.resources)
        static_cast<CFileRes *>(res)->inUse = res->Id()->name != "ID_B";
    world.list.Fill(&component, 1);
    EXPECT_EQ(world.Rows(), "ID_A ID_C ") << "the images in use, and no new row";
    world.list.Clear();
    EXPECT_EQ(world.Rows(), "");
    EXPECT_EQ(component.resources.Count(), 3U);
}

TEST(FileList, EnablesThePossibleCommands)
{
    ListWorld world;
    world.list.Fill(&world.files, 1);
    (void)world.list.AddFiles({world.Put("a.wav"), world.Put("b.wav")});
    (void)world.list.ApplyIdEdit(2, u"ID_NO_FILE"_s);
    world.list.FlipPush({0});
    const ActionId ids[] = {ACTION_NEW,    ACTION_IMPORT,     ACTION_RENAME,    ACTION_BROWSE,     ACTION_OPEN_FILE,
                            ACTION_DELETE, ACTION_DELETE_ALL, ACTION_PUSH_FILE, ACTION_RESET_IMAGE};
    struct Case
    {
        std::vector<int> selected;
        const char *always;
        const char *inMenu; // "*": has a check mark
    };
    for (const Case &each :
         {Case{{}, "xx--x-xxx", "xx----x--"}, Case{{0}, "xxxxxxxxx", "xxxxxxx*x"}, Case{{1}, "xxxxxxxxx", "xxxxxxxxx"},
          Case{{2}, "xxxxxxxxx", "xxxx-xx-x"}, Case{{3}, "xxxxx-xxx", "xxxx--x-x"},
          Case{{0, 1}, "xxxxxxxxx", "xx---xx-x"}, Case{{1, 2, 3}, "xxxxxxxxx", "xx---xxxx"}}) {
        std::string always;
        std::string inMenu;
        for (const ActionId id : ids) {
            const FileSelection selection{int(each.selected.size()), each.selected.empty() ? -1 : each.selected[0]};
            always += FileActionState(id, world.list, selection)->enabled ? 'x' : '-';
            const ActionState state = FileMenuState(id, world.list, each.selected, always.back() == 'x');
            inMenu += state.checked ? '*' : state.enabled ? 'x' : '-';
        }
        EXPECT_EQ(always, each.always) << each.selected.size();
        EXPECT_EQ(inMenu, each.inMenu) << each.selected.size();
    }
}

TEST(CellPlace, PutsTheButtonAtTheEndOfACell)
{
    const QRect client(0, 0, 300, 200);
    const auto place = [&](int left, int width, int top = 20) {
        const auto at = PlaceAtCellEnd(QRect(left, top, width, 16), client);
        return at ? std::to_string(at->left()) + ',' + std::to_string(at->width()) + ',' + std::to_string(at->top()) +
                        ',' + std::to_string(at->height())
                  : std::string();
    };
    EXPECT_EQ(place(100, 5) + place(100, 18), "");
    EXPECT_EQ(place(100, 19) + ' ' + place(101, 19), "109,10,18,20 110,10,18,20");
    EXPECT_EQ(place(100, 100) + ' ' + place(100, 101), "150,50,18,20 151,50,18,20");
    EXPECT_EQ(place(250, 400), "275,25,18,20") << "cut at the edge";
    EXPECT_EQ(place(300, 50) + place(100, 101, -1) + place(100, 101, 190), "");
}
