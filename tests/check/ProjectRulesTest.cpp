// SPDX-License-Identifier: MIT
#include "CheckedProject.h"

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace
{

constexpr char HEADER[] = "String ID|Resource Type|Description|English(0)|Français(1)\n";

/// A string file with two languages and these rows.
QByteArray Strings(const QByteArray &rows, const QByteArray &languages = "2")
{
    return "Number of Language|" + languages + '\n' + HEADER + rows + "##number|" +
           QByteArray::number(rows.count('\n')) + '\n';
}

QByteArray HeaderOf(const QByteArrayList &defines)
{
    return "#define " + defines.join("\r\n#define ") + "\r\n";
}

} // namespace

TEST(LoadRules, AProjectWithoutFaultsHasNoFinding)
{
    CheckedProject project;
    project.PutStrings(Strings("ID_A|Normal|about|Yes|Oui\n"));
    EXPECT_THAT(project.RulesThatFire(), IsEmpty());
}

TEST(LoadRules, EachFaultOfAListBelongsToOneRule)
{
    CheckedProject project("<APP id=\"APP_demo\">\n"
                           "    <FILE id=\"ID_A\" type=\"Normal\">a.bin</FILE>\n"
                           "    <FILE id=\"ID_A\" type=\"Normal\">a.bin</FILE>\n"
                           "    <SOUND id=\"ID_B\" />\n"
                           "    <RESOLUTION width=\"99\" height=\"99\" class=\"image\" />\n"
                           "</APP>\n");
    project.folder.Put("demo/a.bin", "0123456789");
    EXPECT_THAT(project.Findings({"id-conflict"}),
                ElementsAre("demo.res.xml:3 ID_A: <FILE> is left out: another resource has the ID ID_A"));
    EXPECT_THAT(project.Findings({"element-dropped"}),
                ElementsAre(StartsWith("demo.res.xml:4 ID_B: <SOUND> is left out")));
    EXPECT_THAT(
        project.Findings({"resolution-unlisted"}),
        ElementsAre(HasSubstr("res.xml:5 : <RESOLUTION> is left out: the list of screen sizes doesn't contain 99x99")));
    EXPECT_THAT(project.Findings({"lists-unsaved"}), IsEmpty()) << "what is lost isn't told twice";
    project.screens = {{240, 320}, {100, 100}};
    EXPECT_THAT(project.Findings({"resolution-unlisted"}),
                Contains(HasSubstr("the list of screen sizes doesn't contain 100x100")));
}

TEST(LoadRules, TheFormOfTheStringFile)
{
    CheckedProject project;
    project.PutStrings(Strings("ID_A|Normal|about|Yes|Oui|Ja\nID_A|Normal|about|Yes|Oh oui\n"));
    EXPECT_THAT(project.Findings({"string-file-form", "id-conflict"}),
                ElementsAre(StartsWith("ref_list_demo.txt:3 ID_A: the text \"Ja\" is left out"),
                            StartsWith("ref_list_demo.txt:4 ID_A: the text \"Oui\" is left out")));

    project.PutStrings(Strings("ID_A|Normal|about|Yes|Oui\n", "3"));
    EXPECT_THAT(project.Findings({"string-file-form"}),
                ElementsAre("ref_list_demo.txt:2 : line 1 says that there are 3 languages, but line 2 has 2"));

    const QByteArray whole = StringFileBytes(Strings("ID_A|Normal|about|Yes|Oui\n"));
    project.folder.Put("demo/res/ref_list_demo.txt", whole.sliced(2));
    EXPECT_THAT(project.Findings({"string-file-form"}), ElementsAre(HasSubstr("doesn't begin with the bytes FF FE")));
    project.folder.Put("demo/res/ref_list_demo.txt", Strings("ID_A|Normal|about|Yes|Oui\n"));
    EXPECT_THAT(project.Findings({"string-file-form", "project-unreadable"}),
                ElementsAre("demo.vcproj:0 : the project can't be opened, so nothing else was checked",
                            HasSubstr("doesn't begin with the bytes FF FE")));
}

TEST(LoadRules, AProjectThatDoesNotOpenHasItsReasons)
{
    CheckedProject project("<APP>\n<FILE\n</APP>");
    project.folder.Put("demo/morvanite-check.ini", "[Severity]\nproject-unreadable=off\n");
    EXPECT_THAT(project.Findings({"project-unreadable"}), ElementsAre(HasSubstr("demo.res.xml")))
        << "switched off, it would look as if all were right";
    project.folder.Put("demo/config.xml", TestProject::Config("1", "240", "320"));
    EXPECT_THAT(project.Findings({"project-unreadable"}), ElementsAre(HasSubstr("zepversion 1")));
}

