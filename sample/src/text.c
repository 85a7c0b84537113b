/* SPDX-License-Identifier: MIT */
#include "text.h"

#include <stdio.h>
#include <string.h>

typedef struct range
{
    uint32_t first;
    uint32_t last;
} range;

static const range MARKS[] = {
    {0x0300, 0x036F}, {0x0610, 0x061A}, {0x064B, 0x065F}, {0x0670, 0x0670}, {0x0900, 0x0902},
    {0x093A, 0x093A}, {0x093C, 0x093C}, {0x0941, 0x0948}, {0x094D, 0x094D}, {0x0951, 0x0957},
    {0x0962, 0x0963}, {0x200B, 0x200F}, {0xFE00, 0xFE0F},
};

static const range WIDE[] = {
    {0x1100, 0x115F}, {0x2E80, 0x303E}, {0x3041, 0xA4CF}, {0xAC00, 0xD7A3},
    {0xF900, 0xFAFF}, {0xFE30, 0xFE6F}, {0xFF00, 0xFF60}, {0x1F300, 0x1F64F},
};

static int is_in(const range *ranges, size_t count, uint32_t character)
{
    for (size_t i = 0; i < count; ++i) {
        if (character >= ranges[i].first && character <= ranges[i].last)
            return 1;
    }
    return 0;
}

/* Returns the character at `*text` and moves `*text` behind it. The reader wrote the text, so it is well-formed. */
static uint32_t next_character(const char **text)
{
    const unsigned char *bytes = (const unsigned char *)*text;
    int more = bytes[0] < 0xC0 ? 0 : bytes[0] < 0xE0 ? 1 : bytes[0] < 0xF0 ? 2 : 3;
    uint32_t character = more == 0 ? bytes[0] : bytes[0] & (0x3FU >> more);
    *text += 1;
    for (; more > 0 && (**text & 0xC0) == 0x80; --more, ++*text)
        character = character << 6 | (uint32_t)(**text & 0x3F);
    return character;
}

int text_width(const char *text)
{
    int width = 0;
    while (*text != '\0') {
        const uint32_t character = next_character(&text);
        if (is_in(WIDE, sizeof WIDE / sizeof *WIDE, character))
            width += 2;
        else if (!is_in(MARKS, sizeof MARKS / sizeof *MARKS, character))
            width += 1;
    }
    return width;
}

void text_print(const char *text, int columns)
{
    fputs(text, stdout);
    for (int width = text_width(text); width < columns; ++width)
        putchar(' ');
}

const char *text_load(const morvanite_language *language, uint32_t id, char *buffer, uint32_t room)
{
    morvanite_string string;
    if (morvanite_find_string(language, id, &string) == MORVANITE_OK)
        morvanite_string_utf8(&string, buffer, room);
    else
        snprintf(buffer, room, "(missing)");
    return buffer;
}
