// SPDX-License-Identifier: MIT
#include "TestProject.h"

using namespace Qt::StringLiterals;

TEST(ProjectSettings, OverrideOnlyAllowedKeysOfTheirProject)
{
    TestProject project("<APP/>", "[Text]\ncode_page=1252\n");
    project.folder.Put("demo/morvanite.ini", "[Text]\ncode_page=936\n[Layout]\nfolders=1\nspeed=2\n"
                                             "[Path]\nheader_output=..\\..\\x\n");
    QStringList explained;
    project.env->explain = [&](const QString &text) { explained.append(text); };
    const CResDoc *const doc = project.Open();
    ASSERT_NE(doc, nullptr);
    EXPECT_EQ(doc->env.WideToNarrow(u"\u4E2D"), "\xD6\xD0");
    EXPECT_EQ(project.env->WideToNarrow(u"\u4E2D"), "?") << "another project has its own";
    EXPECT_NE(doc->root.FindFolder(KIND_LAYOUTS, 1), nullptr);
    EXPECT_EQ(doc->env.settings.String("Path", "header_output", "mine"), u"mine");
    ASSERT_EQ(explained.size(), 2);
    EXPECT_TRUE(explained[0].contains(u"[Layout] speed"_s) && explained[1].contains(u"[Path] header_output"_s));

    project.documents.CloseAll();
    project.folder.Put("demo/morvanite.ini", "[Text]\ncode_page=martian\n");
    EXPECT_EQ(project.Open(), nullptr) << "with another one a save would destroy the texts";
    EXPECT_TRUE(explained.last().contains(u"martian"_s));
}
