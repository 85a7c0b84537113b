/* SPDX-License-Identifier: MIT */
/* See docs/payload-format.md for the bytes:
 *
 *     directory   name, zero byte, offset (4), size (4); again and again, up to the empty name
 *     items       key (4), offset (4); again and again, up to the key 0xFFFFFFFF, whose offset is the items' end
 *     language    count (4), then id (4), offset (4); again and again, up to the id 0xFFFFFFFF
 *
 * Numbers are little-endian and may be at any address. A range is checked by subtraction, never by a sum that could
 * wrap around. */
#include "morvanite_device.h"

/* Where the processor has the payload's byte order, a number at a multiple of 4 is read by one load. The type may be
 * used for bytes that are declared as something else. Loops over tables are compiled twice, for such numbers and for
 * others, since a call in each step would take more time than the rest. What is SHARED is smaller as a function. */
#if defined(__GNUC__) && defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
#define IS_ALIGNED(at) (((uintptr_t)(at)&3u) == 0)
typedef uint32_t __attribute__((__may_alias__)) word;
#define FOR_EACH_READER static inline __attribute__((__always_inline__))
#define SHARED static __attribute__((__noinline__))
#else
#define IS_ALIGNED(at) 0
typedef uint32_t word;
#define FOR_EACH_READER static
#define SHARED static
#endif

#define PAIR_SIZE 8u
#define END_KEY UINT32_C(0xFFFFFFFF)
#define REPLACEMENT_CHARACTER 0xFFFDu

/* Bits of a table's `order`: what the walk of its opening found, or what is assumed without one. */
#define HAS_ORDERED_KEYS 1u /* every key is greater than the one before it */
#define HAS_ORDERED_DATA 2u /* no offset is less than the one before it */

/* Return the number at an address, and the key at a position of a table. */
typedef uint32_t reader(const uint8_t *at);
typedef uint32_t key_reader(const morvanite_table *table, uint32_t position);

FOR_EACH_READER uint32_t read_word(const uint8_t *at)
{
    return *(const word *)(const void *)at;
}

static uint32_t read_u32(const uint8_t *at)
{
    if (IS_ALIGNED(at))
        return read_word(at);
    return (uint32_t)at[0] | (uint32_t)at[1] << 8 | (uint32_t)at[2] << 16 | (uint32_t)at[3] << 24;
}

/* A pair of a table, and the offset of the next one. There is always a next one, since the last one ends the table. */
typedef struct pair
{
    uint32_t key, offset, next;
} pair;

FOR_EACH_READER pair pair_at(const uint8_t *at, reader *read)
{
    pair numbers = {read(at), read(at + 4), read(at + PAIR_SIZE + 4)};
    return numbers;
}

/* The pair at a position of the table, which must have it. */
static pair read_pair(const morvanite_table *table, uint32_t position)
{
    const uint8_t *at = table->pairs + position * PAIR_SIZE;

    return IS_ALIGNED(at) ? pair_at(at, read_word) : pair_at(at, read_u32);
}

/* Returns the address of the pair that ends the table, which must be before `end`, or null. Sets `order`. */
FOR_EACH_READER const uint8_t *walk_pairs(const uint8_t *at, const uint8_t *end, uint32_t *order, reader *read)
{
    uint32_t found = HAS_ORDERED_KEYS | HAS_ORDERED_DATA;
    uint32_t least_key = 0;
    uint32_t last_offset = 0;

    for (; at != end; at += PAIR_SIZE) {
        uint32_t key = read(at);
        uint32_t offset = read(at + 4);
        if (offset < last_offset)
            found &= ~HAS_ORDERED_DATA;
        if (key == END_KEY) {
            *order = found;
            return at;
        }
        if (key < least_key)
            found &= ~HAS_ORDERED_KEYS;
        least_key = key + 1;
        last_offset = offset;
    }
    return 0;
}

