/* SPDX-License-Identifier: MIT */
/* See docs/layout-format.md for the bytes:
 *
 *     header   "MLAY", version (1), size of the header (1), levels (2), size of the layout (4), ID (4), table (4)
 *     part     number (2), type (1), n (1); n below 255: 4 * n bytes follow;
 *              n 255: their number (4), a multiple of 4, precedes them
 *
 * Numbers are little-endian. A range is checked by subtraction, never by a sum that could wrap around. */
#include "morvanite_layout.h"

#define VERSION 1u
#define HEADER_SIZE 20u
#define PART_SIZE 4u
#define LONG_PART 255u
#define MOST_WORDS 4u /* of a value that isn't a text */
#define DEEPEST 255u

static uint32_t read_u16(const uint8_t *at)
{
    return (uint32_t)at[0] | (uint32_t)at[1] << 8;
}

static uint32_t read_u32(const uint8_t *at)
{
    return read_u16(at) | read_u16(at + 2) << 16;
}

morvanite_result morvanite_open_layout(const morvanite_item *item, morvanite_layout *layout)
{
    static const uint8_t magic[5] = {'M', 'L', 'A', 'Y', VERSION};
    uint32_t head;
    uint32_t size;
    uint32_t i;

    layout->top.number = 0;
    layout->top.type = MORVANITE_GROUP;
    layout->top.depth = 0;
    layout->top.data = item->data;
    layout->top.size = 0;
    for (i = 0; i < sizeof magic; ++i)
        if (i >= item->size || item->data[i] != magic[i])
            return MORVANITE_NOT_FOUND;
    if (item->size < HEADER_SIZE)
        return MORVANITE_DAMAGED;
    head = item->data[5];
    size = read_u32(item->data + 8);
    if (head < HEADER_SIZE || size < head || size > item->size || read_u32(item->data + 12) != item->key)
        return MORVANITE_DAMAGED;
    layout->levels = read_u16(item->data + 6);
    layout->table = read_u32(item->data + 16);
    layout->top.data += head;
    layout->top.size = size - head;
    return MORVANITE_OK;
}

morvanite_result morvanite_next_part(const morvanite_part *owner, uint32_t *cursor, morvanite_part *part)
{
    const uint8_t *at;
    uint32_t room = owner->size - *cursor;
    uint32_t head = PART_SIZE;

    if (owner->type > MORVANITE_GROUP || *cursor == owner->size)
        return MORVANITE_NOT_FOUND;
    if (*cursor > owner->size || room < head || owner->depth == DEEPEST)
        return MORVANITE_DAMAGED;
    at = owner->data + *cursor;
    part->number = (uint16_t)read_u16(at);
    part->type = at[2];
    part->depth = (uint8_t)(owner->depth + 1);
    part->size = at[3] * 4u;
    if (at[3] == LONG_PART) {
        head += 4;
        if (room < head)
            return MORVANITE_DAMAGED;
        part->size = read_u32(at + 4);
    }
    if (part->size > room - head)
        return MORVANITE_DAMAGED;
    part->data = at + head;
    *cursor += head + part->size;
    return MORVANITE_OK;
}

morvanite_result morvanite_next_component(const morvanite_part *owner, uint32_t *cursor, morvanite_part *component)
{
    morvanite_result result;

    do
        result = morvanite_next_part(owner, cursor, component);
    while (result == MORVANITE_OK && component->type != MORVANITE_COMPONENT);
    return result;
}

morvanite_result morvanite_find_property(const morvanite_part *owner, uint32_t number, morvanite_part *property)
{
    uint32_t cursor = 0;
    morvanite_result result;

    do
        result = morvanite_next_part(owner, &cursor, property);
    while (result == MORVANITE_OK &&
           (property->number != number || number == 0 || property->type == MORVANITE_COMPONENT));
    return result;
}

/* The texts of a part end within it if its last byte is zero. */
static const char *text_of(const morvanite_part *part)
{
    return part->size == 0 || part->data[part->size - 1] != 0 ? 0 : (const char *)part->data;
}

static const char *text_of_type(const morvanite_part *component, uint32_t type)
{
    uint32_t cursor = 0;
    morvanite_part part;
    const char *text = 0;

    while (!text && morvanite_next_part(component, &cursor, &part) == MORVANITE_OK)
        if (part.type == type)
            text = text_of(&part);
    return text ? text : "";
}

const char *morvanite_component_name(const morvanite_part *component)
{
    return text_of_type(component, MORVANITE_NAME);
}

const char *morvanite_component_class_name(const morvanite_part *component)
{
    return text_of_type(component, MORVANITE_CLASS_NAME);
}

morvanite_result morvanite_unnumbered(const morvanite_part *part, const char **name, const char **text)
{
    uint32_t length = 0;
    const char *both = text_of(part);

    if (part->type != MORVANITE_UNNUMBERED)
        return MORVANITE_OTHER_TYPE;
    if (!both)
        return MORVANITE_DAMAGED;
    while (both[length] != 0)
        ++length;
    if (length == part->size - 1)
        return MORVANITE_DAMAGED;
    *name = both;
    *text = both + length + 1;
    return MORVANITE_OK;
}

