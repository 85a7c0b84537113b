// SPDX-License-Identifier: MIT
#include "SourceScanner.h"

#include <QByteArray>

#include <gtest/gtest.h>

#include <string>

namespace
{

/// The names in a source, with their lines; a name that it defines with "!".
std::string Names(QByteArrayView source)
{
    std::string all;
    SourceScanner scanner(source);
    for (SourceName name; scanner.Next(name);)
        all += (all.empty() ? "" : " ") + name.text.toByteArray().toStdString() + (name.isDefined ? "!" : "") + ':' +
               std::to_string(name.line);
    return all;
}

} // namespace

TEST(SourceScanner, NamesOutsideOfCommentsAndLiterals)
{
    const std::pair<const char *, const char *> cases[] = {
        {"Show(ID_A);\nShow(ID_B)", "Show:1 ID_A:1 Show:2 ID_B:2"},
        {"// ID_A\nID_B /* ID_C\n ID_D */ ID_E", "ID_B:2 ID_E:3"},
        {"// joined \\\nID_A\nID_B", "ID_B:3"},
        {"// joined \\\r\nID_A\r\nID_B\r\n", "ID_B:3"},
        {"\"ID_A \\\" ID_B\" ID_C '\\'' ID_D '\"' ID_E", "ID_C:1 ID_D:1 ID_E:1"},
        {"\"never closed ID_A\nID_B", "ID_B:2"},
        {"R\"(ID_A \" ID_B)\" ID_C u8R\"x(ID_D)\"\n)x\" ID_E", "ID_C:1 ID_E:2"},
        {"L\"ID_A\" ID_B", "L:1 ID_B:1"},
        {"1'000u ID_A 0x1p+3 .5e-1f 'x' ID_B", "ID_A:1 ID_B:1"},
        {"a / b /c", "a:1 b:1 c:1"},
        {"/* never closed ID_A", ""},
        {"int \xC3\xA9t\xC3\xA9;", "int:1 \xC3\xA9t\xC3\xA9:1"},
    };
    for (const auto &[source, names] : cases)
        EXPECT_EQ(Names(source), names) << source;
}

TEST(SourceScanner, DirectivesAndMacros)
{
    const std::pair<const char *, const char *> cases[] = {
        {"#include <ID_A.h>\nID_B", "ID_B:2"},
        {"# define ID_A ID_B + \\\n ID_C\n", "ID_A!:1 ID_B:1 ID_C:2"},
        {"/* */ #ifdef ID_A\n#error ID_B isn't there\n#undef ID_C\n", "ID_A:1 ID_C:3"},
        {"#define JOIN(x) ID_##x ## _END x\n", "JOIN!:1 x:1 x:1"},
        {"a # define ID_A", "a:1 define:1 ID_A:1"},
    };
    for (const auto &[source, names] : cases)
        EXPECT_EQ(Names(source), names) << source;
    SourceScanner scanner("\n\t ID_A");
    SourceName name;
    ASSERT_TRUE(scanner.Next(name));
    EXPECT_EQ(name.before, "\t ");
}
