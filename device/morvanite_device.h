/* SPDX-License-Identifier: MIT */
/* Reads Morvanite's resources in an application on the device.
 *
 * Plain C99 (and C++), freestanding: no allocation, no library call, no state of its own. It reads a payload in place,
 * at any address; at a multiple of 4 it is faster. It checks every offset: a damaged payload gives a result other than
 * MORVANITE_OK and never a read outside of its bytes.
 *
 *     morvanite_payload resources;
 *     morvanite_item logo;
 *     morvanite_string title;
 *
 *     if (morvanite_open(&resources, flash_address, flash_size, 0) == MORVANITE_OK) {
 *         if (morvanite_find_item(&resources, ID_IMAGE_LOGO, &logo) == MORVANITE_OK)
 *             draw(logo.data, logo.size);
 *         if (morvanite_find_text(&resources, 0, ID_STRING_TITLE, &title) == MORVANITE_OK)
 *             print_utf16(title.units, title.length);
 *     }
 *
 * Nothing is copied: the results of a look-up point into the payload and are valid as long as the payload is. A
 * function that doesn't return MORVANITE_OK leaves its output unset unless its comment says otherwise. Pointers must
 * not be null, except `bytes` of size 0 and `buffer` of room 0.
 *
 * Only morvanite_open, morvanite_open_language, morvanite_find_language and morvanite_make_index write to an open
 * payload, language or table; all other functions take them as const, so any number of threads and interrupts can look
 * things up at the same time once those are done.
 *
 * In C++ morvanite_device.hpp is more convenient. docs/device-reader.md is the manual, docs/payload-format.md describes
 * the bytes.
 */
#ifndef MORVANITE_DEVICE_H
#define MORVANITE_DEVICE_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef enum morvanite_result
{
    MORVANITE_OK = 0,
    MORVANITE_NOT_FOUND = 1, /* no such entry, item, language or string; the end of a walk */
    MORVANITE_DAMAGED = 2,   /* the bytes aren't a payload, or a part of it points outside or has no end */
    MORVANITE_NO_ROOM = 3,   /* the memory given for an index is too small */
    MORVANITE_OTHER_TYPE = 4 /* a layout's property has a value of another type than requested */
} morvanite_result;

/* A table of pairs of key and offset, of 8 bytes each. The members other than `count` are internal. */
typedef struct morvanite_table
{
    const uint8_t *pairs;
    uint32_t count;        /* pairs before the one that ends the table: the room that an index needs */
    uint32_t order;        /* bits: which numbers of the pairs are in ascending order */
    uint32_t first;        /* the key of the first pair */
    uint32_t gaps;         /* if all keys ascend: how many numbers between the first and the last are no key */
    const uint32_t *index; /* the positions sorted by key, or null */
} morvanite_table;

/* An open payload. The members other than `items.count`, the number of items, are internal. */
typedef struct morvanite_payload
{
    const uint8_t *bytes;
    uint32_t size;
    uint32_t base;
    morvanite_table items;
} morvanite_payload;

/* A named entry of the directory: the icon, a preview image, a file of the version 1.0 list, or "zep-2.0", whose bytes
 * are the table of items. */
typedef struct morvanite_entry
{
    const char *name; /* ends with a zero byte */
    uint32_t name_length;
    const uint8_t *data;
    uint32_t size; /* the file's size without padding */
} morvanite_entry;

/* A file, an image, a layout or a language's strings. */
typedef struct morvanite_item
{
    uint32_t key; /* the value in ResID.h, or MORVANITE_LANGUAGE_KEY */
    const uint8_t *data;
    uint32_t size; /* with the zero bytes that pad it to a multiple of 4 */
} morvanite_item;

/* The open strings of a language. `strings.count` is their number. */
typedef struct morvanite_language
{
    uint32_t number;
    const uint8_t *data;
    uint32_t size;
    morvanite_table strings;
} morvanite_language;

/* A string of `length` code units of UTF-16, little-endian, at any alignment; a zero unit follows the last one. Zero
 * characters between others count. */
typedef struct morvanite_string
{
    uint32_t id;
    const uint8_t *units;
    uint32_t length; /* without the zero unit */
} morvanite_string;

/* Language numbers are 0 to 65534. */
#define MORVANITE_LANGUAGE_KEY(number) (UINT32_C(0xFFFF0000) | (uint32_t)(number))
#define MORVANITE_IS_LANGUAGE(key) ((uint32_t)(key) >= UINT32_C(0xFFFF0000))

/* Opens the `size` bytes at `bytes`. The payload's offsets are relative to `base`: 0 for a section packed with the
 * default settings and for a side file; see docs/device-reader.md for other cases.
 *
 * Walks the directory and the table of items once, and notes whether each key is greater than the one before it. If so,
 * look-ups take a number of steps logarithmic in the number of items. MORVANITE_DAMAGED: one of them has no end within
 * the bytes, the directory has no table, or `base` isn't the payload's. A payload that isn't open is empty: look-ups in
 * it return MORVANITE_NOT_FOUND. */
