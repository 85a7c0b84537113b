/* SPDX-License-Identifier: MIT */
/* The fields of the ELF format that are needed to find a section by its name:
 *
 *     header            0 magic, class, byte order     32 section table    46 size of a section header
 *                      48 number of sections           50 number of the section with the names
 *     section header    0 place of the name            4 type              16 offset            20 size */
#include "morvanite_elf.h"

#define HEADER_SIZE 52u
#define SECTION_HEADER_SIZE 40u
#define TYPE_NO_BITS 8u

static uint32_t read_u16(const uint8_t *at)
{
    return (uint32_t)at[0] | (uint32_t)at[1] << 8;
}

static uint32_t read_u32(const uint8_t *at)
{
    return read_u16(at) | read_u16(at + 2) << 16;
}

static int is_equal(const uint8_t *left, const uint8_t *right, uint32_t size)
{
    uint32_t i;

    for (i = 0; i < size; ++i)
        if (left[i] != right[i])
            return 0;
    return 1;
}

/* The bytes of the section with that header, or null when they aren't within the file. */
static const uint8_t *section_bytes(const uint8_t *file, uint32_t file_size, const uint8_t *header)
{
    uint32_t offset = read_u32(header + 16);
    uint32_t size = read_u32(header + 20);

    if (read_u32(header + 4) == TYPE_NO_BITS || offset > file_size || size > file_size - offset)
        return 0;
    return file + offset;
}

morvanite_result morvanite_find_section(const void *file, uint32_t file_size, const uint8_t **payload, uint32_t *size,
                                        uint32_t *offset)
{
    static const uint8_t magic[6] = {0x7F, 'E', 'L', 'F', 1 /* 32 bits */, 1 /* little-endian */};
    static const uint8_t wanted[8] = {'.', 'z', 'p', '_', 'r', 'e', 's', 0};
    const uint8_t *bytes = (const uint8_t *)file;
    const uint8_t *table;
    const uint8_t *names;
    uint32_t table_offset;
    uint32_t header_size;
    uint32_t count;
    uint32_t names_section;
    uint32_t names_size;

    if (file_size < HEADER_SIZE || !is_equal(bytes, magic, sizeof magic))
        return MORVANITE_DAMAGED;
    table_offset = read_u32(bytes + 32);
    header_size = read_u16(bytes + 46);
    count = read_u16(bytes + 48);
    names_section = read_u16(bytes + 50);
    if (count == 0)
        return MORVANITE_NOT_FOUND;
    /* The product of two 16-bit numbers can't wrap around. */
    if (header_size < SECTION_HEADER_SIZE || names_section >= count || table_offset > file_size ||
        header_size * count > file_size - table_offset)
        return MORVANITE_DAMAGED;
    table = bytes + table_offset;
    names = section_bytes(bytes, file_size, table + header_size * names_section);
    names_size = read_u32(table + header_size * names_section + 20);
    if (!names)
        return MORVANITE_DAMAGED;
    while (count-- > 0) {
        const uint8_t *header = table + header_size * count;
        uint32_t name = read_u32(header);
        if (name > names_size || names_size - name < sizeof wanted || !is_equal(names + name, wanted, sizeof wanted))
            continue;
        *payload = section_bytes(bytes, file_size, header);
        *size = read_u32(header + 20);
        *offset = read_u32(header + 16);
        return *payload ? MORVANITE_OK : MORVANITE_DAMAGED;
    }
    return MORVANITE_NOT_FOUND;
}
