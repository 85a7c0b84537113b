/* SPDX-License-Identifier: MIT */
/* See docs/payload-format.md for the bytes:
 *
 *     directory   name, zero byte, offset (4), size (4); again and again, up to the empty name
 *     items       key (4), offset (4); again and again, up to the key 0xFFFFFFFF;
 *                 its offset is where the last item ends
 *     language    count (4), then id (4), offset (4); again and again, up to the id 0xFFFFFFFF
 *
 * Numbers are little-endian and may be at any address. A range is checked by subtraction, never by a sum that could
 * wrap around. */
#include "morvanite_device.h"

/* Where the processor has the payload's byte order, a number at a multiple of 4 is read by one load. The type may be
 * used for bytes that are declared as something else. Loops over tables are compiled twice, for such numbers and for
 * others, since a call in each step would take more time than the rest of the step. */
#if defined(__GNUC__) && defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
#define HAS_WORDS 1
typedef uint32_t __attribute__((__may_alias__)) word;
#define FOR_EACH_READER static inline __attribute__((__always_inline__))
#else
#define HAS_WORDS 0
typedef uint32_t word;
#define FOR_EACH_READER static
#endif

#define PAIR_SIZE 8u
#define END_KEY UINT32_C(0xFFFFFFFF)
#define REPLACEMENT_CHARACTER 0xFFFDu

/* Bits of a table's `order`: what the walk of its opening found. */
#define IS_SORTED 1u        /* no key is less than the one before it */
#define IS_DISTINCT 2u      /* every key is greater than the one before it */
#define HAS_ORDERED_DATA 4u /* no offset is less than the one before it */

/* Return the number at an address, and the key at a position of a table. */
typedef uint32_t reader(const uint8_t *at);
typedef uint32_t key_reader(const morvanite_table *table, uint32_t position);

static int is_aligned(const uint8_t *at)
{
    return HAS_WORDS && ((uintptr_t)at & 3u) == 0;
}

FOR_EACH_READER uint32_t read_word(const uint8_t *at)
{
    return *(const word *)(const void *)at;
}

static uint32_t read_u32(const uint8_t *at)
{
    if (is_aligned(at))
        return read_word(at);
    return (uint32_t)at[0] | (uint32_t)at[1] << 8 | (uint32_t)at[2] << 16 | (uint32_t)at[3] << 24;
}

/* A pair of a table, and the offset of the next one. There is always a next one, since the last one ends the table. */
typedef struct pair
{
    uint32_t key;
    uint32_t offset;
    uint32_t next;
} pair;

FOR_EACH_READER void read_numbers(const uint8_t *at, pair *numbers, reader *read)
{
    numbers->key = read(at);
    numbers->offset = read(at + 4);
    numbers->next = read(at + PAIR_SIZE + 4);
}

/* Returns 0 if the table has no such position. */
static int read_pair(const morvanite_table *table, uint32_t position, pair *numbers)
{
    const uint8_t *at;

    if (position >= table->count)
        return 0;
    at = table->pairs + position * PAIR_SIZE;
    if (is_aligned(at))
        read_numbers(at, numbers, read_word);
    else
        read_numbers(at, numbers, read_u32);
    return 1;
}

/* Returns the address of the pair that ends the table, which must be before `end`, or null. Sets `order`, and `last` to
 * the last key. */
FOR_EACH_READER const uint8_t *walk_pairs(morvanite_table *table, const uint8_t *end, uint32_t *last, reader *read)
{
    const uint8_t *at;
    uint32_t order = IS_SORTED | IS_DISTINCT | HAS_ORDERED_DATA;
    uint32_t last_key = 0;
    uint32_t last_offset = 0;

    for (at = table->pairs; at != end; at += PAIR_SIZE) {
        uint32_t key = read(at);
        uint32_t offset = read(at + 4);
        if (offset < last_offset)
            order &= ~HAS_ORDERED_DATA;
        if (key == END_KEY) {
            table->order = order;
            *last = last_key;
            return at;
        }
        if (key < last_key)
            order &= ~IS_SORTED;
        if (key <= last_key)
            order &= ~IS_DISTINCT;
        last_key = key;
        last_offset = offset;
    }
    return 0;
}

