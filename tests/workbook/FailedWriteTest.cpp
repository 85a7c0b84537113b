// SPDX-License-Identifier: MIT
#include "TempFolder.h"
#include "TestTable.h"

#include <cerrno>
#include <cstring>
#include <dlfcn.h>

namespace
{

constexpr int NEVER = -1;

/// Counts the writes of all streams made by fdopen, and makes one of them fail as on a full disk.
struct FailingWrites
{
    int failsAt = NEVER;
    int count = 0;
    bool isOn = false;
} writes;

int DescriptorOf(void *cookie)
{
    return int(reinterpret_cast<intptr_t>(cookie));
}

std::FILE *MakeFailingStream(int descriptor, const char *mode)
{
    cookie_io_functions_t functions{};
    functions.read = [](void *cookie, char *to, size_t size) { return read(DescriptorOf(cookie), to, size); };
    functions.write = [](void *cookie, const char *from, size_t size) -> ssize_t {
        if (writes.count++ != writes.failsAt)
            return write(DescriptorOf(cookie), from, size);
        errno = ENOSPC;
        return 0;
    };
    functions.seek = [](void *cookie, off64_t *offset, int whence) {
        *offset = lseek64(DescriptorOf(cookie), *offset, whence);
        return *offset < 0 ? -1 : 0;
    };
    functions.close = [](void *cookie) { return close(DescriptorOf(cookie)); };
    return fopencookie(reinterpret_cast<void *>(intptr_t(descriptor)), mode, functions);
}

} // namespace

/// Replaces the function of the C library, for the tested code and the libraries that it uses.
extern "C" __attribute__((visibility("default"))) std::FILE *fdopen(int descriptor, const char *mode) noexcept
{
    if (writes.isOn)
        return MakeFailingStream(descriptor, mode);
    using Function = std::FILE *(int, const char *);
    static auto *const real = reinterpret_cast<Function *>(dlsym(RTLD_NEXT, "fdopen"));
    return real(descriptor, mode);
}

TEST(Workbook, AFailedWriteNeverLeavesADamagedWorkbook)
{
    Rows rows;
    for (int row = 0; row < 1000; ++row)
        rows.push_back({u"ID_STRING_%1"_s.arg(row), QString(), u"some text of row %1"_s.arg(row)});
    TestTable table(rows);
    for (const char *name : {"table.xls", "table.xlsx", "table.csv"}) {
        const TempFolder folder;
        writes = {NEVER, 0, /*isOn=*/true};
        EXPECT_EQ(WriteWorkbook(folder.Path(name), table).reason.toStdString(), "");
        const int all = writes.count;
        EXPECT_GT(all, 3) << name;
        for (int i = 0; i < all; ++i) {
            folder.Put(name, "as before");
            writes = {i, 0, /*isOn=*/true};
            const WorkbookResult result = WriteWorkbook(folder.Path(name), table);
            EXPECT_EQ(result.fault, CannotWrite) << name << ' ' << i;
            ASSERT_EQ(folder.Get(name), "as before") << name << ' ' << i;
            EXPECT_EQ(folder.Names().size(), 1);
        }
    }
    writes.isOn = false;
}
