// SPDX-License-Identifier: MIT
#include "PseudoText.h"
#include "CheckSettings.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

QString Pseudo(QStringView source, bool isRightToLeft = false)
{
    return PseudoText(source, PLACEHOLDERS_PRINTF | PLACEHOLDERS_BRACES, isRightToLeft);
}

} // namespace

TEST(PseudoText, HasAccentsAndGrowsBy35Percent)
{
    EXPECT_EQ(Pseudo(u"Size"), u"⟦Šîžé~~⟧"_s);
    EXPECT_EQ(Pseudo(u"The quick brown 🦊"), u"⟦Ţĥé ǫûîçķ ƀŕöŵñ 🦊~~~~~~⟧"_s); // 17 characters
    EXPECT_EQ(Pseudo(u"中文"), u"⟦中文~⟧"_s);
    EXPECT_EQ(Pseudo(u""), QString());
}

TEST(PseudoText, KeepsPlaceholdersAndEscapesWhichDoNotCount)
{
    EXPECT_EQ(Pseudo(u"%-5.2fMB\\n{name:>4}\\x41 %%"), u"⟦%-5.2fṀƁ\\n{name:>4}\\x41 %%~~⟧"_s);
    EXPECT_EQ(Pseudo(u"%d"), u"⟦%d⟧"_s);
    EXPECT_EQ(Pseudo(u"50% of {"), u"⟦50% öƒ {~~~⟧"_s); // a percent sign and a brace of prose
}

TEST(PseudoText, WordsOfARightToLeftLanguageAreOverridden)
{
    EXPECT_EQ(Pseudo(u"Go %s\\nup!", true), u"⟦\u202EĜö\u202C %s\\n\u202Eûþ!\u202C~~~⟧"_s);
}
