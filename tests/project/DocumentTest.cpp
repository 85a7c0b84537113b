#include "TestProject.h"

#include <sys/stat.h>

using namespace Qt::StringLiterals;

TEST(ResDoc, IsCleanWhenOpenedAndModifiedByAnyChangeOfItsTree)
{
    TestProject project("<APP><FILE id=\"ID_A\">a.wav</FILE><IMAGE id=\"ID_B\"/></APP>");
    CResDoc &doc = *project.Open();
    EXPECT_FALSE(doc.IsModified());
    auto *const a = static_cast<CFileRes *>(doc.root.FindFolder(KIND_AUDIO, 2)->resources.First());
    const auto changes = [&](const auto &change) {
        doc.SetModifiedFlag(false);
        change();
        return doc.IsModified();
    };
    EXPECT_TRUE(changes([&] { a->SetPath("b.wav"); }));
    EXPECT_FALSE(changes([&] { a->SetPath("b.wav"); }));
    EXPECT_TRUE(changes([&] { a->Rename(doc.ids, "ID_C"); }));
    EXPECT_FALSE(changes([&] { a->Rename(doc.ids, "ID_B"); })) << "the name is taken";
    EXPECT_TRUE(changes([&] { doc.root.FindFolder(KIND_AUDIO, 2)->DeleteResource(a); })) << "seen through the resource";
    EXPECT_TRUE(changes([&] { doc.UseResolutionImages(0); }));
    EXPECT_FALSE(changes([&] { doc.UseResolutionImages(0); }));
    EXPECT_FALSE(changes([&] { doc.GenerateIds(nullptr); })) << "numbers aren't part of the project";
    EXPECT_FALSE(doc.OnNewDocument());
}

TEST(ResDoc, SavingMakesItCleanUnlessSomethingFailed)
{
    TestProject project("<APP><FILE id=\"ID_A\"/></APP>");
    CResDoc &doc = *project.Open();
    doc.SetModifiedFlag(true);
    EXPECT_TRUE(doc.DoFileSave());
    EXPECT_FALSE(doc.IsModified());
    EXPECT_TRUE(project.user.boxes.isEmpty());

    doc.SetModifiedFlag(true);
    QFile::remove(project.folder.Path("demo/res/demo.res.xml"));
    project.folder.MakeFolder("demo/res/demo.res.xml");
    const QByteArray header = project.folder.Get("demo/ResID/ResID.h");
    doc.ids.sentinel.next->Rename(doc.ids, "ID_Z");
    (void)project.TakeOutput();
    EXPECT_TRUE(doc.DoFileSave()) << "the framework hears of success either way";
    EXPECT_EQ(project.TakeOutput(), "Error 1: failed to write to file \"res\\demo.res.xml\".\r\n"
                                    "[demo] save - 1 error(s), 0 warning(s)\r\n");
    EXPECT_EQ(project.user.boxes, QStringList({u"Failed to save the resources."_s}));
    EXPECT_TRUE(doc.IsModified());
    EXPECT_EQ(doc.lastSave.write, -3);
    EXPECT_EQ(project.folder.Get("demo/ResID/ResID.h"), header) << "no header is written for a list that isn't";
    EXPECT_EQ(project.folder.Names("demo/ResID"), QStringList({u"ResID.h"_s}));

    project.command = 2;
    EXPECT_TRUE(doc.DoFileSave());
    EXPECT_EQ(project.user.boxes.size(), 1) << "a command shows no box";
    EXPECT_TRUE(doc.IsModified());
}

TEST(ResDoc, AnOverflowOfTheNumbersSavesTheProjectAndSaysSo)
{
    QByteArray resources = "<APP>";
    for (int i = 0; i <= 1000; ++i)
        resources += "<FILE id=\"ID_" + QByteArray::number(i) + "\" type=\"Push\">a.wav</FILE>";
    TestProject project(resources + "</APP>");
    CResDoc &doc = *project.Open();
    doc.SetModifiedFlag(true);
    EXPECT_TRUE(doc.DoFileSave());
    EXPECT_EQ(project.user.boxes, QStringList({u"Failed to generate header files."_s}));
    EXPECT_TRUE(doc.IsModified());
    EXPECT_EQ(doc.lastSave.generate, -2);
    EXPECT_EQ(doc.lastSave.write, 0);
    EXPECT_FALSE(project.folder.Has("demo/ResID"));
    EXPECT_TRUE(project.folder.Get("demo/res/demo.res.xml").startsWith("<APP id=\"APP_demo\">\n"));
}

TEST(ResDoc, TheCurrentFolderIsTheProjectsWhileItWorksAndTheProgramsAfterwards)
{
    TestProject project;
    CResDoc *const doc = project.Open();
    EXPECT_EQ(QDir::currentPath(), project.folder.Path("demo"));
    QDir::setCurrent(u"/"_s);
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_EQ(QDir::currentPath(), project.folder.Path("demo"));
    EXPECT_FALSE(project.monitor.watched.empty());
    project.documents.CloseAll();
    EXPECT_EQ(QDir::currentPath(), project.folder.Path("bin"));
    EXPECT_TRUE(project.monitor.watched.empty());
}

TEST(ResDoc, TheFileDialogOffersWhatTheMaskAsksFor)
{
    TestProject project("<APP/>", "[FileType]\naudio=*.wav\n");
    CResDoc &doc = *project.Open();
    project.user.answer = {u"C:\\\\a.png"_s, u"/home/b.png"_s};
    QStringList results{u"kept"_s};
    doc.ChooseFiles(KIND_FILES, true, u"start.wav"_s, results);
    EXPECT_EQ(project.user.lastFilter,
              u"Audio Files (*.wav)|*.wav|"
              "Video Files (*.avi; *.asf; *.wmv; *.3gp; *.rm; *.rmvb)|*.avi; *.asf; *.wmv; *.3gp; *.rm; *.rmvb|"
              "All Files (*.*)|*.*||"_s);
    EXPECT_EQ(project.user.lastSelected, 3);
    EXPECT_TRUE(project.user.lastMulti);
    EXPECT_EQ(project.user.lastInitial, u"start.wav"_s);
    EXPECT_EQ(results, QStringList({u"kept"_s, u"C:\\a.png"_s, u"/home/b.png"_s}));

    doc.ChooseFiles(KIND_RESO_IMAGES, false, QString(3000, u'x'), results);
    EXPECT_EQ(project.user.lastFilter, u"Image Files (*.bmp; *.png; *.gif; *.jpg)|*.bmp; *.png; *.gif; *.jpg||"_s);
    EXPECT_EQ(project.user.lastSelected, 1);
    EXPECT_EQ(project.user.lastInitial, QString()) << "a name that doesn't fit isn't offered";

    const qsizetype before = results.size();
    doc.ChooseFiles(KIND_STRINGS, false, QString(), results);
    EXPECT_EQ(results.size(), before) << "without a kind of file there is no dialog";
}
