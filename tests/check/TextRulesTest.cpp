// SPDX-License-Identifier: MIT
#include "Rules.h"
#include "TestModel.h"
#include "TextContext.h"
#include "TextFeatures.h"

#include <gmock/gmock.h>

#include <iterator>

using namespace Qt::StringLiterals;

namespace
{

/// A text and its English source text, and the part of the finding that must be there; null for no finding.
struct Case
{
    QStringView source;
    QStringView text;
    const char *finding = nullptr;
    QStringView code = u"fr";
    QStringView notes = {}; ///< the end of the row's description
};

/// What a rule finds in a translation. The rule isn't called without the features that it needs, as in a real check.
QString Found(const char *rule, const Case &tested, quint32 placeholders)
{
    TestModel model;
    CheckSettings settings;
    settings.placeholders = placeholders;
    const TextContext context(model, settings);
    const Rule &row = *FindRule(QString::fromLatin1(rule));
    const CheckedLanguage english{0, u"English"_s, u"en"_s};
    const CheckedLanguage language{1, u"Other"_s, tested.code.toString()};
    const RowNotes notes = NotesOf(tested.notes);
    const TextLimit limit = context.LimitOf(u"ID_X", notes);
    const TextPair pair{
        tested.source, tested.text, FeaturesOf(tested.source), FeaturesOf(tested.text), english, language,
        notes,         limit};
    return row.needs & (pair.sourceFeatures | pair.features) ? row.text(pair, context) : QString();
}

constexpr quint32 ALL = PLACEHOLDERS_PRINTF | PLACEHOLDERS_BRACES | PLACEHOLDERS_NUMBERED;

void Expect(const char *rule, std::initializer_list<Case> cases, quint32 placeholders = ALL)
{
    for (const Case &tested : cases) {
        const std::string found = Found(rule, tested, placeholders).toStdString();
        const std::string texts = (tested.source.toString() + u" -> "_s + tested.text.toString()).toStdString();
        if (tested.finding)
            EXPECT_THAT(found, testing::HasSubstr(tested.finding)) << rule << ": " << texts;
        else
            EXPECT_EQ(found, "") << rule << ": " << texts;
    }
}

} // namespace

TEST(TextRules, PlaceholdersOfPrintfMustTakeTheSameArguments)
{
    Expect("placeholder-mismatch",
           {
               {u"%d of %s", u"%i de %s"},
               {u"%d of %s", u"%s de %d", "%s where English has %d"},
               {u"%d of %s", u"%2$s: %1$d"},
               {u"%1$d of %2$s", u"%2$s: %1$s", "%1$s where English has %1$d"},
               {u"%5.1f", u"%-8.3lf"},
               {u"%*d", u"%d", "%*d is missing; English has it"},
               {u"%ld", u"%d", "%d where English has %ld"},
               {u"%x", u"%u"},
               {u"%u", u"%d", "%d where"},
               {u"%d", u"un", "%d is missing; English has it"},
               {u"one", u"%d", "English doesn't have %d"},
               {u"%d%%", u"%d %", "\"%\" doesn't begin a placeholder"},
               {u"%d%%", u"%%%d"},
               {u"%s %s", u"%1$s %s", "numbered and other"},
               {u"100%", u"100 %"},
               {u"50% of it", u"50 % d'une"},
               {u"{} %s", u"%s"},
           },
           PLACEHOLDERS_PRINTF);
}

TEST(TextRules, APercentSignOfProseIsNoPlaceholder)
{
    Expect("placeholder-mismatch", {
                                       {u"Half of 50% is 25%", u"50%-a és 25%", nullptr, u"hu"},
                                       {u"100% safe", u"100%ige Sicherheit", nullptr, u"de"},
                                       {u"20% full", u"%20si dolu", nullptr, u"tr"},
                                       {u"20% full", u"%30 dolu", "English doesn't have %30", u"tr"},
                                       {u"%10 full", u"%1", "English doesn't have %1"},
                                       {u"{0}% or more", u"{0}% o más", nullptr, u"es"},
                                   });
}

