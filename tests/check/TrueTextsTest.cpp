// SPDX-License-Identifier: MIT
#include "TrueTexts.h"
#include "CheckInput.h"
#include "CheckProject.h"
#include "Rules.h"
#include "StringFileBytes.h"
#include "TestProject.h"
#include "TextContext.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace
{

/// The findings of the rules about texts in a project with a string file in the form of `StringFileBytes`.
std::vector<Finding> FindingsIn(const QByteArray &rows, const QByteArray &languages)
{
    TestProject project(R"(<APP id="APP_demo"><STRING>res\ref_list_demo.txt</STRING></APP>)");
    project.folder.Put("demo/res/ref_list_demo.txt", StringFileBytes(rows));
    project.folder.Put("bin/tuvik.ini", languages);
    CResDoc *const document = project.Open();
    EXPECT_NE(document, nullptr);
    CheckSettings settings;
    for (const Rule &rule : AllRules()) {
        if (rule.group != RuleGroup::Texts)
            settings.levels[IndexOf(rule)] = RuleLevel::Off;
    }
    const TextContext texts(*document, settings);
    return CheckProject({*document, settings, texts, {}, {}, {}});
}

std::vector<std::string> Listed(const std::vector<Finding> &findings)
{
    std::vector<std::string> lines;
    for (const Finding &finding : findings) {
        lines.push_back((u"%1:%2 %3 %4"_s.arg(finding.line).arg(finding.column).arg(finding.id).arg(finding.language) +
                         u' ' + finding.text + u" ["_s + QString::fromLatin1(finding.code) + u']')
                            .toStdString());
    }
    return lines;
}

} // namespace

TEST(TrueTexts, HaveNoFindings)
{
    std::vector<QByteArray> codes;
    const QByteArray table = Bytes(LANGUAGE_TABLE);
    const QByteArray rows = TrueTexts(table, codes);
    EXPECT_EQ(codes.size(), 12U);
    EXPECT_GE(rows.count('\n'), 25);
    EXPECT_THAT(Listed(FindingsIn(rows, table)), testing::IsEmpty());
    // The rules did look at them: with another text in one place there is a finding.
    EXPECT_THAT(Listed(FindingsIn(QByteArray(rows).replace("Akku schwach: %d", "Akku schwach: %s"), table)),
                testing::ElementsAre(testing::HasSubstr("ID_BATTERY_LOW 8 %s where English has %d")));
}

TEST(RowRules, FindRowsAndTranslationsThatAreRepeatedOrDiffer)
{
    const QByteArray rows = "Number of Language|2\nString ID|Resource Type|Description|English(0)|French(2)\n"
                            "ID_A|Normal|verb|Open|Ouvrir\n"
                            "ID_B|Normal|adjective|Open|Ouvert\n"
                            "ID_C|Normal|other|Open|Ouvrir\n"
                            "ID_D|Normal|verb|Open|Ouvrez\n"
                            "ID_E|Normal|verb|Open|\n"
                            "ID_F|Normal|none||\n"
                            "ID_G|Normal|none||\n"
                            "ID_H|Normal|same [ignore:duplicate-text]|Open|Ouvrir\n"
                            "##number|8\n";
    EXPECT_THAT(Listed(FindingsIn(rows, "[Language]\nEnglish=0\nFrench=1\n")),
                testing::ElementsAre(
                    "2:0  2 the language has the number 2 here and the number 1 in tuvik.ini [language-unknown]",
                    "5:1 ID_C -1 ID_A has the same texts [duplicate-text]",
                    "6:23 ID_D 2 ID_A has another translation of the same text: \"Ouvrir\" [inconsistent-translation]",
                    testing::HasSubstr("ID_E 2 the translation is missing")));
    EXPECT_THAT(Listed(FindingsIn(rows, "[Language]\nEnglish=0\n")),
                testing::Contains("2:0  2 tuvik.ini doesn't have this language [language-unknown]"));
}

/// The code decides how the marks of a language are compared.
TEST(LanguageCodes, ComeFromTheProgramsTable)
{
    const QByteArray rows = "Number of Language|2\nString ID|Resource Type|Description|English(0)|Greek(35)\n"
                            "ID_A|Normal|about|Delete it?|Να διαγραφεί;\n##number|1\n";
    EXPECT_THAT(Listed(FindingsIn(rows, "[Language]\nEnglish=0\nGreek=35\n[Code]\n0=en\n35=el\n")), testing::IsEmpty());
    EXPECT_THAT(Listed(FindingsIn(rows, "[Language]\nEnglish=0\nGreek=35\n")),
                testing::ElementsAre(testing::HasSubstr("[end-punctuation]")));
}
