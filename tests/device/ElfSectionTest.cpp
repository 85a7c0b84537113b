// SPDX-License-Identifier: MIT
#include "morvanite_elf.h"

#include "ElfBuilder.h"
#include "ReadEverything.h"

#include <gtest/gtest.h>

namespace
{

/// Returns the section's bytes at the offset that was found, or the error.
std::string Find(const std::string &file)
{
    const ExactBytes memory(file);
    const std::uint8_t *payload = nullptr;
    std::uint32_t size = 0;
    std::uint32_t offset = 0;
    const morvanite_result result = morvanite_find_section(memory.Data(), memory.Size(), &payload, &size, &offset);
    if (result != MORVANITE_OK)
        return result == MORVANITE_NOT_FOUND ? "none" : "damaged";
    EXPECT_EQ(payload, memory.Data() + offset);
    return {payload, payload + size};
}

} // namespace

TEST(ElfSection, UsesTheLastOfSeveral)
{
    const ElfBuilder file = ElfBuilder(1, 64).Section(".text", "123").Section(".zp_res", "old").Section(".zp_re", "4");
    EXPECT_EQ(Find(file.Build() + std::string(24, 'x')), "old");
    EXPECT_EQ(Find(ElfBuilder(file).Section(".zp_res", "new").Section(".zp_res2", "5").Build() + std::string(24, 'x')),
              "new");
    EXPECT_EQ(Find(ElfBuilder().Section(".zp_re", "1").Section("x.zp_resx", "1").Build()), "none");
    EXPECT_EQ(Find(ElfBuilder().Section(".zp_res", "1", ElfBuilder::NoBits).Build()), "damaged");
}

TEST(ElfSection, ReportsAndSurvivesDamage)
{
    const std::string whole = ElfBuilder().Section(".zp_res", "payload").Build();
    const std::size_t headers = whole.size() - 3 * 40; // of sections 0, .zp_res and the names
    const auto with = [&whole](std::size_t at, const std::string &bytes) {
        return Find(std::string(whole).replace(at, bytes.size(), bytes));
    };
    EXPECT_EQ(with(0, "E"), "damaged");
    EXPECT_EQ(with(4, "\2"), "damaged");                               // 64 bits
    EXPECT_EQ(with(5, "\2"), "damaged");                               // big-endian
    EXPECT_EQ(with(46, "\x27"), "damaged");                            // section headers of 39 bytes
    EXPECT_EQ(with(48, std::string(1, '\0')), "none");                 // no sections
    EXPECT_EQ(with(50, "\3"), "damaged");                              // the names of section 3
    EXPECT_EQ(with(headers + 40 + 20, "\xFF\xFF\xFF\xFF"), "damaged"); // a size that would wrap
    EXPECT_EQ(with(headers + 80 + 4, "\x08"), "damaged");              // names without bytes
    EXPECT_EQ(with(headers + 80 + 20, "\x08"), "none");                // the name loses its zero byte
    for (std::size_t at = 0; at < whole.size(); ++at) {
        EXPECT_EQ(Find(whole.substr(0, at)), "damaged") << at;
        for (int value = 0; value < 256; ++value)
            EXPECT_LE(Find(std::string(whole).replace(at, 1, 1, static_cast<char>(value))).size(), whole.size());
    }
}
