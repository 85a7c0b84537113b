#include "ResFolder.h"

#include "TestModel.h"

namespace
{

class ResFolderTest : public testing::Test
{
protected:
    ResFolderTest() { folder.observer = &folderWatch; }

    CFileRes *Add(const char *name, CResFolder &to)
    {
        auto res = model.CreateFileRes(name, ANY_RESOLUTION);
        res->observer = &resWatch;
        CFileRes *const added = res.get();
        to.AddResource(std::move(res));
        return added;
    }

    TestModel model;
    CountingObserver folderWatch;
    CountingObserver resWatch;
    CResFolder folder{KIND_RESO_IMAGES, -1};
};

} // namespace

TEST_F(ResFolderTest, EachChangeOfItsListsIsToldOnce)
{
    CFileRes *const a = Add("A", folder);
    CFileRes *const b = Add("B", folder);
    EXPECT_EQ(folderWatch.changed, 2);
    folder.InsertResourceBefore(model.CreateFileRes("C", ANY_RESOLUTION), b);
    folder.InsertResourceBefore(model.CreateFileRes("D", ANY_RESOLUTION), nullptr);
    EXPECT_EQ(folderWatch.changed, 2) << "an insertion tells nobody";
    EXPECT_EQ(NamesIn(folder), "A C B D");

    EXPECT_TRUE(folder.DeleteResource(a));
    EXPECT_TRUE(folder.DeleteResource(b->Id()));
    EXPECT_EQ(folderWatch.changed, 4);
    EXPECT_EQ(resWatch.removed, 2);
    EXPECT_EQ(model.ids.FindName("A"), nullptr) << "the ID went with its resource";

    CResFolder *sub = new CResFolder(KIND_AUDIO, -1);
    folder.AddFolder(std::unique_ptr<CResFolder>(sub));
    EXPECT_TRUE(folder.DeleteFolder(sub));
    EXPECT_EQ(folderWatch.changed, 6);
    folder.AddFolder(std::make_unique<CResFolder>(KIND_AUDIO, -1));
    EXPECT_TRUE(folder.Clear());
    EXPECT_EQ(folderWatch.changed, 8);
    EXPECT_TRUE(folder.resources.IsEmpty() && folder.subfolders.empty());
    EXPECT_TRUE(folder.Clear()) << "an empty one too";
    EXPECT_EQ(folderWatch.changed, 9);
}

TEST_F(ResFolderTest, WhatLiesElsewhereCannotBeDeletedHere)
{
    CResFolder other{KIND_AUDIO, -1};
    CFileRes *const stranger = Add("A", other);
    CFileRes *const own = Add("B", folder);
    const int before = folderWatch.changed;
    EXPECT_FALSE(folder.DeleteResource(stranger));
    EXPECT_FALSE(folder.DeleteResource(stranger->Id()));
    EXPECT_FALSE(folder.DeleteResource(static_cast<CBaseRes *>(nullptr)));
    EXPECT_FALSE(folder.DeleteFolder(&other));
    EXPECT_EQ(folderWatch.changed, before);
    EXPECT_EQ(folder.FindResource(own->Id()), own);
    EXPECT_EQ(folder.FindResource("A"), nullptr);
    EXPECT_EQ(folder.FindResource("B"), own);
    folder.InsertResourceBefore(model.CreateFileRes("C", ANY_RESOLUTION), stranger);
    EXPECT_EQ(NamesIn(folder), "B C") << "a place that isn't in the list means its end";
    EXPECT_EQ(NamesIn(other), "A");
}