TEST(LoadRules, MarksOfAMergeAndMissingSettings)
{
    CheckedProject project("<APP id=\"APP_demo\">\n<<<<<<< ours\n=======\n>>>>>>> theirs\n</APP>\n");
    EXPECT_THAT(project.Findings({"conflict-marker"}),
                ElementsAre(HasSubstr("res.xml:2"), HasSubstr("res.xml:3"), HasSubstr("res.xml:4")));

    project.PutStrings(Strings("<<<<<<< ours\nID_A|Normal||One|Un\n=======\nID_A|Normal||Two|Un\n>>>>>>> theirs\n"));
    EXPECT_THAT(project.Findings({"conflict-marker", "id-invalid", "string-file-form", "id-conflict"}),
                ElementsAre(HasSubstr("txt:3 "), HasSubstr("txt:5 "),
                            HasSubstr("txt:6 ID_A: the text \"One\" is left out: \"Two\" follows"),
                            HasSubstr("txt:7 ")));

    CheckedProject other("<APP id=\"APP_demo\" />\n", "[Layout]\ncatalogue=none.xml\nfolders=1\n", "Count=0\n");
    other.folder.Put("bin/sizes.ini", "[Sizes]\n240x320\n");
    EXPECT_THAT(
        other.Findings({"settings-missing"}),
        ElementsAre(HasSubstr("no types of resources"), HasSubstr("none.xml"), HasSubstr("no section Resolution")));
}

TEST(SavedFormRules, WhatASaveWouldChange)
{
    CheckedProject project;
    project.PutStrings(Strings("ID_A|normal|about|Yes|Oui\nID_B|Normal|about|Yes|Oui\n"));
    EXPECT_THAT(project.Findings({"lists-unsaved"}),
                ElementsAre("ref_list_demo.txt:3 : a save would change the file, from this line on"));
    project.PutStrings(Strings("ID_A|Normal|about|Yes|Oui\n"));
    project.folder.Put("demo/res/demo.res.xml",
                       "<APP id=\"APP_demo\">\n    <RESOLUTION width=\"240\" height=\"320\" class=\"image\" />\n"
                       "  <STRING>res\\ref_list_demo.txt</STRING>\n</APP>\n");
    EXPECT_THAT(project.Findings({"lists-unsaved"}),
                ElementsAre("demo.res.xml:3 : a save would change the file, from this line on"));

    EXPECT_THAT(project.Findings({"header-stale"}), IsEmpty()) << "there is no header that could be out of date";
    ASSERT_TRUE(project.Open()->DoFileSave());
    EXPECT_THAT(project.Findings({"header-stale", "lists-unsaved"}), IsEmpty());
    project.PutStrings(Strings("ID_A|Normal|about|Yes|Oui\nID_B|Normal|about|Yes|Oui\n"));
    EXPECT_THAT(project.Findings({"header-stale"}), ElementsAre(HasSubstr("ResID.h:")));
}

TEST(IdRules, NamesThatCAndPeopleMisread)
{
    CheckedProject project;
    project.PutStrings(Strings("int|Normal|about|Yes|Oui\n"
                               "co_await|Normal|reviewed [ignore:id-invalid]|Yes|Oui\n"
                               "integer|Normal|about|Yes|Oui\n"
                               "ID_É|Normal|about|Yes|Oui\n"
                               "1D|Normal|about|Yes|Oui\n"
                               "Integer|Normal|about|Yes|Oui\n"));
    EXPECT_THAT(project.Findings({"id-invalid"}),
                ElementsAre("ref_list_demo.txt:3 int: this is a keyword of C or C++",
                            HasSubstr("ref_list_demo.txt:6 ID_É: an ID can have only the letters A to Z"),
                            HasSubstr("ref_list_demo.txt:7 1D: an ID has 1 to 64 letters")));
    EXPECT_THAT(project.Findings({"id-case"}),
                ElementsAre("ref_list_demo.txt:5 integer: the ID differs from Integer only in case"));
}

