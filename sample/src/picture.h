/* SPDX-License-Identifier: MIT */
/* The header of a picture in the device's format. */
#ifndef WEATHERCLOCK_PICTURE_H
#define WEATHERCLOCK_PICTURE_H

#include <stdint.h>

typedef struct picture_info
{
    uint32_t width;  /* pixels */
    uint32_t height; /* pixels */
    const char *format;
} picture_info;

/* Reads the header. Returns 0, or -1 if the bytes don't begin with one. */
int picture_read(const uint8_t *data, uint32_t size, picture_info *info);

#endif
