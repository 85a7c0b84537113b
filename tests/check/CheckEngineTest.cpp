// SPDX-License-Identifier: MIT
#include "Baseline.h"
#include "CheckedProject.h"
#include "NewProjectTexts.h"

#include <QFile>
#include <QRegularExpression>

#include <set>

using namespace Qt::StringLiterals;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace
{

constexpr char ROWS[] = "Number of Language|2\nString ID|Resource Type|Description|English(0)|Français(1)\n"
                        "ID_A|Normal|about|Yes|\n"
                        "ID_B|Normal|a row [note]|Two  blanks|Deux blancs.\n"
                        "ID_C|Normal|note [ignore:translation-missing, ignore: double-blank]|Two  blanks|\n"
                        "##number|3\n";

std::vector<Finding> OnlyOfTexts(std::vector<Finding> findings)
{
    std::erase_if(findings, [](const Finding &finding) { return finding.id.isEmpty(); });
    return findings;
}

std::vector<std::string> Places(const std::vector<Finding> &findings)
{
    std::vector<std::string> places;
    for (const Finding &finding : findings)
        places.push_back(u"%1:%2 %3"_s.arg(finding.line).arg(finding.column).arg(finding.id).toStdString() + ' ' +
                         finding.code);
    return places;
}

struct CheckedRows : CheckedProject
{
    CheckedRows() { PutStrings(ROWS); }
    void PutSettings(const QByteArray &settings) const { folder.Put("demo/morvanite-check.ini", settings); }
    std::vector<std::string> PlacesOfTexts() { return Places(OnlyOfTexts(Check())); }
};

} // namespace

TEST(CheckSettings, EveryLineWithoutMeaningIsAFindingAtItsLine)
{
    const std::pair<QByteArray, const char *> wrong[] = {
        {"[Checks]\nsource=English", "no such section"},
        {"[Check]\nsources=English", "has the keys"},
        {"[Check]\nplaceholders=printf, curly", "\"curly\" isn't a kind"},
        {"[Check]\ntarget=240x320, large", "\"large\" isn't the size"},
        {"[Check]\nsource=Nowhereish", "no language \"Nowhereish\""},
        {"[Severity]\nno-such-rule=off", "no rule"},
        {"[Severity]\nfile-missing=Fatal", "off, note, warning or error"},
        {"[Ignore]\nno-such-rule=ID_A", "no rule"},
        {"[Sources]\nfolder=src", "has the keys"},
        {"[Font]\ndefault=ui.ttf", "a file and a size"},
        {"[Font]\ndefault=ui.ttf 1001", "a file and a size"},
        {"[Limit]\nID_*=height 12", "\"height 12\" isn't a limit"},
        {"[Limit]\nID_*=length 0", "\"length 0\" isn't a limit"},
        {"[Audio]\nchannels=0", "\"0\" isn't a number above 0"},
        {"[Audio]\ncodec=flac", "\"flac\" isn't a codec; use pcm, "},
        {"[Audio]\nsize=1", "has the keys"},
        {"[Language]\nGerman=de", "number of a language"},
        {"[Language]\n65535=de", "number of a language"},
        {"[Check]\nsource English", "neither a section"},
        {"[Check]\n=English", "neither a section"},
        {"[Check]\n[Font", "alone in its line"},
        {"[Check]\n[check]\nsource=Nowhereish", "a second time"},
        {"[Check]\n[Font] default=ui.ttf 16", "alone in its line"},
        {"[Language]\n8=de_AT", "isn't a BCP 47 code"},
    };
    CheckedRows project;
    for (const auto &[settings, text] : wrong) {
        SCOPED_TRACE(settings.constData());
        project.PutSettings(settings + '\n');
        EXPECT_THAT(project.Findings({"check-settings"}),
                    ElementsAre(AllOf(HasSubstr("morvanite-check.ini:2 "), HasSubstr(text))));
    }
    project.PutSettings("; one\n\n [check] ; two\nSOURCE=0\nplaceholders=none\ntarget=240x320\n"
                        "[Limit]\nID_*=length 3, width 4, lines 5\n[Language]\n0=en\n[Ignore]\nid-case=ID_*\n");
    EXPECT_THAT(project.Findings({"check-settings"}), IsEmpty());
}

TEST(CheckSettings, ThoseOfANewProjectAreRightAlsoWithoutTheirCommentMarks)
{
    const QString text = QString::fromUtf8(CheckSettingsText({{}, u"demo"_s, {{240, 320}}, {{u"English"_s, 0, {}}}}));
    static const QRegularExpression OFF(u"^;(?=\\S)"_s, QRegularExpression::MultilineOption);
    CheckedRows project;
    for (const QString &settings : {text, QString(text).remove(OFF)}) {
        project.PutSettings(settings.toUtf8());
        std::vector<Finding> findings;
        (void)ReadCheckSettings(project.folder.Path("demo"), findings);
        EXPECT_THAT(findings, IsEmpty());
    }
}

TEST(CheckSettings, AnUnknownWordOfTheNotesOfARowIsAFinding)
{
    CheckedProject project;
    project.PutStrings("Number of Language|1\nString ID|Resource Type|Description|English(0)\n"
                       "ID_A|Normal|a [size:3, same, x]|Yes\nID_B|Normal|see [page 3]|No\n"
                       "ID_C|Normal|[ignore:double-blanks]|Two  blanks\n##number|3\n");
    EXPECT_THAT(project.Findings({"check-settings"}),
                ElementsAre(AllOf(HasSubstr("txt:3 ID_A"), HasSubstr("\"size:3\"")),
                            AllOf(HasSubstr("txt:3 ID_A"), HasSubstr("\"x\"")),
                            AllOf(HasSubstr("txt:5 ID_C"), HasSubstr("\"ignore:double-blanks\""))));
    EXPECT_THAT(Places(OnlyOfTexts(project.Check())),
                ElementsAre("3:16 ID_A check-settings", "3:30 ID_A check-settings", "5:14 ID_C check-settings",
                            "5:36 ID_C double-blank"));
}

