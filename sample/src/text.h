/* Text on a terminal: how wide it is, and how to fill a column with it. */
#ifndef WEATHERCLOCK_TEXT_H
#define WEATHERCLOCK_TEXT_H

#include "morvanite_device.h"

/* Columns that the zero-terminated UTF-8 text takes: two for an East Asian character, none for a mark that is set over
 * or under the character before it. */
int text_width(const char *text);

/* Prints the text and then blanks up to `columns`. */
void text_print(const char *text, int columns);

/* The text of an ID in a language as UTF-8, cut to `room` bytes; "(missing)" when the resources don't have it. Gives
 * `buffer`. */
const char *text_load(const morvanite_language *language, uint32_t id, char *buffer, uint32_t room);

#endif