TEST(IdRules, SourcesAndLayoutsUseIds)
{
    CheckedProject project("<APP id=\"APP_demo\">\n"
                           "    <FILE id=\"ID_DATA\">a.bin</FILE>\n"
                           "    <FILE id=\"ID_UNUSED\">a.bin</FILE>\n"
                           "    <RESOLUTION width=\"240\" height=\"320\" class=\"layout\">\n"
                           "        <LAYOUT>res\\main.xml</LAYOUT>\n"
                           "    </RESOLUTION>\n"
                           "    <IMAGE id=\"ID_IN_LAYOUT\">a.bin</IMAGE>\n"
                           "</APP>\n",
                           "[Layout]\nfolders=1\n");
    project.folder.Put("demo/res/main.xml", "<TarvoXML>\n    <Layout id=\"ID_MAIN\">\n"
                                            "        <Image src=\"@ID_IN_LAYOUT\" />\n    </Layout>\n</TarvoXML>\n");
    project.folder.Put("demo/morvanite-check.ini", "[Sources]\nfiles=src/**/*.c, ../app/*.h, none/*.c\n");
    project.folder.Put("demo/src/deep/er/main.c", "// ID_IN_COMMENT\n"
                                                  "#define ID_OWN ID_DATA\n"
                                                  "int é = Show(\"ID_IN_TEXT\", ID_OWN, ID_GONE, ID_GONE);\n");
    project.folder.Put("demo/src/ResID.h", "#define ID_UNUSED 1\n");
    project.folder.Put("demo/src/.hidden/a.c", "ID_HIDDEN\n");
    project.folder.Put("app/ResID.h", "int a = ID_UNUSED;\n");
    EXPECT_THAT(project.Findings({"id-unused"}),
                ElementsAre("morvanite-check.ini:2 : section Sources, key files: no file matches \"none/*.c\"",
                            "demo.res.xml:3 ID_UNUSED: no source file and no layout uses the ID",
                            "main.xml:2 ID_MAIN: no source file and no layout uses the ID"));
    const std::vector<Finding> all = project.Check();
    const auto gone = std::find_if(all.begin(), all.end(), [](const Finding &f) { return f.id == u"ID_GONE"; });
    ASSERT_NE(gone, all.end());
    EXPECT_EQ(gone->line, 3);
    EXPECT_EQ(gone->column, 36) << "in UTF-16 units";
    EXPECT_EQ(project.Findings({"id-undefined"}).size(), 1U);
    project.folder.Put("demo/morvanite-check.ini", "[Sources]\nfiles=none/*.c\n");
    EXPECT_EQ(project.Findings({"id-unused"}).size(), 1U) << "without any source not all IDs are unused";
    project.folder.Put("demo/morvanite-check.ini", "[Sources]\nfiles=src/**/*.c\n");
    project.folder.Put("demo/res/main.xml", "<TarvoXML");
    EXPECT_THAT(project.Findings({"id-unused", "id-undefined"}), IsEmpty()) << "the layout isn't known";
}

TEST(IdRules, NumbersOfAnEarlierHeader)
{
    CheckedProject project;
    project.PutStrings(Strings("ID_A|Normal|||\nID_B|Normal|||\nID_C|Normal|||\nID_P|Push|||\n"));
    project.oldHeader = project.folder.Path("old.h");
    project.folder.Put("old.h", HeaderOf({"_OLD_H_", "ID_A 1", "ID_B 2", "ID_C 3", "ID_P 104000"}));
    EXPECT_THAT(project.Findings({"id-renumbered"}), IsEmpty());
    project.folder.Put("old.h", HeaderOf({"ID_A 1", "ID_AA 2", "ID_B 3", "ID_P 4"}));
    EXPECT_THAT(project.Findings({"id-renumbered"}),
                ElementsAre("old.h:2 ID_AA: the number was 2, and the project no longer has the ID",
                            "old.h:3 ID_B: the number was 3 and is 2 now",
                            "old.h:4 ID_P: the number was 4 and is 104000 now"));
    project.oldHeader = project.folder.Path("missing.h");
    EXPECT_THAT(project.Findings({"id-renumbered"}), ElementsAre(HasSubstr("missing.h")));
}

TEST(IdRules, NineTenthsOfARange)
{
    const auto list = [](int count) {
        QByteArray text = "<APP id=\"APP_demo\">\n";
        for (int i = 0; i < count; ++i)
            text += "<FILE id=\"ID_" + QByteArray::number(i) + "\" type=\"Push\">a.wav</FILE>\n";
        return text + "</APP>\n";
    };
    EXPECT_THAT(CheckedProject(list(899)).Findings({"id-range"}), IsEmpty());
    EXPECT_THAT(CheckedProject(list(900)).Findings({"id-range"}),
                ElementsAre(HasSubstr("900 of the 1000 numbers of Push resources of the kind \"audio\" are used")));
    EXPECT_THAT(CheckedProject(list(1001)).Findings({"id-range", "header-stale"}),
                ElementsAre(HasSubstr("1001 of the")));
}