TEST(TextRules, BracesAndNumbersAreComparedByName)
{
    Expect("placeholder-mismatch",
           {
               {u"{a} of {b:>5}", u"{b} de {a}"},
               {u"{name}", u"{nom}", "{name} is missing; English has it"},
               {u"{}, {}", u"{}", "{} occurs 1 time here and 2 times in English"},
               {u"{n, plural, one {# day} other {days}}", u"{n, plural, one {# jour} other {jours}}"},
               {u"press {the key}", u"presser {une touche}"},
               {u"%1 and %L2", u"%2 et %1 et %1"},
               {u"%1s", u"%1秒"},
               {u"%1 and %2", u"%1 et %3", "%2 is missing; English has it"},
               {u"%1 of %n", u"%1", "%n is missing; English has it"},
               {u"%5d", u"%1", "%5d is missing; English has it"},
           });
    Expect("placeholder-mismatch", {{u"{name} %d", u"{nom} %1"}}, 0);
}

TEST(TextRules, EscapeSequences)
{
    Expect("escape-mismatch", {
                                  {uR"(a\nb\x41)", uR"(c\nd\x42)"},
                                  {uR"(a\nb)", uR"(c d)", R"(\n occurs 0 times here and 1 time in English)"},
                                  {uR"(\"a\")", u"« b »"},
                                  {uR"(\"a\")", u"« b", R"(\" occurs 1 time here)"},
                                  {uR"(a\\n)", uR"(b\\n)"},
                                  {u"a", uR"(b\q)", R"(no escape sequence \q)"},
                                  {u"a", uR"(b\)", R"(no escape sequence \)"},
                                  {u"a", uR"(\u00E9\101)"},
                                  {u"a", uR"(\u00E)", R"(\u00E)"},
                              });
}

TEST(TextRules, LengthCountsCharactersAsTheyAreSeen)
{
    Expect("text-too-long", {
                                {u"a", u"abcd", "4 characters, where 3 are allowed", u"fr", u"[length:3]"},
                                {u"a", u"😀e\u0301\u200Fb", nullptr, u"fr", u"[length:3]"},
                                {u"a", uR"(a\nb)", nullptr, u"fr", u"[length:3, lines:2]"},
                                {u"a", uR"(a\nb\r\nc)", "3 lines, where 2 are allowed", u"fr", u"[lines:2]"},
                                {u"a", u"का", "2 characters", u"hi", u"[length:1]"},
                            });
}

TEST(TextRules, CharactersThatNobodyWants)
{
    Expect("control-character", {
                                    {u"a", u"b\x01", "U+0001 (control character) at place 2"},
                                    {u"a", u"b\uFEFF", "U+FEFF (byte order mark)"},
                                    {u"a", u"b\u202E", "U+202E"},
                                    {u"a", u"b\u200Bc", "U+200B"},
                                    {u"a", u"ก\u200Bข", nullptr, u"th"},
                                    {u"a", u"می\u200Cخواهم\u200F", nullptr, u"fa"},
                                });
    const QString high = u"😀"_s.first(1);
    Expect("lone-surrogate", {{u"a", u"😀"}, {u"a", high, "U+D83D at place 1"}, {high, u"a"}});
    Expect("not-normalised", {
                                 {u"a", u"é ế 각"},
                                 {u"a", u"ae\u0301", "U+0065 at place 2 should be U+00E9"},
                                 {u"a", u"5 \u2126", "should be U+03A9"},
                                 {u"a", u"q\u0301 कि"},
                             });
}

/// Where ICU finds something to compose, the quick test of the features must not have ruled it out.
TEST(TextRules, EveryCharacterThatComposesIsLookedAt)
{
    for (char32_t c = 0x80; c < 0x30000; ++c) {
        if (QChar::isSurrogate(c))
            continue;
        const QString text = QString::fromUcs4(&c, 1);
        const QString behind = u"\u1100"_s + text; // two Korean letters compose although both are composed
        const bool isComposed = text.normalized(QString::NormalizationForm_C) == text &&
                                behind.normalized(QString::NormalizationForm_C) == behind;
        ASSERT_TRUE(isComposed || (FeaturesOf(text) & MAY_BE_DECOMPOSED)) << "U+" << std::hex << uint(c);
    }
}