morvanite_result morvanite_open(morvanite_payload *payload, const void *bytes, uint32_t size, uint32_t base);

/* The first entry with that name, compared byte for byte. MORVANITE_DAMAGED: its data isn't within the payload. */
morvanite_result morvanite_find_entry(const morvanite_payload *payload, const char *name, morvanite_entry *entry);

/* The entries in their order: start with `*cursor` 0 and continue until MORVANITE_NOT_FOUND. MORVANITE_DAMAGED: this
 * entry's data isn't within the payload; its name is set, data is null, size is 0, and the walk can continue. */
morvanite_result morvanite_next_entry(const morvanite_payload *payload, uint32_t *cursor, morvanite_entry *entry);

/* The first item with that key, which is an ID's value. MORVANITE_DAMAGED: its bytes aren't within the payload. */
morvanite_result morvanite_find_item(const morvanite_payload *payload, uint32_t key, morvanite_item *item);

/* The item at `position`, from 0 to items.count - 1, in the order of the table; MORVANITE_NOT_FOUND after that.
 * MORVANITE_DAMAGED: its bytes aren't within the payload; its key is set, data is null and size is 0. */
morvanite_result morvanite_item_at(const morvanite_payload *payload, uint32_t position, morvanite_item *item);

/* Finds and opens the strings of the language with that number. The results are those of the two functions that it
 * combines, morvanite_find_item and morvanite_open_language. */
morvanite_result morvanite_find_language(const morvanite_payload *payload, uint32_t number,
                                         morvanite_language *language);

/* Opens an item that MORVANITE_IS_LANGUAGE. Walks its table once, so keep a language open that is used often. If each
 * ID is greater than the one before it, look-ups take a number of steps logarithmic in the number of strings, and if
 * they have no gaps, one step. MORVANITE_NOT_FOUND: the item is of another kind. MORVANITE_DAMAGED: the table's count,
 * its end and the item's size don't match. A language that isn't open has no strings. */
morvanite_result morvanite_open_language(const morvanite_item *item, morvanite_language *language);

/* The first string with that ID. MORVANITE_DAMAGED: it doesn't begin and end within its table. */
morvanite_result morvanite_find_string(const morvanite_language *language, uint32_t id, morvanite_string *string);

/* The string at `position`, from 0 to strings.count - 1, in the order of the table; MORVANITE_NOT_FOUND after that.
 * MORVANITE_DAMAGED: it doesn't begin and end within its table; its id is set, units is null and length is 0. */
morvanite_result morvanite_string_at(const morvanite_language *language, uint32_t position, morvanite_string *string);

/* A string with that ID in the language with that number, which needn't be open. Takes as many steps as a look-up in
 * the open language, and one for each code unit, if each of its IDs is greater than the one before it; otherwise, or if
 * there is no such string or it has a zero character, it walks the table each time. It checks no more of the table than
 * it reads: in a damaged one that can't be opened it may find a string. If the IDs aren't in order and several strings
 * have this one, which no pack writes, it may be any of them. */
morvanite_result morvanite_find_text(const morvanite_payload *payload, uint32_t number, uint32_t id,
                                     morvanite_string *string);

/* Sorts the positions of the table's pairs into `order`, which the table then uses: look-ups take a number of steps
 * logarithmic in `count`, and have the same results as before. For `items` of a payload and `strings` of a language. A
 * table whose keys ascend already, none of them twice, needs no index: nothing is done, even with a `room` of 0.
 * MORVANITE_NO_ROOM: `room`, the number of elements of `order`, is less than `count`; look-ups stay linear. */
morvanite_result morvanite_make_index(morvanite_table *table, uint32_t *order, uint32_t room);

/* Code unit `i`, or 0 if `i` is the string's length or more. */
uint16_t morvanite_string_unit(const morvanite_string *string, uint32_t i);

/* Writes the string as UTF-8 and a zero byte to the `room` bytes at `buffer`. Returns the number of bytes of the whole
 * text without the zero byte: a result of `room` or more means that the text was truncated, after a whole character. A
 * surrogate without its other half becomes U+FFFD. */
uint32_t morvanite_string_utf8(const morvanite_string *string, char *buffer, uint32_t room);

/* For a whole file in memory to which a payload was appended (the target kind dll): returns the address, the
 * size and the base of its payload, for morvanite_open. MORVANITE_NOT_FOUND: the file doesn't end that way. */
morvanite_result morvanite_find_appended(const void *file, uint32_t file_size, const uint8_t **payload, uint32_t *size,
                                         uint32_t *base);

#ifdef __cplusplus
}
#endif

#endif