/* The same for a table of any address, which must end within `limit` pairs. */
static const uint8_t *find_end(const uint8_t *pairs, uint32_t limit, uint32_t *order)
{
    const uint8_t *end = pairs + limit * PAIR_SIZE;

    return IS_ALIGNED(pairs) ? walk_pairs(pairs, end, order, read_word) : walk_pairs(pairs, end, order, read_u32);
}

/* Sets all but the order of a table of `count` pairs, which are followed by the pair that ends it. */
SHARED void set_table(morvanite_table *table, const uint8_t *pairs, uint32_t count)
{
    table->pairs = pairs;
    table->count = count;
    table->index = 0;
    if (count > 0) {
        table->first = read_u32(pairs);
        table->gaps = read_u32(pairs + (count - 1) * PAIR_SIZE) - table->first - (count - 1);
    }
}

/* The key at a position of the index if the table has one, and otherwise at a position of the table. */
static uint32_t key_at(const morvanite_table *table, uint32_t position)
{
    return read_u32(table->pairs + (table->index ? table->index[position] : position) * PAIR_SIZE);
}

/* The same for a table without an index, whose pairs are aligned. */
FOR_EACH_READER uint32_t word_at(const morvanite_table *table, uint32_t position)
{
    return read_word(table->pairs + position * PAIR_SIZE);
}

/* The first position with that key, if there is one: from `low` to `high` in a sorted table, and otherwise before
 * `high`. */
