/* SPDX-License-Identifier: MIT */
/* Text on a terminal: its width, and printing it in columns. */
#ifndef WEATHERCLOCK_TEXT_H
#define WEATHERCLOCK_TEXT_H

#include "morvanite_device.h"

/* Returns the number of columns of a zero-terminated UTF-8 text: two for an East Asian character, none for a mark that
 * is placed over or under the character before it. */
int text_width(const char *text);

/* Prints the text, followed by blanks up to `columns`. */
void text_print(const char *text, int columns);

/* Writes the text of an ID in a language to `buffer` as UTF-8, cut to `room` bytes, or "(missing)" if the resources
 * don't have it. Returns `buffer`. */
const char *text_load(const morvanite_language *language, uint32_t id, char *buffer, uint32_t room);

#endif