TEST(TextRules, Blanks)
{
    Expect("blank-edge", {
                             {u"a: ", u"b :\u00A0"},
                             {u"a: ", u"b :", "blanks at the end: 0 here, 1 in English"},
                             {u"a", u"\u3000b", "blanks at the beginning: 1 here, 0 in English", u"ja"},
                             {u"a: ", u"名前：", nullptr, u"ja"},
                             {u" ", u"b"},
                         });
    Expect("blank-only", {{u"a", u" \u00A0", "only blanks"}, {u" ", u" "}, {u"a", u"b "}});
    Expect("placeholder-mismatch", {{u"%d", u"  "}, {u" ", u"%d"}});
    Expect("escape-mismatch", {{u"a\\n", u" "}});
    Expect("double-blank", {{u"a b", u"a  b", "two blanks"}, {u"a  b", u"a  b"}, {u"a", u"b  "}, {u"a", uR"(b\n  c)"}});
}

TEST(TextRules, TheEndOfASentenceHasTheMarkOfTheLanguage)
{
    Expect("end-punctuation",
           {
               {u"Saved.", u"Enregistré", "ends without the \".\" of English"},
               {u"Name", u"Nom :", "ends with \":\", and English doesn't"},
               {u"Go on?", u"On y va.", "ends with \".\" where English ends with \"?\""},
               {u"Wait...", u"Attendez…"},
               {u"Wait.", u"Attendez…", "ends with \"…\""},
               {u"Say \"yes.\"", u"Dites « oui. »"},
               {u"In 5 minutes", u"Dans 5 min."},
               {u"Go on", u"Los geht es.", "ends with \".\"", u"de"},
               {u"Saved.\\n", u"Enregistré\\n", "ends without"},
               {u"Off (later)", u"Aus."},
               {u"Off {0}.", u"Aus {0}", "ends without"},
               {u"Done?", u"Τέλος;", nullptr, u"el"},
               {u"Done;", u"Τέλος;", "where English ends with \";\"", u"el"},
               {u"Done?", u"完了しました。", "ends with \"。\" where English ends with \"?\"", u"ja"},
               {u"Done?", u"تم؟", nullptr, u"ar"},
               {u"Done?", u"Fini؟", "ends without"},
               {u"Done now.", u"เสร็จแล้ว", nullptr, u"th"},
               {u"Done now.", u"เสร็จแล้ว:", "ends with \":\"", u"th"},
               {u"Done now?", u"Պատրա՞ստ է", nullptr, u"hy"},
               {u"Done now.", u"完了。", nullptr, u""},
               {u"Done now.", u"完了。.", "ends with \"。.\" where English ends with \".\"", u"ja"},
           });
}

TEST(TextRules, LettersAndNumbers)
{
    Expect("same-as-source", {
                                 {u"Settings", u"Settings", "equal to the text of English"},
                                 {u"Settings", u"Settings", nullptr, u"fr", u"[same]"},
                                 {u"Settings", u"Settings", nullptr, u"en-GB"},
                                 {u"USB %lld {name} OK", u"USB %lld {name} OK"},
                             });
    Expect("number-mismatch", {
                                  {u"page 1 of 20, %5d", u"२० में से पृष्ठ १, %6d"},
                                  {u"1,000 m 25", u"1000 m 25"},
                                  {u"1,0000 m", u"10000 m", "the number 1 is missing; English has it"},
                                  {u"5 and 5", u"5", "the number 5 is missing; English has it"},
                              });
    Expect("case-start", {
                             {u"Open", u"ouvrir", "begins with a small letter"},
                             {u"open", u"¡Abrir", "begins with a capital letter"},
                             {u"open", u"Öffnen", nullptr, u"de"},
                             {u"Open", u"打开", nullptr, u"zh"},
                             {u"%s is open", u"%d ouvert"},
                             {u"Open", u"2 ouvrir"},
                         });
}
