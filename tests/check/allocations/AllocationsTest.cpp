// SPDX-License-Identifier: MIT
#include "ResModel.h"
#include "RuleReport.h"
#include "Rules.h"
#include "StringFileBytes.h"
#include "StringRows.h"
#include "TestProject.h"
#include "TextContext.h"
#include "TrueTexts.h"

#include <gmock/gmock.h>

#ifdef __SANITIZE_ADDRESS__
constexpr bool CAN_COUNT = false; // the sanitizer has replaced malloc
#else
constexpr bool CAN_COUNT = true;
#endif

namespace
{

thread_local int allocations = 0;

} // namespace

#ifndef __SANITIZE_ADDRESS__
extern "C" {
void *__libc_malloc(size_t size);
void *__libc_calloc(size_t count, size_t size);
void *__libc_realloc(void *block, size_t size);

// Every library of the process calls these instead of those of the C library.
void *malloc(size_t size)
{
    ++allocations;
    return __libc_malloc(size);
}
void *calloc(size_t count, size_t size)
{
    ++allocations;
    return __libc_calloc(count, size);
}
void *realloc(void *block, size_t size)
{
    ++allocations;
    return __libc_realloc(block, size);
}
}
#endif

using namespace Qt::StringLiterals;

namespace
{

/// Checks all rows, and returns the number of allocations for those that have no finding.
int AllocationsWithoutFinding(const std::vector<StringRow> &rows, RowCheck &check, const CheckSettings &settings,
                              int &clean)
{
    int found = 0;
    RuleReport report(settings, [&found](Finding &&) { ++found; });
    int sum = 0;
    clean = 0;
    for (const StringRow &row : rows) {
        found = 0;
        const int before = allocations;
        check.Check(*row.head, report);
        (void)check.SourceHash();
        if (found == 0) {
            sum += allocations - before;
            ++clean;
        }
    }
    return sum;
}

} // namespace

TEST(Allocations, RowsWithoutFindingsNeedNone)
{
    if (!CAN_COUNT)
        GTEST_SKIP() << "allocations can't be counted in this build";
    std::vector<QByteArray> codes;
    const QByteArray table = Bytes(LANGUAGE_TABLE);
    TestProject project(R"(<APP id="APP_demo"><STRING>res\ref_list_demo.txt</STRING></APP>)");
    project.folder.Put("demo/res/ref_list_demo.txt", StringFileBytes(TrueTexts(table, codes)));
    project.folder.Put("bin/tuvik.ini", table);
    project.folder.Put("demo/morvanite-check.ini",
                       "[Font]\ndefault=/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf 16\n"
                       "[Limit]\nID_S*=length 500\n*=width 2000, lines 2\n"
                       "[Severity]\nnumber-mismatch=note\ncase-start=note\n");
    CResDoc *const document = project.Open();
    ASSERT_NE(document, nullptr);
    std::vector<Finding> faults;
    const CheckSettings settings = ReadCheckSettings(project.folder.Path("demo"), faults);
    const TextContext context(*document, settings);
    if (!context.Languages().front().font)
        std::cout << "fonts-dejavu-core is not installed, so widths aren't measured\n";
    const std::vector<StringRow> rows = StringRowsOf(*document);

    int clean = 0;
    RowCheck check(context);
    // The first time, tables are made and the widths of characters are kept.
    EXPECT_GT(AllocationsWithoutFinding(rows, check, settings, clean), 0);
    EXPECT_EQ(AllocationsWithoutFinding(rows, check, settings, clean), 0);
    EXPECT_GE(clean, 20);
}
