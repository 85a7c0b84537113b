// SPDX-License-Identifier: MIT
#include "TestModel.h"

using namespace Qt::StringLiterals;

namespace
{

std::vector<CBaseRes *> HoldersOf(const IDRecord &id)
{
    std::vector<CBaseRes *> all;
    for (CBaseRes *res : Holders(id))
        all.push_back(res);
    return all;
}

} // namespace

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

    inner.AddResource(model.CreateStringRes("ID_S"));
    CBaseRes *const first = inner.resources.First();
    inner.AddResource(model.CreateStringRes(first->Id()));
    EXPECT_EQ(inner.FindResource(first->Id()), first) << "the first of several is found";
}

TEST(Resources, ReportOnlyRealChanges)
{
    TestModel model;
    CountingObserver watch;
    auto file = model.CreateFileRes("A", 0);
    const auto other = model.CreateFileRes("C", 0);
    model.ids.observer = &watch;
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

TEST(Resources, RecordsOfARowShareOneIdUntilTheLastIsDeleted)
{
    TestModel model;
    std::vector<CStringRes *> records;
    for (const qint32 language : {-1, 0, 1, 2}) {
        auto made = records.empty() ? model.CreateStringRes("ID_S") : model.CreateStringRes(records.front()->Id());
        EXPECT_EQ(made->Language(), -1) << "it is in no folder";
        records.push_back(made.get());
        model.AddFolder(model.root, KIND_LANGUAGE, language).AddResource(std::move(made));
    }
    const IDRecord *const id = records.front()->Id();
    const auto expect = [&] {
        EXPECT_EQ(std::vector<CBaseRes *>(records.begin(), records.end()), HoldersOf(*id)) << "the oldest is first";
        EXPECT_EQ(id->refs, int(records.size()));
        for (CStringRes *from : records) {
            for (CStringRes *wanted : records)
                EXPECT_EQ(from->FindLanguage(wanted->Language()), wanted);
            EXPECT_EQ(from->FindLanguage(3), nullptr);
        }
    };
    expect();
    for (const size_t place : {1, 0, 1, 0}) { // one of the middle, the oldest, the newest, the last
        model.root.subfolders[place]->Clear();
        model.root.DeleteFolder(model.root.subfolders[place].get());
        records.erase(records.begin() + ptrdiff_t(place));
        if (!records.empty())
            expect();
    }
    EXPECT_TRUE(model.ids.IsEmpty());
}

TEST(Resources, TextsOfAnySizeAreKeptUntilTheyAreReplaced)
{
    TestModel model;
    CResFolder &folder = model.AddFolder(model.root, KIND_LANGUAGE);
    std::vector<QString> texts;
    for (int n = 0; n < 3000; ++n) { // several blocks of memory
        texts.push_back(QString(n % 500 == 7 ? 20000 + 60 * n : n % 50, QChar(u'a' + n % 26)));
        folder.AddResource(model.CreateStringRes("ID_" + QByteArray::number(n)));
        static_cast<CStringRes *>(folder.resources.Last())->SetText(texts.back());
    }
    for (int pass = 0; pass < 2; ++pass) {
        size_t n = 0;
        for (CBaseRes *res : folder.resources) {
            auto &record = static_cast<CStringRes &>(*res);
            EXPECT_EQ(record.Text(), texts[n]);
            EXPECT_EQ(record.HasText(), !texts[n].isEmpty());
            texts[n] = texts[n].sliced(texts[n].size() / 2);
            record.SetText(record.Text().sliced(record.Text().size() / 2)); // a part of the text that it replaces
            ++n;
        }
    }
}
