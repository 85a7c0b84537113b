/* SPDX-License-Identifier: MIT */
#include "own_file.h"

#include <stdio.h>
#include <stdlib.h>

/* Larger than any application of such a device; prevents a wrong name from filling the memory. */
static const long LARGEST = 64L * 1024 * 1024;

static uint8_t *read_whole(FILE *file, uint32_t *size)
{
    if (fseek(file, 0, SEEK_END) != 0)
        return NULL;
    const long length = ftell(file);
    if (length <= 0 || length > LARGEST || fseek(file, 0, SEEK_SET) != 0)
        return NULL;
    uint8_t *bytes = malloc((size_t)length);
    if (bytes != NULL && fread(bytes, 1, (size_t)length, file) != (size_t)length) {
        free(bytes);
        return NULL;
    }
    *size = (uint32_t)length;
    return bytes;
}

uint8_t *own_file_read(const char *name, uint32_t *size)
{
    FILE *file = fopen("/proc/self/exe", "rb");
    if (file == NULL)
        file = fopen(name, "rb");
    if (file == NULL)
        return NULL;
    uint8_t *bytes = read_whole(file, size);
    fclose(file);
    return bytes;
}