TEST_F(ResFolderTest, SearchesGoDepthFirstAndNoDeeperThanAsked)
{
    CResFolder root{KIND_ROOT, -1};
    const auto add = [](CResFolder &to, quint32 kind, qint32 index, const char16_t *title) {
        auto made = std::make_unique<CResFolder>(kind, index);
        made->title = QString::fromUtf16(title);
        CResFolder *const added = made.get();
        to.AddFolder(std::move(made));
        return added;
    };
    CResFolder *const outer = add(root, KIND_IMAGES, -1, u"Images");
    CResFolder *const inner = add(*outer, KIND_RESO_IMAGES, 0, u"a");
    CResFolder *const second = add(*outer, KIND_RESO_IMAGES, 1, u"A");
    add(root, KIND_RESO_IMAGES, 1, u"later, though less deep");
    EXPECT_EQ(root.FindFolder(KIND_RESO_IMAGES, 2), inner);
    EXPECT_EQ(root.FindFolder(KIND_RESO_IMAGES, 1, 2), second);
    EXPECT_EQ(root.FindFolder(KIND_RESO_IMAGES, QStringLiteral("A"), 2), second);
    EXPECT_EQ(root.FindFolder(KIND_RESO_IMAGES, 0, 1), nullptr);
    EXPECT_EQ(root.FindFolder(KIND_IMAGES, 0), nullptr);
    EXPECT_EQ(root.FindFolder(KIND_ROOT, 3), nullptr) << "a folder is no result of its own search";
}

TEST(Resources, ChangesAreToldAndNonChangesAreNot)
{
    TestModel model;
    CountingObserver watch;
    auto file = model.CreateFileRes("A", 0);
    file->observer = &watch;
    EXPECT_TRUE(file->SetPath("x"));
    EXPECT_TRUE(file->SetPath("x"));
    EXPECT_TRUE(file->Rename(model.ids, "B"));
    EXPECT_TRUE(file->Rename(model.ids, "B"));
    EXPECT_EQ(watch.changed, 2);
    const auto other = model.CreateFileRes("C", 0);
    EXPECT_FALSE(file->Rename(model.ids, "C"));
    EXPECT_EQ(file->Id()->name, "B");
    EXPECT_EQ(watch.changed, 2);
    file->SetId(other->Id());
    EXPECT_EQ(watch.changed, 3);
    EXPECT_EQ(other->Id()->refs, 2);
    EXPECT_EQ(model.ids.FindName("B"), nullptr);

    file->path = "STOCK.png";
    file->defaultPath = "stock.PNG";
    file->Reset();
    EXPECT_EQ(watch.changed, 3);
    file->inUse = true;
    file->path = "own.png";
    file->Reset();
    EXPECT_EQ(file->path, "stock.PNG");
    EXPECT_EQ(watch.changed, 5);
    file.reset();
    EXPECT_EQ(watch.removed, 1);
}

TEST(Resources, TheRowsOfAStringShareOneIdUntilTheLastGoes)
{
    TestModel model;
    auto english = model.CreateStringRes("ID_S", 0);
    auto french = model.CreateStringRes(english->Id(), 1);
    auto german = model.CreateStringRes(english->Id(), 2);
    EXPECT_EQ(english->Id()->refs, 3);
    english->LinkBehind(french.get());
    french->LinkBehind(german.get());
    EXPECT_EQ(french->FindLanguage(0), english.get());
    EXPECT_EQ(french->FindLanguage(2), german.get());
    EXPECT_EQ(french->FindLanguage(1), french.get());
    EXPECT_EQ(french->FindLanguage(3), nullptr);
    french.reset();
    EXPECT_EQ(english->next, german.get());
    EXPECT_EQ(german->prev, english.get());
    german.reset();
    EXPECT_NE(model.ids.FindName("ID_S"), nullptr);
    english.reset();
    EXPECT_EQ(model.ids.FindName("ID_S"), nullptr);
}

TEST(Resources, DestroyingAChainBeginsAtItsEndAndSparesWhatStandsBefore)
{
    TestModel model;
    auto first = model.CreateDetachedStringRes("ID_S");
    CStringRes *second = model.CreateDetachedStringRes("ID_S").release();
    CStringRes *third = model.CreateDetachedStringRes("ID_S").release();
    EXPECT_EQ(first->Id(), third->Id()) << "equal names outside the tree share one ID";
    EXPECT_EQ(first->Id()->refs, 3);
    first->LinkBehind(second);
    second->LinkBehind(third);
    second->DestroyChain();
    EXPECT_EQ(first->next, nullptr);
    EXPECT_EQ(first->Id()->refs, 1);
    EXPECT_EQ(model.ids.FindName("ID_S"), nullptr) << "and never enter the tree's pool";
}
