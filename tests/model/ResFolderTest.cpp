// SPDX-License-Identifier: MIT
#include "TestModel.h"

using namespace Qt::StringLiterals;

TEST(ResFolder, ReportsEachChangeOnceAndDeletesOnlyItsOwnNodes)
{
    TestModel model;
    CountingObserver watch;
    CResFolder other{KIND_AUDIO, -1};
    CResFolder folder{KIND_RESO_IMAGES, -1};
    folder.observer = &watch;
    for (const char *name : {"X", "A", "B"})
        (*name == 'X' ? other : folder).AddResource(model.CreateFileRes(name, ANY_RESOLUTION));
    CBaseRes *const b = folder.resources.Last();
    CBaseRes *const stranger = other.resources.First();
    folder.InsertResourceBefore(model.CreateFileRes("C", ANY_RESOLUTION), b);
    folder.InsertResourceBefore(model.CreateFileRes("D", ANY_RESOLUTION), stranger);
    EXPECT_EQ(NamesIn(folder), "A C B D") << "a position outside the list means its end";
    EXPECT_TRUE(folder.FindResource("B") == b && folder.FindResource(b->Id()) == b && !folder.FindResource("X"));
    EXPECT_FALSE(folder.DeleteResource(stranger) || folder.DeleteResource(stranger->Id()));
    EXPECT_FALSE(folder.DeleteResource(static_cast<CBaseRes *>(nullptr)) || folder.DeleteFolder(&other));
    EXPECT_EQ(watch.changed, 2) << "insertions and failed deletions send no notification";

    EXPECT_TRUE(folder.DeleteResource(folder.resources.First()) && folder.DeleteResource(b->Id()));
    EXPECT_EQ(watch.changed, 4);
    EXPECT_EQ(model.ids.FindName("A"), nullptr) << "the ID was deleted with its resource";
    EXPECT_EQ(NamesIn(folder) + ", " + NamesIn(other), "C D, X");
    EXPECT_TRUE(folder.DeleteFolder(&model.AddFolder(folder, KIND_AUDIO)));
    model.AddFolder(folder, KIND_AUDIO);
    EXPECT_TRUE(folder.Clear());
    EXPECT_TRUE(folder.resources.IsEmpty() && folder.subfolders.empty());
    EXPECT_TRUE(folder.Clear()) << "an empty one too";
    EXPECT_EQ(watch.changed, 9);
}

TEST(ResFolder, SearchesDepthFirstDownToTheGivenDepth)
{
    TestModel model;
    CResFolder &outer = model.AddFolder(model.root, KIND_IMAGES, -1, u"Images"_s);
    CResFolder &inner = model.AddFolder(outer, KIND_RESO_IMAGES, 0, u"a"_s);
    CResFolder &second = model.AddFolder(outer, KIND_RESO_IMAGES, 1, u"A"_s);
    model.AddFolder(model.root, KIND_RESO_IMAGES, 1, u"A"_s); // found later, although it is less deep
    EXPECT_EQ(model.root.FindFolder(KIND_RESO_IMAGES, 2), &inner);
    EXPECT_EQ(model.root.FindFolder(KIND_RESO_IMAGES, 1, 2), &second);
    EXPECT_EQ(model.root.FindFolder(KIND_RESO_IMAGES, u"A"_s, 2), &second);
    EXPECT_EQ(model.root.FindFolder(KIND_RESO_IMAGES, 0, 1), nullptr);
    EXPECT_EQ(model.root.FindFolder(KIND_ROOT, 3), nullptr) << "a folder doesn't find itself";

    inner.AddResource(model.CreateStringRes("ID_S", 0));
    CBaseRes *const first = inner.resources.First();
    inner.AddResource(model.CreateStringRes(first->Id(), 1));
    EXPECT_EQ(inner.FindResource(first->Id()), first) << "the first of several is found";
}

TEST(Resources, ReportOnlyRealChanges)
{
    TestModel model;
    CountingObserver watch;
    auto file = model.CreateFileRes("A", 0);
    const auto other = model.CreateFileRes("C", 0);
    file->observer = &watch;
    for (int again = 0; again < 2; ++again)
        EXPECT_TRUE(file->SetPath("STOCK.png") && file->Rename(model.ids, "B"));
    EXPECT_FALSE(file->Rename(model.ids, "C"));
    file->defaultPath = "stock.PNG";
    file->Reset(model.env);
    EXPECT_EQ(watch.changed, 2);
    file->SetId(other->Id());
    EXPECT_EQ(watch.changed, 3);
    EXPECT_EQ(other->Id()->refs, 2);
    EXPECT_EQ(model.ids.FindName("B"), nullptr);
    file->inUse = true;
    file->path = "own.png";
    file->Reset(model.env);
    EXPECT_EQ(file->path, "stock.PNG");
    EXPECT_EQ(watch.changed, 5);
    file.reset();
    EXPECT_EQ(watch.removed, 1);
}

TEST(Resources, RecordsOfAStringFormAChainAndShareOneIdUntilTheLastIsDeleted)
{
    TestModel model;
    auto english = model.CreateStringRes("ID_S", 0);
    auto french = model.CreateStringRes(english->Id(), 1);
    auto german = model.CreateStringRes(english->Id(), 2);
    english->LinkBehind(german.get());
    english->LinkBehind(french.get());
    for (CStringRes *from : {english.get(), french.get(), german.get()}) {
        for (CStringRes *wanted : {english.get(), french.get(), german.get()})
            EXPECT_EQ(from->FindLanguage(wanted->language), wanted);
        EXPECT_EQ(from->FindLanguage(3), nullptr);
    }
    EXPECT_EQ(english->Id()->refs, 3);
    french.reset();
    EXPECT_TRUE(english->next == german.get() && german->prev == english.get());
    german.release()->DestroyChain();
    EXPECT_EQ(english->next, nullptr) << "earlier entries are kept";
    EXPECT_EQ(model.ids.FindName("ID_S"), english->Id());
    english.reset();
    EXPECT_TRUE(model.ids.IsEmpty());

    // Outside the tree, equal names share an ID that never enters the tree's pool.
    CStringRes *const first = model.CreateDetachedStringRes("ID_S").release();
    first->LinkBehind(model.CreateDetachedStringRes("ID_S").release());
    EXPECT_TRUE(first->Id() == first->next->Id() && first->Id()->refs == 2 && model.ids.IsEmpty());
    first->DestroyChain();
    EXPECT_TRUE(model.detachedIds.IsEmpty());
}
