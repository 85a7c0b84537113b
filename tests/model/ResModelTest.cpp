// SPDX-License-Identifier: MIT
#include "TestModel.h"

using namespace Qt::StringLiterals;

TEST(ResModel, ClassifiesFilesByExtension)
{
    TestModel model("[FileType]\naudio=*.oggx;*.OGG\n"); // the longer first pattern hides no other
    for (const auto &[mask, kind, paths] : {
             std::tuple(KIND_FILES, KIND_AUDIO, QStringList{u"a.ogg"_s, u"dir.d\\a.OGG"_s}),
             {KIND_FILES, KIND_VIDEO, {u"a.rm"_s, u"a.rmvb"_s}},
             {KIND_FILES, KIND_BINARY, {u"a.oggy"_s, u"a.png"_s, u"ogg"_s, u"a.mp3"_s, u""_s}},
             {KIND_RESO_IMAGES, KIND_RESO_IMAGES, {u"a.PNG"_s}},
             {KIND_COMPONENT, KIND_COMPONENT, {u"a.jpg"_s}},
             {KIND_IMAGES, KIND_BINARY, {u"a.png"_s}},
             {KIND_VIDEO, KIND_BINARY, {u"a.ogg"_s}},
         }) {
        for (const QString &path : paths)
            EXPECT_EQ(model.ClassifyFile(mask, path), kind) << qPrintable(path);
    }
    model.folder.Put("bin/Morvanite.ini", "[FileType]\naudio=*.oggy\n");
    model.env.RefreshSettings();
    EXPECT_EQ(model.ClassifyFile(KIND_FILES, u"a.oggy"_s), KIND_AUDIO) << "the current patterns are used";
}

TEST(ResModel, MakesDefaultIdsFromFileNamesAndNumbersTakenOnes)
{
    TestModel model("[DefaultID]\nvideo_id=MOVIE_%s_END\n");
    std::vector<std::unique_ptr<CFileRes>> kept;
    const auto made = [&](quint32 kind, const QString &path, qint32 index = -1) {
        kept.push_back(model.CreateDefaultFileRes({kind, index}, path));
        return kept.back()->Id()->name;
    };
    EXPECT_EQ(made(KIND_RESO_IMAGES, u"C:\\p\\big logo.v2.png"_s), "ID_IMAGE_BIG_LOGO_V2");
    EXPECT_EQ(made(KIND_FILES, u"tune.mp3"_s), "ID_AUDIO_TUNE");
    EXPECT_EQ(made(KIND_FILES, u"logo.png"_s), "ID_FILE_LOGO");
    EXPECT_EQ(made(KIND_VIDEO, u"clip.avi"_s), "MOVIE_CLIP_END");
    EXPECT_EQ(made(KIND_BINARY, u"song.mp3"_s), "ID_FILE_SONG") << "by the folder, except in Files";
    EXPECT_EQ(made(KIND_AUDIO, u"raw.bin"_s), "ID_AUDIO_RAW");
    EXPECT_EQ(made(KIND_RESO_IMAGES, u"+++.png"_s), "ID_IMAGE_PNG");
    EXPECT_EQ(made(KIND_RESO_IMAGES, u"+++"_s), "ID_IMAGE_NONAME");
    const NarrowText longest = ("ID_IMAGE_" + NarrowText(80, 'N')).left(64);
    for (const NarrowText counter : {"", "1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11"}) {
        const qint32 index = counter == "11" ? 3 : -1; // an ID without a resolution is taken in every resolution
        EXPECT_EQ(made(KIND_RESO_IMAGES, QString(80, u'n') + u".png"_s, index),
                  longest.chopped(counter.size()) + counter);
    }
    const auto forget = [&](const NarrowText &name) {
        std::erase_if(kept, [&](const auto &res) { return res->Id()->name == name; });
    };
    for (const QString &path : {u"日本.png"_s, u"語.png"_s, u"a/日.png"_s})
        made(KIND_RESO_IMAGES, path, 5);
    EXPECT_EQ(kept.back()->Id()->name, "ID_IMAGE_PNG3");
    EXPECT_EQ(made(KIND_RESO_IMAGES, u"x.png"_s, 6), "ID_IMAGE_X");
    EXPECT_EQ(made(KIND_RESO_IMAGES, u"語.png"_s, 6), "ID_IMAGE_PNG1") << "the other ID has another resolution";
    forget("ID_IMAGE_PNG2");
    EXPECT_EQ(made(KIND_RESO_IMAGES, u"語.png"_s, 5), "ID_IMAGE_PNG2") << "the free counter is used again";
    ASSERT_TRUE(kept.back()->Rename(model.ids, "ID_OTHER"));
    EXPECT_EQ(made(KIND_RESO_IMAGES, u"語.png"_s, 5), "ID_IMAGE_PNG2");
    EXPECT_EQ(made(KIND_RESO_IMAGES, u"語.png"_s, 5), "ID_IMAGE_PNG4");
}

