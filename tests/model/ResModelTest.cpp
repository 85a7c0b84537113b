#include "TestModel.h"

using namespace Qt::StringLiterals;

namespace
{

NarrowText DefaultId(CResModel &model, quint32 kind, const QString &path, qint32 index = -1)
{
    CResFolder folder(kind, index);
    const auto res = model.CreateDefaultFileRes(folder, path);
    return res ? res->Id()->name : "(none)";
}

} // namespace

TEST(ResModel, AFileBelongsWhereItsExtensionSays)
{
    const TestModel model;
    EXPECT_EQ(model.ClassifyFile(KIND_FILES, u"a.MP3"_s), KIND_AUDIO);
    EXPECT_EQ(model.ClassifyFile(KIND_FILES, u"a.mp34"_s), KIND_BINARY);
    EXPECT_EQ(model.ClassifyFile(KIND_FILES, u"a.rm"_s), KIND_VIDEO);
    EXPECT_EQ(model.ClassifyFile(KIND_FILES, u"a.rmvb"_s), KIND_VIDEO);
    EXPECT_EQ(model.ClassifyFile(KIND_FILES, u"a.png"_s), KIND_BINARY) << "images aren't in that mask";
    EXPECT_EQ(model.ClassifyFile(KIND_RESO_IMAGES, u"dir.d\\a.PNG"_s), KIND_RESO_IMAGES);
    EXPECT_EQ(model.ClassifyFile(KIND_COMPONENT, u"a.jpg"_s), KIND_COMPONENT);
    EXPECT_EQ(model.ClassifyFile(KIND_IMAGES, u"a.png"_s), KIND_BINARY);
    EXPECT_EQ(model.ClassifyFile(KIND_VIDEO, u"a.mp3"_s), KIND_BINARY);
    EXPECT_EQ(model.ClassifyFile(KIND_FILES, u"mp3"_s), KIND_BINARY);
    EXPECT_EQ(model.ClassifyFile(KIND_FILES, QString()), KIND_BINARY);

    const TestModel own("[FileType]\naudio=*.oggx;*.OGG\n");
    EXPECT_EQ(own.ClassifyFile(KIND_FILES, u"a.ogg"_s), KIND_AUDIO) << "the longer pattern in front hides nothing";
    EXPECT_EQ(own.ClassifyFile(KIND_FILES, u"a.mp3"_s), KIND_BINARY);
}

TEST(ResModel, ADefaultIdComesFromTheFilesName)
{
    TestModel model;
    EXPECT_EQ(DefaultId(model, KIND_RESO_IMAGES, u"C:\\p\\big logo.v2.png"_s), "ID_IMAGE_BIG_LOGO_V2");
    EXPECT_EQ(DefaultId(model, KIND_FILES, u"tune.mp3"_s), "ID_AUDIO_TUNE");
    EXPECT_EQ(DefaultId(model, KIND_FILES, u"logo.png"_s), "ID_FILE_LOGO");
    EXPECT_EQ(DefaultId(model, KIND_VIDEO, u"clip.avi"_s), "ID_VIDEO_CLIP");
    EXPECT_EQ(DefaultId(model, KIND_RESO_IMAGES, u"+++.png"_s), "ID_IMAGE_PNG");
    EXPECT_EQ(DefaultId(model, KIND_RESO_IMAGES, u"+++"_s), "ID_IMAGE_NONAME");
    TestModel own("[DefaultID]\nimage_id=PIC_%s_END\n");
    EXPECT_EQ(DefaultId(own, KIND_RESO_IMAGES, u"a.png"_s), "PIC_A_END");
}

TEST(ResModel, ATakenDefaultIdGetsACounterAndStaysWithin64Characters)
{
    TestModel model;
    const QString path = QString(80, u'n') + u".png"_s;
    const NarrowText base = ("ID_IMAGE_" + NarrowText(80, 'N')).left(64);
    std::vector<std::unique_ptr<CFileRes>> kept;
    CResFolder folder(KIND_RESO_IMAGES, -1);
    for (int i = 0; i <= 10; ++i)
        kept.push_back(model.CreateDefaultFileRes(folder, path));
    EXPECT_EQ(kept[0]->Id()->name, base);
    EXPECT_EQ(kept[9]->Id()->name, base.left(63) + "9");
    EXPECT_EQ(kept[10]->Id()->name, base.left(62) + "10");
    EXPECT_EQ(DefaultId(model, KIND_RESO_IMAGES, path, 3), base.left(62) + "11")
        << "Default shuts out every resolution";
}

