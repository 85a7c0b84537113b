// SPDX-License-Identifier: MIT
#include "FileLimit.h"
#include "LayoutFileObject.h"
#include "TestCatalogue.h"
#include "TestModel.h"

namespace
{

struct LayoutFile : testing::Test
{
    /// Loads a text as a file. Destroys the object of the previous call.
    int Load(const QByteArray &text)
    {
        file.emplace(env, pool, 3);
        program.folder.Put("in.xml", text);
        program.trace.clear();
        return file->Load(program.folder.Path("in.xml").toUtf8());
    }

    /// Returns the developer's log without the lines at the start of every load.
    [[nodiscard]] QByteArray Trace() const
    {
        const QByteArray start = "Parsing Layout xml file: " + program.folder.Path("in.xml").toUtf8() +
                                 "\nConvert Layout XML DS to Layout DS\n";
        EXPECT_TRUE(program.trace.startsWith(start)) << program.trace.constData();
        return program.trace.sliced(start.size());
    }

    QByteArray Saved()
    {
        EXPECT_EQ(file->Save(program.folder.Path("out.xml").toUtf8()), 0);
        return program.folder.Get("out.xml");
    }

    LayoutObject &First() { return *file->All().front(); }

    TestProgram program;
    Environment &env = *program.env;
    IDPool pool;
    std::optional<LayoutFileObject> file;
};

} // namespace

TEST_F(LayoutFile, IsReadIntoComponentsAndWrittenInItsFormat)
{
    ASSERT_EQ(
        Load("<?xml version='1.0'?><!-- old --><TarvoXML version='1'>text<!-- x --><Layout id='ID_A' more='1'>"
             "<!-- y -->text<Panel name='p' rect='(0,0,1,1)' pos='(1, 2)' text='a&lt;b &quot;c&quot; &#x0A;&amp;#x41;'>"
             "<Insets prop='border' left='1'/><Label name=''/></Panel><Label/></Layout><Layout id='ID_B'/>"
             "</TarvoXML>"),
        0);
    EXPECT_EQ(Trace(), "");
    EXPECT_TRUE(file->loaded);
    EXPECT_EQ(file->path, program.folder.Path("in.xml").toUtf8());
    ASSERT_EQ(file->All().size(), 2U);
    const ComponentObject &panel = *First().components.at(0);
    EXPECT_EQ(Dump(panel), "Panel pos=(1, 2) text=a<b \"c\" \n&#x41; {Insets prop=border left=1} {Label}");
    EXPECT_EQ(panel.name, "p");
    EXPECT_EQ(First().Id()->scope, 3);
    EXPECT_EQ(file->Find(pool.Find("ID_A", 3)), &First());

    const QByteArray written =
        "<TarvoXML>\n"
        "    <Layout id=\"ID_A\">\n"
        "        <Panel pos=\"(1, 2)\" text='a&lt;b &quot;c&quot; &#x0A;&amp;#x41;' name=\"p\">\n"
        "            <Insets prop=\"border\" left=\"1\" />\n"
        "            <Label />\n"
        "        </Panel>\n"
        "        <Label />\n"
        "    </Layout>\n"
        "    <Layout id=\"ID_B\" />\n"
        "</TarvoXML>\n";
    EXPECT_EQ(Saved(), written);
    ASSERT_EQ(Load(written), 0);
    EXPECT_EQ(Saved(), written);
    ASSERT_EQ(Load("<TarvoXML/>"), 0);
    EXPECT_TRUE(file->loaded && file->All().empty() && pool.IsEmpty());
    EXPECT_EQ(Saved(), "<TarvoXML />\n");
}

TEST_F(LayoutFile, KeepsTheCodePage)
{
    env.codePage.Select("936");
    ASSERT_EQ(Load("<TarvoXML><Layout id='ID_A'><A\xd6\xd0 b='\xd6\xd0' name='\xce\xc4'/></Layout></TarvoXML>"), 0);
    EXPECT_EQ(Dump(*First().components.front()), "A\xd6\xd0 b=\xd6\xd0");
    EXPECT_TRUE(Saved().contains("<A\xd6\xd0 b=\"\xd6\xd0\" name=\"\xce\xc4\" />"));
}

