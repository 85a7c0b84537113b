/* SPDX-License-Identifier: MIT */
/* The program's own file in memory. */
#ifndef WEATHERCLOCK_OWN_FILE_H
#define WEATHERCLOCK_OWN_FILE_H

#include "morvanite_device.h"

/* Reads the file of the running program, or the one named `name` if the system doesn't report it. Returns null if it
 * can't be read; otherwise the caller must free the result. */
uint8_t *own_file_read(const char *name, uint32_t *size);

#endif