/* The first `count` words of a property whose type is one from `first` to `last`. A newer version may have more. */
static morvanite_result get_words(const morvanite_part *owner, uint32_t number, uint32_t first, uint32_t last,
                                  uint32_t count, uint32_t *words)
{
    morvanite_part part;
    morvanite_result result = morvanite_find_property(owner, number, &part);
    uint32_t i;

    if (result != MORVANITE_OK)
        return result;
    if (part.type < first || part.type > last)
        return MORVANITE_OTHER_TYPE;
    if (part.size / 4 < count)
        return MORVANITE_DAMAGED;
    for (i = 0; i < count; ++i)
        words[i] = read_u32(part.data + 4 * i);
    return MORVANITE_OK;
}

/* Reinterprets the bits of a number as a float. */
static float to_float(uint32_t bits)
{
    union
    {
        uint32_t bits;
        float value;
    } both;

    both.bits = bits;
    return both.value;
}

morvanite_result morvanite_get_bool(const morvanite_part *owner, uint32_t number, int *value)
{
    uint32_t word;
    morvanite_result result = get_words(owner, number, MORVANITE_BOOL, MORVANITE_BOOL, 1, &word);

    if (result == MORVANITE_OK)
        *value = word != 0;
    return result;
}

morvanite_result morvanite_get_s32(const morvanite_part *owner, uint32_t number, int32_t *value)
{
    return get_words(owner, number, MORVANITE_S32, MORVANITE_S32, 1, (uint32_t *)value);
}

morvanite_result morvanite_get_u32(const morvanite_part *owner, uint32_t number, uint32_t *value)
{
    return get_words(owner, number, MORVANITE_U32, MORVANITE_MSEC, 1, value);
}

morvanite_result morvanite_get_float(const morvanite_part *owner, uint32_t number, float *value)
{
    uint32_t word;
    morvanite_result result = get_words(owner, number, MORVANITE_FLOAT, MORVANITE_FLOAT, 1, &word);

    if (result == MORVANITE_OK)
        *value = to_float(word);
    return result;
}

morvanite_result morvanite_get_color(const morvanite_part *owner, uint32_t number, uint32_t *value)
{
    return get_words(owner, number, MORVANITE_COLOR, MORVANITE_COLOR, 1, value);
}

morvanite_result morvanite_get_enumerator(const morvanite_part *owner, uint32_t number, uint32_t *value)
{
    return get_words(owner, number, MORVANITE_ENUMERATOR, MORVANITE_ENUMERATOR, 1, value);
}

morvanite_result morvanite_get_reference(const morvanite_part *owner, uint32_t number, uint32_t *value)
{
    return get_words(owner, number, MORVANITE_REFERENCE, MORVANITE_IMAGE, 1, value);
}

/* The members of the structures below are the words in their order. */

morvanite_result morvanite_get_point(const morvanite_part *owner, uint32_t number, morvanite_point *value)
{
    uint32_t word[2];
    morvanite_result result = get_words(owner, number, MORVANITE_POINT, MORVANITE_POINT, 2, word);

    if (result == MORVANITE_OK) {
        value->x = (int32_t)word[0];
        value->y = (int32_t)word[1];
    }
    return result;
}

morvanite_result morvanite_get_size(const morvanite_part *owner, uint32_t number, morvanite_size *value)
{
    uint32_t word[2];
    morvanite_result result = get_words(owner, number, MORVANITE_SIZE, MORVANITE_SIZE, 2, word);

    if (result == MORVANITE_OK) {
        value->width = (int32_t)word[0];
        value->height = (int32_t)word[1];
    }
    return result;
}

morvanite_result morvanite_get_fpoint(const morvanite_part *owner, uint32_t number, morvanite_fpoint *value)
{
    uint32_t word[2];
    morvanite_result result = get_words(owner, number, MORVANITE_FPOINT, MORVANITE_FPOINT, 2, word);

    if (result == MORVANITE_OK) {
        value->x = to_float(word[0]);
        value->y = to_float(word[1]);
    }
    return result;
}

morvanite_result morvanite_get_rect(const morvanite_part *owner, uint32_t number, morvanite_rect *value)
{
    uint32_t word[MOST_WORDS];
    morvanite_result result = get_words(owner, number, MORVANITE_RECT, MORVANITE_RECT, MOST_WORDS, word);

    if (result == MORVANITE_OK) {
        value->left = (int32_t)word[0];
        value->top = (int32_t)word[1];
        value->width = (int32_t)word[2];
        value->height = (int32_t)word[3];
    }
    return result;
}

morvanite_result morvanite_get_state_image(const morvanite_part *owner, uint32_t number, morvanite_state_image *value)
{
    uint32_t word[MOST_WORDS];
    morvanite_result result = get_words(owner, number, MORVANITE_STATE_IMAGE, MORVANITE_STATE_IMAGE, MOST_WORDS, word);

    if (result == MORVANITE_OK) {
        value->normal = word[0];
        value->pressed = word[1];
        value->disabled = word[2];
        value->highlight = word[3];
    }
    return result;
}

morvanite_result morvanite_get_text(const morvanite_part *owner, uint32_t number, const char **value)
{
    morvanite_part part;
    morvanite_result result = morvanite_find_property(owner, number, &part);

    if (result != MORVANITE_OK)
        return result;
    if (part.type != MORVANITE_TEXT)
        return MORVANITE_OTHER_TYPE;
    if (!text_of(&part))
        return MORVANITE_DAMAGED;
    *value = text_of(&part);
    return MORVANITE_OK;
}
