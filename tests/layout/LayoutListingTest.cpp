// SPDX-License-Identifier: MIT
#include "LayoutListing.h"

#include "TestModel.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

TEST(LayoutListing, JsonMatchesTheStandardPrinterExceptForTheOrderOfProperties)
{
    TestModel model;
    model.folder.Put("screens.xml",
                     "<TarvoXML><Layout id=\"ID_A\"><Label text=\"a\" pos=\"1,2\" "
                     "name=\"a&quot;\\&#9;/é日\"/><Box><Part prop=\"head\" z=\"1\" a=\"2\"/></Box></Layout>"
                     "<Layout id=\"ID_B\"/></TarvoXML>");
    LayoutFileObject file(model.env, model.ids, 0);
    ASSERT_EQ(file.Load(model.folder.Path("screens.xml").toUtf8()), 0);
    std::vector<ListedLayout> layouts;
    for (const auto &layout : file.All())
        layouts.push_back({u"240x320"_s, u"res/screens.xml"_s, layout.get()});
    layouts.front().layout->components.front()->AddAttribute("text", "last");
    const QByteArray text = LayoutsJson(model.env, layouts);
    EXPECT_TRUE(text.contains("\"properties\": {\n                        \"text\": \"last\",\n"
                              "                        \"pos\": \"1,2\"\n                    }"))
        << text.constData();
    const auto sortedLines = [](const QByteArray &lines) {
        QByteArrayList list = lines.split('\n');
        for (QByteArray &line : list) {
            if (line.endsWith(','))
                line.chop(1);
        }
        std::sort(list.begin(), list.end());
        return list;
    };
    const QJsonDocument read = QJsonDocument::fromJson(text);
    EXPECT_EQ(sortedLines(text), sortedLines(read.toJson()));
    EXPECT_EQ(LayoutsJson(model.env, {}), "{\n    \"version\": 1,\n    \"layouts\": [\n    ]\n}\n");
}