TEST_F(LayoutFile, ReportsEachFaultWithItsCodeAndMessage)
{
    struct Case
    {
        QByteArray text;
        int code;
        QByteArray trace;
        size_t layouts = 0;
    };
    for (const auto &[text, code, trace, layouts] :
         {Case{"<!-- nothing -->", -1500, ""},
          Case{"<tarvoXML/>", -1502, "File format error: \"tarvoXML\" should be \"TarvoXML\"\n"},
          Case{"<TarvoXML><Layout id='A'/><layout id='B'/></TarvoXML>", -1503, "unknown type when parsing LayoutXML\n",
               1},
          Case{"<TarvoXML><Layout/></TarvoXML>", -1505, "Not Enough Memory when new LayoutObject"},
          Case{"<TarvoXML><Layout id='A'/><Layout id='A'/></TarvoXML>", -1506, "Allocate ID from idpool fail\n", 1}}) {
        EXPECT_EQ(Load(text), code) << text.constData();
        EXPECT_EQ(Trace(), trace);
        EXPECT_EQ(file->All().size(), layouts);
        EXPECT_FALSE(file->loaded);
    }
    const auto failed = [&] {
        return file->path.isEmpty() && program.trace.contains("\nParse Layout Xml file fail: ");
    };
    for (const QByteArray &text :
         {QByteArray("<TarvoXML>"), "<TarvoXML><Layout id='A'>" + QByteArray("<B>").repeated(60000)})
        EXPECT_TRUE(Load(text) == -2 && failed()) << program.trace.constData();
    program.trace.clear();
    EXPECT_TRUE(file.emplace(env, pool, 3).Load("missing.xml") == -1 && failed()) << program.trace.constData();
    EXPECT_EQ(file->Load({}), -1);
    file.reset();
    EXPECT_TRUE(pool.IsEmpty()) << "the IDs are destroyed with the file";
}

TEST_F(LayoutFile, WritesNothingThatCannotBeReadBack)
{
    const QByteArray text = "<TarvoXML><Layout id='A'><B c='1'/></Layout></TarvoXML>";
    ASSERT_EQ(Load(text), 0);
    const NarrowText path = file->path;
    ComponentObject &b = *First().components.front();
    const auto fails = [&] {
        program.trace.clear();
        EXPECT_EQ(file->Save(path), -1512);
        EXPECT_EQ(program.trace, "Merge to XmlDS fail\n");
        EXPECT_EQ(program.folder.Get("in.xml"), text);
    };
    for (const char *name : {"", "1", "a b", "a>"}) {
        b.className = name;
        fails();
        b.className = "B";
        b.attributes.front().name = name;
        fails();
        b.attributes.front().name = "c";
    }
    for (int i = 0; i < 128; ++i)
        b.AddAttribute("c" + QByteArray::number(i), "");
    fails();
    b.attributes.pop_back();
    b.AddAttribute("c5", "last"); // of two attributes with one name the last value is used, in the place of the first
    ComponentObject *deepest = &b;
    for (int depth = 4; depth <= 257; ++depth) // the root, the layout and B are levels 1 to 3
        deepest = deepest->children.emplace_back(Component("D")).get();
    EXPECT_TRUE(Saved().contains(" c4=\"\" c5=\"last\" c6=\"\" "));
    deepest->children.push_back(Component("D"));
    fails();
    deepest->children.clear();

    EXPECT_EQ(file->Save({}), -4);
    EXPECT_EQ(program.trace, "Merge to XmlDS fail\nSave to xml file fail : \n");
    EXPECT_EQ(file->Save(program.folder.Path("gone/out.xml").toUtf8()), -3);
    EXPECT_EQ(WithFileLimit(100, [&] { return file->Save(path); }), -3);
    EXPECT_EQ(program.folder.Get("in.xml"), text);
    EXPECT_EQ(program.folder.Names(),
              QStringList({QStringLiteral("bin"), QStringLiteral("in.xml"), QStringLiteral("out.xml")}));
}

TEST_F(LayoutFile, HasOneLayoutForAnId)
{
    ASSERT_EQ(Load("<TarvoXML><Layout id='A'/></TarvoXML>"), 0);
    IDRecord *id = First().Id();
    EXPECT_EQ(file->Add(std::make_unique<LayoutObject>(id)), -1);
    EXPECT_EQ(id->refs, 1);
    program.trace.clear();
    EXPECT_EQ(First().AddComponent(env, nullptr), -1);
    EXPECT_EQ(program.trace, "NULL pointer\n");
    file->Remove(id);
    file->Remove(id);
    EXPECT_TRUE(file->All().empty() && pool.IsEmpty());
}

TEST_F(LayoutFile, ReportsTextsThatTheCodePageCannotHold)
{
    ASSERT_EQ(Load("<TarvoXML><Layout id='ID_A'>\n<Panel name='M\xE4"
                   "dchen' text='\xC3\xA4'/></Layout></TarvoXML>"),
              0);
    ASSERT_EQ(file->lostTexts, 1);
    EXPECT_EQ(file->lost.front().row, 2);
    ASSERT_TRUE(env.codePage.Select("936"));
    ASSERT_EQ(Load("\xEF\xBB\xBF<TarvoXML><Layout id='ID_A'><Panel name='\xE4\xB8\xAD' text='\xF0\x9F\x98\x80'>"
                   "<Label text='\xEF\xBF\xBD'/></Panel></Layout></TarvoXML>"),
              0);
    ASSERT_EQ(file->lostTexts, 2);
    EXPECT_EQ(file->lost.front().text.toUtf8(), "\xF0\x9F\x98\x80");
}