FOR_EACH_READER uint32_t search(const morvanite_table *table, uint32_t low, uint32_t high, uint32_t key,
                                uint32_t is_sorted, key_reader *read)
{
    if (!is_sorted) {
        while (low < high && read(table, low) != key)
            ++low;
        return low;
    }
    while (low < high) {
        uint32_t middle = (low + high) / 2;
        if (read(table, middle) < key)
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

/* Returns the first position with that key, or the table's count. */
static uint32_t find_key(const morvanite_table *table, uint32_t key)
{
    uint32_t low = 0;
    uint32_t high = table->count;

    if (high == 0) /* the table may not be open */
        return 0;
    if (table->order & HAS_ORDERED_KEYS) { /* such a table has no index */
        /* Before the wanted pair there is one for each of the `distance` numbers from the first key on, less at most
         * all `gaps` of the table. If the subtraction wraps around, `low` is too great for any position. */
        uint32_t distance = key - table->first;
        if (distance > table->gaps)
            low = distance - table->gaps;
        if (high > distance)
            high = distance;
    }
    if (!table->index && IS_ALIGNED(table->pairs))
        low = search(table, low, high, key, table->order & HAS_ORDERED_KEYS, word_at);
    else
        low = search(table, low, high, key, table->index != 0 || (table->order & HAS_ORDERED_KEYS), key_at);
    if (table->index && low < table->count)
        low = table->index[low];
    return low < table->count && read_u32(table->pairs + low * PAIR_SIZE) == key ? low : table->count;
}

/* Equal keys stay in the table's order, so that the first one is found, as in a linear search. */
SHARED int is_before(const morvanite_table *table, uint32_t left, uint32_t right)
{
    uint32_t left_key = key_at(table, left);
    uint32_t right_key = key_at(table, right);
    return left_key < right_key || (left_key == right_key && left < right);
}

morvanite_result morvanite_make_index(morvanite_table *table, uint32_t *order, uint32_t room)
{
    uint32_t step = table->count;
    uint32_t i;

    if (table->count == 0 || (table->order & HAS_ORDERED_KEYS))
        return MORVANITE_OK;
    if (room < table->count)
        return MORVANITE_NO_ROOM;
    table->index = 0; /* so that a second index is made like the first */
    for (i = 0; i < table->count; ++i)
        order[i] = i;
    /* Sorts by insertion in ever smaller steps: at the last step, of 1, hardly any pair has far to go. */
    while (step > 1) {
        step = (step / 2 - step / 16) | 1u;
        for (i = step; i < table->count; ++i) {
            uint32_t moved = order[i];
            uint32_t hole = i;
            for (; hole >= step && is_before(table, moved, order[hole - step]); hole -= step)
                order[hole] = order[hole - step];
            order[hole] = moved;
        }
    }
    table->index = order;
    return MORVANITE_OK;
}

/* Reads the entry at `*cursor` and moves `*cursor` after it. MORVANITE_DAMAGED: the payload ends within the entry, and
 * `*cursor` isn't changed. `*offset` is the entry's offset as the payload has it. */
static morvanite_result read_entry(const morvanite_payload *payload, uint32_t *cursor, morvanite_entry *entry,
                                   uint32_t *offset)
{
    uint32_t end = *cursor;

    while (end < payload->size && payload->bytes[end] != 0)
        ++end;
    if (end >= payload->size || payload->size - end < 9)
        return MORVANITE_DAMAGED;
    entry->name = (const char *)payload->bytes + *cursor;
    entry->name_length = end - *cursor;
    *offset = read_u32(payload->bytes + end + 1);
    entry->size = read_u32(payload->bytes + end + 5);
    if (entry->name_length == 0)
        return MORVANITE_NOT_FOUND;
    *cursor = end + 9;
    return MORVANITE_OK;
}

/* The address of `size` bytes at `offset`, or null if they aren't within the payload. */
static const uint8_t *find_range(const morvanite_payload *payload, uint32_t offset, uint32_t size)
{
    uint32_t at = offset - payload->base;

    if (offset < payload->base || at > payload->size || size > payload->size - at)
        return 0;
    return payload->bytes + at;
}

morvanite_result morvanite_next_entry(const morvanite_payload *payload, uint32_t *cursor, morvanite_entry *entry)
{
    uint32_t offset;
    morvanite_result result = MORVANITE_NOT_FOUND;

    if (payload->size > 0) /* a payload that couldn't be opened has no directory */
        result = read_entry(payload, cursor, entry, &offset);
    if (result != MORVANITE_OK)
        return result;
    entry->data = find_range(payload, offset, entry->size);
    if (entry->data)
        return MORVANITE_OK;
    entry->size = 0;
    return MORVANITE_DAMAGED;
}

static int is_equal(const char *left, const char *right)
{
    for (; *left != 0 && *left == *right; ++left)
        ++right;
    return *left == *right;
}

morvanite_result morvanite_find_entry(const morvanite_payload *payload, const char *name, morvanite_entry *entry)
{
    uint32_t cursor = 0;

    for (;;) {
        uint32_t before = cursor;
        morvanite_result result = morvanite_next_entry(payload, &cursor, entry);
        if (cursor == before || is_equal(entry->name, name))
            return result;
    }
}

morvanite_result morvanite_open(morvanite_payload *payload, const void *bytes, uint32_t size, uint32_t base)
{
    static const char block_name[] = {'z', 'e', 'p', '-', '2', '.', '0', 0};
    uint32_t cursor = 0;
    uint32_t last = 0; /* where the last entry begins: the table's, since a file may have the same name */
    uint32_t first_data = 0;
    uint32_t offset;
    const uint8_t *end;
    morvanite_entry entry;
    morvanite_result result;

    payload->bytes = (const uint8_t *)bytes;
    payload->size = size;
    payload->base = base;
    payload->items.count = 0;
    for (;;) {
        uint32_t before = cursor;
        result = read_entry(payload, &cursor, &entry, &offset);
        if (before == 0)
            first_data = offset - base;
        if (result != MORVANITE_OK)
            break;
        last = before;
    }
    /* The data begins after the directory, at the next multiple of 4; with another base it wouldn't. */
    if (result == MORVANITE_NOT_FOUND && first_data == ((cursor + 9 + 3) & ~UINT32_C(3)) &&
        morvanite_next_entry(payload, &last, &entry) == MORVANITE_OK && is_equal(entry.name, block_name) &&
        (end = find_end(entry.data, entry.size / PAIR_SIZE, &payload->items.order)) != 0) {
        set_table(&payload->items, entry.data, (uint32_t)(end - entry.data) / PAIR_SIZE);
        return MORVANITE_OK;
    }
    payload->size = 0;
    return MORVANITE_DAMAGED;
}

morvanite_result morvanite_item_at(const morvanite_payload *payload, uint32_t position, morvanite_item *item)
{
    pair numbers;

    if (position >= payload->items.count)
        return MORVANITE_NOT_FOUND;
    numbers = read_pair(&payload->items, position);
    item->key = numbers.key;
    item->size = numbers.next - numbers.offset;
    item->data = numbers.offset > numbers.next ? 0 : find_range(payload, numbers.offset, item->size);
    if (item->data)
        return MORVANITE_OK;
    item->size = 0;
    return MORVANITE_DAMAGED;
}

morvanite_result morvanite_find_item(const morvanite_payload *payload, uint32_t key, morvanite_item *item)
{
    return morvanite_item_at(payload, find_key(&payload->items, key), item);
}

/* Sets `language` as if its table were in order, without a walk. MORVANITE_DAMAGED: the table's count and the end of
 * its texts don't match the item's size. */
static morvanite_result set_language(const morvanite_item *item, morvanite_language *language)
{
    uint32_t pairs; /* with the one that ends the table, whose offset is the end of the texts */

    language->number = item->key - MORVANITE_LANGUAGE_KEY(0);
    language->strings.count = 0;
    if (language->number > 0xFFFFu)
        return MORVANITE_NOT_FOUND;
    pairs = item->size < 4 ? 0 : read_u32(item->data);
    if (pairs - 1 >= (item->size - 4) / PAIR_SIZE)
        return MORVANITE_DAMAGED;
    language->data = item->data;
    language->size = read_u32(item->data + pairs * PAIR_SIZE);
    if (language->size > item->size)
        return MORVANITE_DAMAGED;
    language->strings.order = HAS_ORDERED_KEYS | HAS_ORDERED_DATA;
    set_table(&language->strings, item->data + 4, pairs - 1);
    return MORVANITE_OK;
}

/* Walks the table of a language that is set, and notes its order. MORVANITE_DAMAGED: it ends before its last pair. */
static morvanite_result walk_language(morvanite_language *language)
{
    morvanite_table *table = &language->strings;

    if (find_end(table->pairs, table->count + 1, &table->order) == table->pairs + table->count * PAIR_SIZE)
        return MORVANITE_OK;
    table->count = 0;
    return MORVANITE_DAMAGED;
}

morvanite_result morvanite_open_language(const morvanite_item *item, morvanite_language *language)
{
    morvanite_result result = set_language(item, language);

    return result == MORVANITE_OK ? walk_language(language) : result;
}

/* Finds and sets a language. */
SHARED morvanite_result locate_language(const morvanite_payload *payload, uint32_t number, morvanite_language *language)
{
    morvanite_item item;
    morvanite_result result = MORVANITE_NOT_FOUND;

    language->strings.count = 0;
    if (number < 0xFFFFu)
        result = morvanite_find_item(payload, MORVANITE_LANGUAGE_KEY(number), &item);
    return result == MORVANITE_OK ? set_language(&item, language) : result;
}

morvanite_result morvanite_find_language(const morvanite_payload *payload, uint32_t number,
                                         morvanite_language *language)
{
    morvanite_result result = locate_language(payload, number, language);

    return result == MORVANITE_OK ? walk_language(language) : result;
}

morvanite_result morvanite_string_at(const morvanite_language *language, uint32_t position, morvanite_string *string)
{
    pair numbers;
    uint32_t at;

    if (position >= language->strings.count)
        return MORVANITE_NOT_FOUND;
    numbers = read_pair(&language->strings, position);
    string->id = numbers.key;
    string->units = 0;
    string->length = 0;
    at = numbers.offset;
    /* The first string is after the count and all pairs; a smaller offset would return their bytes as text. */
    if (at < 4 + (language->strings.count + 1) * PAIR_SIZE)
        return MORVANITE_DAMAGED;
    /* The zero unit is one of the last two before the next string, if the order that is noted is the table's. */
    if ((language->strings.order & HAS_ORDERED_DATA) && numbers.next > at && numbers.next - at > 4)
        at += (numbers.next - at - 4) & ~UINT32_C(1);
    for (; at < language->size && language->size - at >= 2; at += 2)
        if ((language->data[at] | language->data[at + 1]) == 0) {
            string->units = language->data + numbers.offset;
            string->length = (at - numbers.offset) / 2;
            return MORVANITE_OK;
        }
    return MORVANITE_DAMAGED;
}

morvanite_result morvanite_find_string(const morvanite_language *language, uint32_t id, morvanite_string *string)
{
    return morvanite_string_at(language, find_key(&language->strings, id), string);
}

/* Looks the text up as in a table that is in order. If it is there and has no zero unit within, its end is the same in
 * any order of the offsets. Only otherwise the table is walked. */
morvanite_result morvanite_find_text(const morvanite_payload *payload, uint32_t number, uint32_t id,
                                     morvanite_string *string)
{
    morvanite_language language; /* without strings if it isn't found */
    morvanite_result result;

    (void)locate_language(payload, number, &language);
    if (morvanite_find_string(&language, id, string) == MORVANITE_OK) {
        const uint8_t *unit = string->units;
        while ((unit[0] | unit[1]) != 0) /* one follows the text */
            unit += 2;
        if (unit == string->units + 2 * string->length)
            return MORVANITE_OK;
    }
    result = morvanite_find_language(payload, number, &language);
    return result == MORVANITE_OK ? morvanite_find_string(&language, id, string) : result;
}

uint16_t morvanite_string_unit(const morvanite_string *string, uint32_t i)
{
    return (uint16_t)(i < string->length ? string->units[2 * i] | string->units[2 * i + 1] << 8 : 0);
}

/* Returns the character at `*i` and moves `*i` after it. */
static uint32_t next_character(const morvanite_string *string, uint32_t *i)
{
    uint32_t unit = morvanite_string_unit(string, (*i)++);
    uint32_t low = unit >> 10 == 0xD800u >> 10 ? morvanite_string_unit(string, *i) : 0;

    if (low >> 10 != 0xDC00u >> 10)
        return unit >> 11 == 0xD800u >> 11 ? REPLACEMENT_CHARACTER : unit;
    ++*i;
    return 0x10000u + ((unit - 0xD800u) << 10) + (low - 0xDC00u);
}

uint32_t morvanite_string_utf8(const morvanite_string *string, char *buffer, uint32_t room)
{
    uint32_t written = 0;
    uint32_t needed = 0;
    uint32_t i = 0;

    while (i < string->length) {
        uint32_t character = next_character(string, &i);
        uint32_t more = (character >= 0x80u) + (uint32_t)(character >= 0x800u) + (character >= 0x10000u);
        /* The leading ones of the first byte are the number of bytes. */
        uint32_t lead = more == 0 ? 0 : (0xF80u >> more) & 0xFFu;
        if (written == needed && room - written > more + 1) {
            buffer[written++] = (char)(lead | character >> (6 * more));
            while (more-- > 0)
                buffer[written++] = (char)(0x80u | (character >> (6 * more) & 0x3Fu));
            needed = written;
        } else if (needed < UINT32_C(0xFFFFFFF0)) { /* a text of gigabytes: stop counting, don't wrap */
            needed += more + 1;
        }
    }
    if (room > 0)
        buffer[written] = 0;
    return needed;
}

morvanite_result morvanite_find_appended(const void *file, uint32_t file_size, const uint8_t **payload, uint32_t *size,
                                         uint32_t *base)
{
    static const char magic[] = {'.', 'z', 'p', '_', 'r', 'e', 's', 0};
    const uint8_t *bytes = (const uint8_t *)file;
    uint32_t at;

    if (file_size < sizeof magic + 4)
        return MORVANITE_NOT_FOUND;
    at = read_u32(bytes + file_size - 4);
    if (at > file_size - 4 - sizeof magic || !is_equal((const char *)bytes + at, magic))
        return MORVANITE_NOT_FOUND;
    *payload = bytes + at + sizeof magic;
    *base = at + (uint32_t)sizeof magic;
    *size = file_size - 4 - *base;
    return MORVANITE_OK;
}