TEST(ResModel, ObservesFoldersOfImagesStringsAndLayoutsButNotOfFiles)
{
    CountingObserver watch;
    TestModel model;
    model.ids.observer = &watch;
    for (const quint32 kind : {KIND_IMAGES, KIND_RESO_IMAGES, KIND_STRINGS, KIND_LAYOUTS, KIND_COMPONENT, KIND_LAYOUT})
        EXPECT_EQ(model.CreateFolder(kind, -1)->observer, &watch) << kind;
    for (const quint32 kind : {KIND_FILES, KIND_AUDIO, KIND_VIDEO, KIND_BINARY, KIND_LANGUAGE})
        EXPECT_EQ(model.CreateFolder(kind, -1)->observer, nullptr) << kind;
    const auto a = model.CreateFileRes("A", 0);
    EXPECT_TRUE(a->Observer() == &watch && watch.added == 7);
    EXPECT_EQ(model.CreateStringRes("B")->Observer(), &watch);
    EXPECT_TRUE(!model.CreateFileRes("A", 0) && !model.CreateStringRes("A") && !model.CreateStringRes(nullptr));
    EXPECT_EQ(a->Id()->refs, 1);
    EXPECT_TRUE(model.IsIdInUse(u"A"_s) && !model.IsIdInUse(u"B"_s));
    model.ids.unique = 0;
    EXPECT_FALSE(model.IsIdInUse(u"A"_s));
}

TEST(ResModel, AddsAResolutionOnceAndClearsEverythingButComponents)
{
    CountingObserver watch;
    TestModel model;
    CResFolder &images = model.AddFolder(model.AddFolder(model.root, KIND_IMAGES), KIND_RESO_IMAGES | KIND_FLAG_OFF, 4);
    images.observer = &watch;
    for (int again = 0; again < 2; ++again)
        EXPECT_EQ(model.UseResolutionImages(4), &images);
    EXPECT_EQ(images.kind, quint32(KIND_RESO_IMAGES));
    EXPECT_EQ(watch.changed, 1);
    EXPECT_TRUE(!model.UseResolutionImages(5) && !model.UseResolutionLayouts(4));

    images.AddResource(model.CreateFileRes("A", 4));
    model.TakeOutOfUse(images);
    EXPECT_TRUE(images.resources.IsEmpty() && model.ids.IsEmpty());
    EXPECT_EQ(images.kind, quint32(KIND_RESO_IMAGES | KIND_FLAG_OFF));
    const int told = watch.changed;
    model.TakeOutOfUse(images); // it isn't in use
    EXPECT_EQ(watch.changed, told);
    model.PutIntoUse(images);

    CResFolder &component = model.AddFolder(model.root, KIND_COMPONENT);
    component.AddResource(model.CreateFileRes("C", -1));
    auto *const image = static_cast<CFileRes *>(component.resources.First());
    image->inUse = true;
    images.AddResource(model.CreateFileRes("A", -1));
    for (const quint32 kind : {KIND_AUDIO, KIND_VIDEO, KIND_BINARY, KIND_RESO_LAYOUTS, KIND_LANGUAGE})
        model.AddFolder(model.root, kind).AddResource(model.CreateFileRes("A" + QByteArray::number(kind), -1));
    model.ClearByKind(model.root);
    EXPECT_FALSE(image->inUse);
    EXPECT_TRUE(model.ids.sentinel.next == image->Id() && model.ids.sentinel.prev == image->Id());
    EXPECT_EQ(model.root.subfolders.size(), 7U) << "the fixed tree stays";
    EXPECT_EQ(model.root.FindFolder(KIND_RESO_IMAGES, 4, 2), &images);
}
