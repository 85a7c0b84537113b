#include "morvanite_elf.h"

#include "ElfBuilder.h"
#include "ReadEverything.h"

#include <gtest/gtest.h>

namespace
{

using Bytes = PayloadBuilder::Bytes;

struct Found
{
    morvanite_result result = MORVANITE_OK;
    Bytes bytes;
    std::uint32_t offset = 0;
};

Found Find(const Bytes &file)
{
    const ExactBytes memory(file);
    const std::uint8_t *payload = nullptr;
    std::uint32_t size = 0;
    Found found;
    found.result = morvanite_find_section(memory.Data(), memory.Size(), &payload, &size, &found.offset);
    if (found.result == MORVANITE_OK)
        found.bytes.assign(payload, payload + size);
    return found;
}

} // namespace

TEST(ElfSection, TheLastOfSeveralIsTaken)
{
    const Bytes file = ElfBuilder()
                           .Section(".text", {1, 2, 3})
                           .Section(".zp_res", {4, 5})
                           .Section(".zp_res", {6, 7, 8})
                           .Section(".zp_res2", {9})
                           .Build();
    const Found found = Find(file);
    EXPECT_EQ(found.result, MORVANITE_OK);
    EXPECT_EQ(found.bytes, (Bytes{6, 7, 8}));
    ASSERT_LE(found.offset + 3U, file.size());
    EXPECT_EQ(file[found.offset], 6);
}

TEST(ElfSection, AFileWithoutTheSectionIsToldFromOneThatIsNoSuchFile)
{
    Bytes file = ElfBuilder().Section(".zp_re", {1}).Section("x.zp_resx", {1}).Build();
    EXPECT_EQ(Find(file).result, MORVANITE_NOT_FOUND);
    EXPECT_EQ(Find({}).result, MORVANITE_DAMAGED);
    for (const std::size_t at : {0U, 4U, 5U}) { // the magic, the class, the byte order
        Bytes other = file;
        other[at] = 2;
        EXPECT_EQ(Find(other).result, MORVANITE_DAMAGED) << at;
    }
    file[48] = 0; // no sections
    EXPECT_EQ(Find(file).result, MORVANITE_NOT_FOUND);
    EXPECT_EQ(Find(ElfBuilder().Section(".zp_res", {1}, 8).Build()).result, MORVANITE_DAMAGED) << "has no bytes";
}

TEST(ElfSection, CutsAndDamagedBytesAreSurvived)
{
    const Bytes whole = ElfBuilder().Section(".text", {1, 2, 3}).Section(".zp_res", Bytes(20, 7)).Build();
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_EQ(Find(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size))).result,
                  MORVANITE_DAMAGED)
            << size;
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (int value = 0; value < 256; ++value) {
            Bytes bytes = whole;
            bytes[at] = static_cast<std::uint8_t>(value);
            const Found found = Find(bytes);
            EXPECT_LE(found.bytes.size(), whole.size());
        }
    }
}

TEST(ElfSection, SizesThatLeadOutsideAreDamaged)
{
    const Bytes whole = ElfBuilder().Section(".zp_res", Bytes(20, 7)).Build();
    const std::size_t headers = whole.size() - 3 * 40; // of sections 0, the names and .zp_res

    Bytes bytes = whole;
    for (std::size_t i = 0; i < 4; ++i)
        bytes[headers + 80 + 20 + i] = 0xFF; // offset and size would wrap
    EXPECT_EQ(Find(bytes).result, MORVANITE_DAMAGED);

    bytes = whole;
    bytes[46] = 0; // the size of a section header, so that any number of them fits behind the end
    bytes[32] = static_cast<std::uint8_t>(whole.size() & 0xFF);
    bytes[33] = static_cast<std::uint8_t>(whole.size() >> 8);
    EXPECT_EQ(Find(bytes).result, MORVANITE_DAMAGED);

    bytes = whole;
    --bytes[headers + 40 + 20]; // the last name loses its zero byte
    EXPECT_EQ(Find(bytes).result, MORVANITE_NOT_FOUND);
}