/* Opens a table that ends within `limit` pairs. */
static morvanite_result open_table(morvanite_table *table, const uint8_t *pairs, uint32_t limit)
{
    const uint8_t *end = pairs + limit * PAIR_SIZE;
    uint32_t last;

    table->pairs = pairs;
    table->count = 0;
    table->index = 0;
    end = is_aligned(pairs) ? walk_pairs(table, end, &last, read_word) : walk_pairs(table, end, &last, read_u32);
    if (!end)
        return MORVANITE_DAMAGED;
    table->count = (uint32_t)(end - pairs) / PAIR_SIZE;
    table->first = read_u32(pairs);
    table->gaps = last - table->first - (table->count - 1);
    return MORVANITE_OK;
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

/* The first position with that key, or the table's count: from `low` to `high` in a sorted table, and otherwise before
 * `high`. */
FOR_EACH_READER uint32_t search(const morvanite_table *table, uint32_t low, uint32_t high, uint32_t key,
                                uint32_t is_sorted, key_reader *read)
{
    if (!is_sorted) {
        for (; low < high; ++low)
            if (read(table, low) == key)
                return low;
        return table->count;
    }
    while (low < high) {
        uint32_t middle = (low + high) / 2;
        if (read(table, middle) < key)
            low = middle + 1;
        else
            high = middle;
    }
    return low < table->count && read(table, low) == key ? low : table->count;
}

/* The first position with that key, or the table's count. */
static uint32_t find_key(const morvanite_table *table, uint32_t key)
{
    uint32_t low = 0;
    uint32_t high = table->count;

    if (high == 0) /* the table may not be open */
        return 0;
    if (table->order & IS_DISTINCT) { /* such a table has no index */
        /* Before the wanted pair there is one for each of the `distance` numbers from the first key on, less at most
         * all `gaps` of the table. If the subtraction wraps around, `low` is too great for any position. */
        uint32_t distance = key - table->first;
        if (distance > table->gaps)
            low = distance - table->gaps;
        if (high > distance)
            high = distance;
    }
    if (!table->index && is_aligned(table->pairs))
        return search(table, low, high, key, table->order & IS_SORTED, word_at);
    low = search(table, low, high, key, table->index != 0 || (table->order & IS_SORTED), key_at);
    return table->index && low < table->count ? table->index[low] : low;
}

/* Equal keys stay in the table's order, so that the first one is found, as in a linear search. */
static int is_before(const morvanite_table *table, uint32_t left, uint32_t right)
{
    uint32_t left_key = read_u32(table->pairs + left * PAIR_SIZE);
    uint32_t right_key = read_u32(table->pairs + right * PAIR_SIZE);
    return left_key < right_key || (left_key == right_key && left < right);
}

morvanite_result morvanite_make_index(morvanite_table *table, uint32_t *order, uint32_t room)
{
    uint32_t unsorted = table->count; /* order[0 .. unsorted) is a heap with the greatest on top */
    uint32_t root = table->count / 2; /* the heap starts here while it is being built */
    uint32_t i;

    if (table->count == 0 || (table->order & IS_SORTED))
        return MORVANITE_OK;
    if (room < table->count)
        return MORVANITE_NO_ROOM;
    for (i = 0; i < table->count; ++i)
        order[i] = i;
    while (unsorted > 1) {
        uint32_t hole;
        uint32_t moved;
        if (root > 0) {
            moved = order[--root];
        } else {
            moved = order[--unsorted];
            order[unsorted] = order[0];
        }
        for (hole = root; hole < unsorted / 2;) {
            uint32_t child = 2 * hole + 1;
            if (child + 1 < unsorted && is_before(table, order[child], order[child + 1]))
                ++child;
            if (!is_before(table, moved, order[child]))
                break;
            order[hole] = order[child];
            hole = child;
        }
        order[hole] = moved;
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
    morvanite_result result;

    /* A payload that couldn't be opened has no directory. */
    if (payload->size == 0)
        return MORVANITE_NOT_FOUND;
    result = read_entry(payload, cursor, entry, &offset);
    if (result != MORVANITE_OK)
        return result;
    entry->data = find_range(payload, offset, entry->size);
    if (entry->data)
        return MORVANITE_OK;
    entry->size = 0;
    return MORVANITE_DAMAGED;
}

static int is_named(const morvanite_entry *entry, const char *name)
{
    uint32_t i = 0;

    while (name[i] != 0 && name[i] == entry->name[i])
        ++i;
    return name[i] == entry->name[i];
}

morvanite_result morvanite_find_entry(const morvanite_payload *payload, const char *name, morvanite_entry *entry)
{
    uint32_t cursor = 0;

    for (;;) {
        uint32_t before = cursor;
        morvanite_result result = morvanite_next_entry(payload, &cursor, entry);
        if (cursor == before || is_named(entry, name))
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
        morvanite_next_entry(payload, &last, &entry) == MORVANITE_OK && is_named(&entry, block_name) &&
        open_table(&payload->items, entry.data, entry.size / PAIR_SIZE) == MORVANITE_OK)
        return MORVANITE_OK;
    payload->size = 0;
    return MORVANITE_DAMAGED;
}

morvanite_result morvanite_item_at(const morvanite_payload *payload, uint32_t position, morvanite_item *item)
{
    pair numbers;

    if (!read_pair(&payload->items, position, &numbers))
        return MORVANITE_NOT_FOUND;
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

morvanite_result morvanite_open_language(const morvanite_item *item, morvanite_language *language)
{
    uint32_t count;

    language->number = item->key - MORVANITE_LANGUAGE_KEY(0);
    language->strings.count = 0;
    if (!MORVANITE_IS_LANGUAGE(item->key))
        return MORVANITE_NOT_FOUND;
    if (item->size < 4)
        return MORVANITE_DAMAGED;
    count = read_u32(item->data); /* with the pair that ends the table */
    if (count > (item->size - 4) / PAIR_SIZE)
        return MORVANITE_DAMAGED;
    if (open_table(&language->strings, item->data + 4, count) == MORVANITE_OK && language->strings.count == count - 1) {
        language->data = item->data;
        language->size = read_u32(item->data + count * PAIR_SIZE); /* the offset of the pair that ends the table */
        if (language->size <= item->size)
            return MORVANITE_OK;
    }
    language->strings.count = 0;
    return MORVANITE_DAMAGED;
}

morvanite_result morvanite_find_language(const morvanite_payload *payload, uint32_t number,
                                         morvanite_language *language)
{
    morvanite_item item;
    morvanite_result result;

    language->strings.count = 0;
    if (number > 0xFFFEu)
        return MORVANITE_NOT_FOUND;
    result = morvanite_find_item(payload, MORVANITE_LANGUAGE_KEY(number), &item);
    return result == MORVANITE_OK ? morvanite_open_language(&item, language) : result;
}

morvanite_result morvanite_string_at(const morvanite_language *language, uint32_t position, morvanite_string *string)
{
    pair numbers;
    uint32_t at;

    if (!read_pair(&language->strings, position, &numbers))
        return MORVANITE_NOT_FOUND;
    string->id = numbers.key;
    string->units = 0;
    string->length = 0;
    at = numbers.offset;
    /* The first string is after the count and all pairs; a smaller offset would return their bytes as text. */
    if (at < 4 + (language->strings.count + 1) * PAIR_SIZE)
        return MORVANITE_DAMAGED;
    /* The zero unit is one of the last two before the next string. */
    if ((language->strings.order & HAS_ORDERED_DATA) && numbers.next - at > 4)
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

morvanite_result morvanite_find_text(const morvanite_payload *payload, uint32_t number, uint32_t id,
                                     morvanite_string *string)
{
    morvanite_language language;
    morvanite_result result = morvanite_find_language(payload, number, &language);

    return result == MORVANITE_OK ? morvanite_find_string(&language, id, string) : result;
}

uint16_t morvanite_string_unit(const morvanite_string *string, uint32_t i)
{
    if (i >= string->length)
        return 0;
    return (uint16_t)(string->units[2 * i] | string->units[2 * i + 1] << 8);
}

/* Returns the character at `*i` and moves `*i` after it. */
static uint32_t next_character(const morvanite_string *string, uint32_t *i)
{
    uint32_t unit = morvanite_string_unit(string, (*i)++);
    uint32_t low;

    if (unit < 0xD800u || unit > 0xDFFFu)
        return unit;
    low = morvanite_string_unit(string, *i);
    if (unit > 0xDBFFu || low < 0xDC00u || low > 0xDFFFu)
        return REPLACEMENT_CHARACTER;
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
            while (more > 0) {
                --more;
                buffer[written++] = (char)(0x80u | (character >> (6 * more) & 0x3Fu));
            }
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
    static const uint8_t magic[8] = {'.', 'z', 'p', '_', 'r', 'e', 's', 0};
    const uint8_t *bytes = (const uint8_t *)file;
    uint32_t at;
    uint32_t i;

    if (file_size < sizeof magic + 4)
        return MORVANITE_NOT_FOUND;
    at = read_u32(bytes + file_size - 4);
    if (at > file_size - 4 - sizeof magic)
        return MORVANITE_NOT_FOUND;
    for (i = 0; i < sizeof magic; ++i)
        if (bytes[at + i] != magic[i])
            return MORVANITE_NOT_FOUND;
    *payload = bytes + at + sizeof magic;
    *base = at + (uint32_t)sizeof magic;
    *size = file_size - 4 - *base;
    return MORVANITE_OK;
}
