/* The program's own file in memory. */
#ifndef WEATHERCLOCK_OWN_FILE_H
#define WEATHERCLOCK_OWN_FILE_H

#include "morvanite_device.h"

/* Reads the file of the running program, or the one named `name` where the system doesn't tell. Null when it can't be
 * read; else the caller frees it. */
uint8_t *own_file_read(const char *name, uint32_t *size);

#endif
