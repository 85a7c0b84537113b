/* SPDX-License-Identifier: MIT */
/* Looks up each key in a .mo file of GNU gettext by binary search, as its library does without the hash table. */
#include "device_program.h"

#define MAGIC UINT32_C(0x950412DE)

struct header
{
    uint32_t magic;
    uint32_t revision;
    uint32_t count;
    uint32_t originals;    /* offset of the table of message IDs, which are in ascending order */
    uint32_t translations; /* offset of the table of texts */
};

struct place
{
    uint32_t length;
    uint32_t offset;
};

static int compare(const char *left, const char *right)
{
    while (*left != 0 && *left == *right) {
        ++left;
        ++right;
    }
    return (uint8_t)*left - (uint8_t)*right;
}

static __attribute__((noinline)) const char *find_text(const uint8_t *file, const char *name, uint32_t *length)
{
    const struct header *header = (const struct header *)(const void *)file;
    const struct place *originals = (const struct place *)(const void *)(file + header->originals);
    uint32_t low = 0;
    uint32_t high = header->count;

    while (low < high) {
        uint32_t middle = (low + high) / 2;
        int order = compare(name, (const char *)file + originals[middle].offset);
        if (order == 0) {
            const struct place *text = (const struct place *)(const void *)(file + header->translations) + middle;
            *length = text->length;
            return (const char *)file + text->offset;
        }
        if (order < 0)
            high = middle;
        else
            low = middle + 1;
    }
    return 0;
}

void _start(void)
{
    uint32_t i;

    if (((const struct header *)(const void *)data_begin)->magic != MAGIC)
        leave(1);
    for (i = 0; i < KEYS; ++i) {
        uint32_t length = 0;
        const char *text;

        mark_begin();
        text = find_text(data_begin, keys[i].name, &length);
        mark_end();
        if (!text || text[length] != 0)
            leave(3);
    }
    leave(0);
}