TEST(CheckSettings, PatternsOfIds)
{
    for (const auto &[text, pattern, matches] : std::initializer_list<std::tuple<QString, QString, bool>>{
             {u"ID_A"_s, u"ID_A"_s, true},
             {u"ID_A"_s, u"id_a"_s, false},
             {u"ID_AB"_s, u"ID_A"_s, false},
             {u"ID_DEBUG_A"_s, u"ID_DEBUG_*"_s, true},
             {u"ID_DEBUG_"_s, u"ID_DEBUG_*"_s, true},
             {u"ID_A_B_A_C"_s, u"*_A_C"_s, true},
             {u"ID_A_B_A_C"_s, u"ID*A*A"_s, false},
             {u""_s, u"*"_s, true},
             {u"ID"_s, u""_s, false},
         })
        EXPECT_EQ(MatchesPattern(text, pattern), matches) << qPrintable(text) << " " << qPrintable(pattern);
}

TEST(CheckEngine, FindingsAreInTheOrderOfTheirPlacesAndHaveColumns)
{
    CheckedRows project;
    project.PutSettings("[Severity]\nduplicate-text=off\ninconsistent-translation=off\n");
    EXPECT_THAT(project.PlacesOfTexts(),
                ElementsAre("3:23 ID_A translation-missing", "4:26 ID_B double-blank", "4:38 ID_B end-punctuation"));
    project.PutSettings("[Severity]\nduplicate-text=off\ninconsistent-translation=off\ndouble-blank=off\n"
                        "translation-missing=error\nend-punctuation=off\n");
    const std::vector<Finding> findings = OnlyOfTexts(project.Check());
    EXPECT_THAT(Places(findings), ElementsAre("3:23 ID_A translation-missing"));
    EXPECT_EQ(findings.front().severity, Severity::Error);
    project.PutSettings("[Ignore]\ntranslation-missing=ID_A*, ID_X\ndouble-blank=*\nduplicate-text=*\n"
                        "inconsistent-translation=*\nend-punctuation=ID_B\n");
    EXPECT_THAT(project.PlacesOfTexts(), IsEmpty());
}

TEST(Baseline, AcceptsWhatItWasWrittenFromAndNothingElse)
{
    CheckedRows project;
    const QString folder = project.folder.Path("demo");
    const std::vector<Finding> before = project.Check();
    const QByteArray bytes = Baseline::Bytes(before, folder);
    EXPECT_EQ(bytes.count('\n'), qsizetype(before.size()));

    const auto apply = [&](const QByteArray &baseline, std::vector<Finding> findings) {
        Baseline accepted;
        std::vector<Finding> known;
        std::vector<Finding> wrong;
        accepted.Parse(baseline, u"/base"_s, wrong);
        accepted.Apply(findings, known, folder);
        findings.insert(findings.end(), wrong.begin(), wrong.end());
        return Places(findings);
    };
    EXPECT_THAT(apply(bytes, before), IsEmpty());
    EXPECT_THAT(apply("# ours\r\n" + QByteArray(bytes).replace("\n", "\r\n"), before), IsEmpty());

    // Other rows before them change no fingerprint, another text does.
    project.PutStrings(QByteArray(ROWS).replace("ID_A|", "ID_0|Normal||x|y\nID_A|").replace("3\n", "4\n"));
    EXPECT_THAT(apply(bytes, project.Check()), IsEmpty());
    project.PutStrings(QByteArray(ROWS).replace("|Yes|", "|Yes.|"));
    EXPECT_THAT(apply(bytes, project.Check()),
                ElementsAre("3:24 ID_A translation-missing", HasSubstr("baseline-stale")));
    EXPECT_THAT(apply("double-blank\tID_B\t0\n" + bytes, before), ElementsAre(HasSubstr("1:0  baseline-line")));
    EXPECT_THAT(apply(bytes.first(bytes.indexOf('\n') + 1) + bytes, before), ElementsAre(HasSubstr("baseline-stale")))
        << "one line accepts one finding";
}

TEST(Checks, TheDocumentHasTheRulesOfTheTable)
{
    QFile file(QStringLiteral(MORVANITE_DOCS "/checks.md"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    std::vector<std::string> documented;
    for (const QByteArray &line : file.readAll().split('\n')) {
        const QByteArrayList cells = line.split('|');
        if (cells.size() == 6 && cells[1].startsWith(" `") &&
            FindRule(QString::fromUtf8(cells[1].trimmed().chopped(1).sliced(1))))
            documented.push_back((cells[1].trimmed() + ' ' + cells[2].trimmed()).toStdString());
    }
    std::vector<std::string> rules;
    for (const Rule &rule : AllRules()) {
        // "ID (level): summary", then the explanation
        const QString text = ExplanationOf(rule);
        rules.push_back('`' + std::string(rule.id) + "` " +
                        text.sliced(text.indexOf(u'(') + 1).split(u')').front().toStdString());
        EXPECT_TRUE(text.startsWith(QLatin1StringView(rule.id)) && text.count(u'\n') == 2) << rule.id;
    }
    const auto sorted = [](std::vector<std::string> list) {
        std::sort(list.begin(), list.end());
        return list;
    };
    EXPECT_EQ(sorted(documented), sorted(rules));
    EXPECT_EQ(std::set<std::string>(rules.begin(), rules.end()).size(), rules.size()) << "no ID twice";
}
