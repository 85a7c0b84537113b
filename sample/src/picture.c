/* SPDX-License-Identifier: MIT */
#include "picture.h"

#include <string.h>

static uint32_t little_endian(const uint8_t *bytes)
{
    return bytes[0] | (uint32_t)bytes[1] << 8 | (uint32_t)bytes[2] << 16 | (uint32_t)bytes[3] << 24;
}

/* docs/image-format.md: "MIMG", version, pixel format, encoding, header size, then width and height. */
int picture_read(const uint8_t *data, uint32_t size, picture_info *info)
{
    enum
    {
        HEAD = 24,
        VERSION = 1,
        RGB565 = 1,
        ARGB8888 = 2
    };
    if (size < HEAD || memcmp(data, "MIMG", 4) != 0 || data[4] != VERSION)
        return -1;
    info->width = little_endian(data + 8);
    info->height = little_endian(data + 12);
    info->format = data[5] == RGB565 ? "RGB565" : data[5] == ARGB8888 ? "ARGB8888" : "unknown";
    return 0;
}
