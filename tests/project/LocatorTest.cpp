// SPDX-License-Identifier: MIT
#include "Locator.h"
#include "TestModel.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Locator, RanksPrefixesBeforeWordsAndSortsByName)
{
    TestModel model;
    CResFolder &images = model.AddFolder(model.root, KIND_RESO_IMAGES, 0);
    for (const char *id : {"ID_MENU_OK", "ID_OK10", "ID_OK2", "MENU_OK", "OK_MENU"})
        images.AddResource(model.CreateFileRes(id, 0));
    CResFolder &larger = model.AddFolder(model.root, KIND_RESO_IMAGES, 1);
    larger.AddResource(model.CreateFileRes("OK_MENU", 1));
    CResFolder &strings = model.AddFolder(model.root, KIND_STRINGS);
    CResFolder &descriptions = model.AddFolder(strings, KIND_LANGUAGE);
    CResFolder &english = model.AddFolder(strings, KIND_LANGUAGE, 9);
    descriptions.AddResource(model.CreateStringRes("OK"));
    CBaseRes *const head = descriptions.resources.First();
    english.AddResource(model.CreateStringRes(head->Id()));

    const auto found = [&](const QString &typed, size_t most = 50) {
        QStringList ids;
        for (const LocatedId &one : LocateIds(model, typed, most)) {
            ids << one.id + (one.folder == &larger ? u"*"_s : QString());
            EXPECT_EQ(one.folder == &strings, one.resource == head);
        }
        return ids.join(u' ');
    };
    EXPECT_EQ(found(u"ok"_s), u"OK OK_MENU OK_MENU* ID_MENU_OK ID_OK2 ID_OK10 MENU_OK"_s);
    EXPECT_EQ(found(u"ok"_s, 4), u"OK OK_MENU OK_MENU* ID_MENU_OK"_s);
    EXPECT_EQ(found(u" me  ok"_s), u"ID_MENU_OK MENU_OK"_s);
    EXPECT_EQ(found(u"id_o"_s), u"ID_OK2 ID_OK10 ID_MENU_OK"_s);
    EXPECT_EQ(found(u"k"_s), QString());
    EXPECT_EQ(found({}, 2), u"ID_MENU_OK ID_OK2"_s);
}
