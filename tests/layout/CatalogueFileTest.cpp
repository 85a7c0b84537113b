// SPDX-License-Identifier: MIT
#include "TestCatalogue.h"

#include "HostFiles.h"

namespace
{

QByteArray ErrorsOf(const QByteArray &text)
{
    const Environment env(QStringLiteral("/nonexistent"));
    ClassCatalogue catalogue;
    std::vector<Finding> errors;
    const bool fine = ParseCatalogue(env, text, QStringLiteral("c"), catalogue, errors);
    EXPECT_EQ(fine, errors.empty());
    EXPECT_EQ(catalogue.loaded, fine);
    EXPECT_TRUE(fine || catalogue.entries.empty());
    return CatalogueErrors(errors).join(u'\n').toUtf8();
}

QByteArray ErrorsWithin(const QByteArray &definitions)
{
    return ErrorsOf("<catalogue version=\"1\">\n" + definitions + "\n</catalogue>");
}

} // namespace

TEST(CatalogueFile, ReportsEveryErrorWithItsLine)
{
    EXPECT_EQ(ErrorsWithin("<class name='A' base='Nobody' colour='x'>\n"
                           "<member name='1' type='ZulBool'/>\n"
                           "<member type='ZulBool'/><item name='x'/>\n"
                           "<member name='pos' type='ZulPiont'/>\n"
                           "<member name='pos' type='ZulPoint'><b/></member>\n"
                           "<member name='rect' type='ZulRect'/>\n"
                           "</class>\n"
                           "<structure name='A'/><structure name='ZulBool'/>\n"
                           "<enumeration name='E'/> words <class name='B' base='E' excluded='yes'/>\n"
                           "<struct name='S'/><class/>"),
              "c, line 2: <class> has no attribute \"colour\"\n"
              "c, line 3: \"1\" is not a valid name: a name has at most 64 letters, digits and \"_\", and doesn't "
              "begin with a digit\n"
              "c, line 4: <member> needs the attribute \"name\"\n"
              "c, line 4: <item> should be <member>\n"
              "c, line 6: \"pos\" occurs twice in \"A\"\n"
              "c, line 6: <b> is not allowed in <member>\n"
              "c, line 7: a member can't have the name \"rect\"\n"
              "c, line 9: \"A\" is already defined in line 2\n"
              "c, line 9: \"ZulBool\" is the name of a built-in type\n"
              "c, line 10: <enumeration> needs an <item>\n"
              "c, line 1: <catalogue> contains something that is not an element\n"
              "c, line 10: \"excluded\" should be \"true\" or \"false\"\n"
              "c, line 11: <struct> should be <class>, <structure> or <enumeration>\n"
              "c, line 11: <class> needs the attribute \"name\"\n"
              "c, line 2: unknown base \"Nobody\"\n"
              "c, line 5: unknown type \"ZulPiont\"\n"
              "c, line 10: the base \"E\" is not a class");
}

TEST(CatalogueFile, ChecksTheRoot)
{
    EXPECT_EQ(ErrorsOf(""), "c, line 1: this is not well-formed XML: Error document empty.");
    EXPECT_TRUE(ErrorsOf("<catalogue version='1'>\n\n<class name=></catalogue>")
                    .startsWith("c, line 3: this is not well-formed"));
    EXPECT_EQ(ErrorsOf("<!-- -->\n<catalog version='1'/>"), "c, line 2: <catalog> should be <catalogue>");
    EXPECT_EQ(ErrorsOf("<catalogue/>"), "c, line 1: the catalogue's version should be \"1\"");
    EXPECT_EQ(ErrorsOf("<catalogue version='1'/>\n<catalogue/>"),
              "c, line 2: only one element <catalogue> is expected");
    EXPECT_EQ(ErrorsOf("<!-- -->"), "c, line 1: there is no element <catalogue>");
    EXPECT_EQ(ErrorsOf("<catalogue version='1'/>"), "");
}

TEST(CatalogueFile, RefusesTypesThatContainThemselves)
{
    EXPECT_EQ(ErrorsWithin("<structure name='A'>\n<member name='a' type='A'/></structure>"),
              "c, line 3: \"A\" contains itself or derives from itself");
    EXPECT_EQ(ErrorsWithin("<structure name='A'><member name='b' type='B'/></structure>\n"
                           "<structure name='B'>\n<member name='c' type='C'/></structure>\n"
                           "<class name='C' base='D'/>\n<class name='D'><member name='a' type='A'/></class>"),
              "c, line 6: \"A\" contains itself or derives from itself through \"D\"");
    EXPECT_EQ(ErrorsWithin("<class name='A' base='A'/>"), "c, line 2: \"A\" contains itself or derives from itself");
}