TEST(ResModel, FoldersOfImagesAndStringsAreWatchedAndThoseOfFilesAreNot)
{
    TestModel model;
    CountingObserver watch;
    model.nodeObserver = &watch;
    for (const quint32 kind : {KIND_IMAGES, KIND_RESO_IMAGES, KIND_STRINGS, KIND_LAYOUTS, KIND_COMPONENT, KIND_LAYOUT})
        EXPECT_EQ(model.CreateFolder(kind, -1)->observer, &watch) << kind;
    for (const quint32 kind : {KIND_FILES, KIND_AUDIO, KIND_VIDEO, KIND_BINARY, KIND_LANGUAGE})
        EXPECT_EQ(model.CreateFolder(kind, -1)->observer, nullptr) << kind;
    EXPECT_EQ(model.CreateFileRes("A", 0)->observer, &watch);
    EXPECT_EQ(model.CreateStringRes("B", 0)->observer, &watch);
    EXPECT_EQ(model.CreateDetachedStringRes("B")->observer, nullptr);
    const auto a = model.CreateFileRes("A", 0);
    EXPECT_EQ(model.CreateFileRes("A", 0), nullptr);
    EXPECT_EQ(model.CreateStringRes("A", 0), nullptr);
    EXPECT_EQ(model.CreateStringRes(nullptr, 0), nullptr);
    EXPECT_EQ(a->Id()->refs, 1);
    EXPECT_TRUE(model.IsIdInUse(u"A"_s));
    EXPECT_FALSE(model.IsIdInUse(u"B"_s));
    model.ids.unique = 0;
    EXPECT_FALSE(model.IsIdInUse(u"A"_s));
    model.ids.unique = 1;
}

TEST(ResModel, AResolutionComesIntoUseOnceAndTellsIt)
{
    TestModel model;
    CountingObserver watch;
    model.nodeObserver = &watch;
    auto images = model.CreateFolder(KIND_IMAGES, -1);
    images->AddFolder(model.CreateFolder(KIND_RESO_IMAGES | quint32(KIND_FLAG_OFF), 4));
    model.root.AddFolder(std::move(images));
    const int before = watch.changed;
    CResFolder *const folder = model.UseResolutionImages(4);
    ASSERT_NE(folder, nullptr);
    EXPECT_EQ(folder->kind, quint32(KIND_RESO_IMAGES));
    EXPECT_EQ(model.UseResolutionImages(4), folder);
    EXPECT_EQ(watch.changed, before + 1);
    EXPECT_EQ(model.UseResolutionImages(5), nullptr);
    EXPECT_EQ(model.UseResolutionLayouts(4), nullptr);
    model.root.Clear();
    model.nodeObserver = nullptr;
}

TEST(ResModel, ClearingKeepsTheFixedFoldersAndTheImagesOfComponents)
{
    TestModel model;
    const auto add = [&](CResFolder &to, quint32 kind) -> CResFolder & {
        to.AddFolder(model.CreateFolder(kind, -1));
        return *to.subfolders.back();
    };
    CResFolder &files = add(model.root, KIND_FILES);
    CResFolder &audio = add(files, KIND_AUDIO);
    audio.AddResource(model.CreateFileRes("A", -1));
    CResFolder &off = add(add(model.root, KIND_IMAGES), KIND_RESO_IMAGES | quint32(KIND_FLAG_OFF));
    CResFolder &language = add(add(model.root, KIND_STRINGS), KIND_LANGUAGE);
    language.AddResource(model.CreateStringRes("S", -1));
    CResFolder &component = add(model.root, KIND_COMPONENT);
    auto stock = model.CreateFileRes("C", -1);
    stock->inUse = true;
    CFileRes *const image = stock.get();
    component.AddResource(std::move(stock));

    CResModel::ClearByKind(model.root);
    EXPECT_TRUE(audio.resources.IsEmpty());
    EXPECT_TRUE(language.resources.IsEmpty());
    EXPECT_EQ(off.kind, KIND_RESO_IMAGES | quint32(KIND_FLAG_OFF));
    EXPECT_EQ(component.resources.Count(), 1U);
    EXPECT_FALSE(image->inUse);
    EXPECT_EQ(model.ids.FindName("A"), nullptr);
    EXPECT_NE(model.ids.FindName("C"), nullptr);
}
