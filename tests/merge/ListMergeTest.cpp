// SPDX-License-Identifier: MIT
#include "MergedText.h"

namespace
{

struct ListMerge : testing::Test
{
    static QByteArray List(const std::string &elements)
    {
        return QByteArray::fromStdString("<APP id=\"APP_demo\">\n" + elements + "</APP>\n");
    }

    void Expect(const std::string &base, const std::string &ours, const std::string &theirs, const std::string &merged,
                const char *conflicts = "")
    {
        const MergeResult result = MergeFiles(*program.env, {List(base), List(ours), List(theirs)});
        EXPECT_EQ(result.refusal.toStdString(), "");
        EXPECT_EQ(result.bytes.toStdString(), List(merged).toStdString());
        EXPECT_EQ(result.conflicts.join(u"; ").toStdString(), conflicts);
    }

    TestProgram program;
};

std::string File(const char *id, const char *path, const char *type = "Normal")
{
    return std::string("    <FILE id=\"") + id + "\" type=\"" + type + "\">" + path + "</FILE>\n";
}

std::string Screen(const std::string &images)
{
    return "    <RESOLUTION width=\"240\" height=\"320\" class=\"image\">\n" + images + "    </RESOLUTION>\n";
}

std::string Image(const char *id, const char *path)
{
    return std::string("        <IMAGE id=\"") + id + "\" type=\"Normal\">" + path + "</IMAGE>\n";
}

} // namespace

TEST_F(ListMerge, MergesAttributesPathsAndSections)
{
    Expect(File("A", "a") + Screen(Image("I", "i")), File("A", "a2 &amp; b") + File("O", "o") + Screen(Image("I", "i")),
           File("A", "a", "Push") + File("T", "t") + Screen(Image("I", "i") + Image("J", "j")) +
               Screen("").replace(23, 3, "176"),
           File("A", "a2 &amp; b", "Push") + File("O", "o") + File("T", "t") +
               Screen(Image("I", "i") + Image("J", "j")) +
               "    <RESOLUTION width=\"176\" height=\"320\" class=\"image\" />\n");
    Expect(File("A", "a") + File("B", "b") + File("C", "c") + Screen(Image("I", "i")),
           File("B", "b") + File("C", "c") + Screen(Image("I", "i")), File("A", "a") + File("C", "c"), File("C", "c"));
}

TEST_F(ListMerge, MarksElementsAndWholeSections)
{
    Expect(File("A", "a"), File("A", "a1", "Push"), File("A", "a2"),
           InConflict(File("A", "a1", "Push"), File("A", "a2", "Push")), "FILE A: path");
    const std::string changed = Screen(Image("I", "i") + Image("J", "j"));
    Expect(File("A", "a") + Screen(Image("I", "i")), File("A", "a"), File("A", "a") + changed,
           File("A", "a") + InConflict("", changed), "RESOLUTION 240 320 image: deleted in ours, changed in theirs");
    const MergeResult kept =
        MergeFiles(*program.env,
                   {List(File("A", "a")), List(File("A", "b") + File("X", "x")), List(File("A", "c") + File("X", "y"))},
                   OnConflict::KeepBase);
    EXPECT_EQ(kept.bytes, List(File("A", "a")));
}

TEST_F(ListMerge, KeepsTheFormOfOurs)
{
    const QByteArray ours = "<?xml version=\"1.0\"?>\r\n<APP id='x'><FILE id=\"A\">a</FILE>\r\n</APP>\r\n";
    const QByteArray theirs = List(File("B", "b"));
    EXPECT_EQ(MergeFiles(*program.env, {theirs, ours, theirs}).bytes, ours);
    EXPECT_EQ(MergeFiles(*program.env, {"", ours, theirs}).bytes,
              "<?xml version=\"1.0\"?>\r\n<APP id=\"x\">\r\n    <FILE id=\"A\">a</FILE>\r\n" +
                  QByteArray::fromStdString(File("B", "b")).replace("\n", "\r\n") + "</APP>\r\n");
}

TEST_F(ListMerge, RefusesWhatItWouldLoseOrMistake)
{
    const QByteArray good = List(File("A", "a"));
    for (const auto &[list, reason] : {
             std::pair(List(File("A", "a") + "<!-- note -->\n"), "line 3: the comment \"note\""),
             {List("") + "<!-- end -->\n", "line 3: the comment \"end\""},
             {List("loose\n"), "the text \"loose\""},
             {List("<NEWS/>\n"), "line 2: <NEWS> isn't known here"},
             {List(File("A", "a") + File("A", "b")), "line 3: <FILE A> is in line 2 too"},
             {List("<FILE>a</FILE>\n"), "<FILE> has no attribute \"id\""},
             {List("<FILE id=\"A\" size=\"1\">a</FILE>\n"), "no attribute \"size\", which would be lost"},
             {List("<FILE id=\"A\">a<B/></FILE>\n"), "<B> isn't known here"},
             {List("") + List(""), "only one outermost element"},
             {List("<FILE"), "isn't well-formed"},
             {List(File("A", "\xFF")), "no text in its encoding"},
             {List(InConflict(File("A", "a"), File("A", "b"))), "conflict marker"},
         }) {
        EXPECT_THAT(MergeFiles(*program.env, {good, good, list}).refusal.toStdString(), testing::HasSubstr(reason));
        EXPECT_NE(MergeFiles(*program.env, {good, list, good}).refusal, QString());
    }
}