TEST(CatalogueFile, RefusesTypesThatGrowWithoutLimit)
{
    const auto chain = [](int length, int width, const char *last) {
        QByteArray text;
        for (int i = 0; i < length; ++i) {
            text += "<structure name='S" + QByteArray::number(i) + "'>";
            for (int k = 0; k < width; ++k)
                text += "<member name='m" + QByteArray::number(k) + "' type='" +
                        (i + 1 < length ? 'S' + QByteArray::number(i + 1) : QByteArray(last)) + "'/>";
            text += "</structure>\n";
        }
        return text;
    };
    EXPECT_EQ(ErrorsWithin(chain(DEEPEST_TYPE, 1, "ZulBool")), "");
    EXPECT_EQ(ErrorsWithin(chain(DEEPEST_TYPE + 1, 1, "ZulBool")),
              "c, line 33: \"S31\" is nested more than 32 levels deep, including its bases");
    EXPECT_EQ(ErrorsWithin(chain(30, 2, "ZulBool")),
              "c, line 23: \"S21\" has more than 1000 values, including those of its base and members");
    EXPECT_EQ(ErrorsWithin(chain(1, 1000, "ZulBool")), "");
    EXPECT_EQ(ErrorsWithin(chain(1, 1001, "ZulBool")).count('\n'), 0);
    // Long, wide and invalid, but read quickly.
    EXPECT_EQ(ErrorsWithin(chain(40'000, 1, "Nobody")).count('\n'), 1000);
    EXPECT_TRUE(ErrorsWithin(chain(20, 1000, "ZulBool")).contains("more than 1000 values"));

    // Objects have all members that the reader accepts.
    TestCatalogue deepest(chain(DEEPEST_TYPE, 1, "ZulBool"));
    const auto object = CreateType(deepest, {}, "S0");
    const CZulType *value = object.get();
    for (int i = 0; i < DEEPEST_TYPE; ++i) {
        value = static_cast<const CZulCustom *>(value)->FindMember("m0");
        ASSERT_TRUE(value) << i;
    }
    EXPECT_EQ(value->GetTypeId(), TYPE_BOOL);
}

TEST(CatalogueFile, AcceptsTheShippedAndTheDocumentedCatalogue)
{
    const Environment env(QStringLiteral("/nonexistent"));
    ClassCatalogue catalogue;
    std::vector<Finding> errors;
    EXPECT_TRUE(LoadCatalogue(env, QStringLiteral(SHIPPED_CATALOGUE), catalogue, errors))
        << CatalogueErrors(errors).join(u'\n').toStdString();
    EXPECT_EQ(catalogue.path, QStringLiteral(SHIPPED_CATALOGUE));
    for (const auto &entry : catalogue.entries) {
        const auto object = CreateType(catalogue, {}, entry->name);
        auto *const component = entry->kind == CLASS_CLASS ? static_cast<CZulClass *>(object.get()) : nullptr;
        if (!component || entry->excluded)
            continue;
        for (const auto &[name, id] :
             {std::pair("pos", TYPE_POINT), std::pair("size", TYPE_SIZE), std::pair("anchor", TYPE_FPOINT),
              std::pair("bgColor", TYPE_COLOR), std::pair("borderColor", TYPE_COLOR)}) {
            const CZulType *member = component->FindMember(name);
            EXPECT_TRUE(member && member->GetTypeId() == id) << entry->name.toStdString() << ' ' << name;
        }
    }
    QByteArray page;
    ASSERT_EQ(ReadFile(QStringLiteral(CATALOGUE_PAGE), page), 0);
    const qsizetype start = page.indexOf("<catalogue");
    EXPECT_EQ(ErrorsOf(page.sliced(start, page.indexOf("```", start) - start)), "");
    EXPECT_FALSE(LoadCatalogue(env, QStringLiteral("/nonexistent/c.xml"), catalogue, errors));
    EXPECT_EQ(CatalogueErrors(errors), QStringList{QStringLiteral("/nonexistent/c.xml: can't be opened")});
    EXPECT_FALSE(catalogue.entries.empty());
}
