/* SPDX-License-Identifier: MIT */
/* Walks a layout: the components of a screen with their properties. Optional; it follows the rules of
 * morvanite_device.h: nothing is copied or allocated, and every size is checked before it is used.
 *
 *     #include "LayoutID.h"   // written by the converter: LAYOUT_CLASS_Label, LAYOUT_PROPERTY_pos and so on
 *
 *     void draw_all(const morvanite_part *owner)
 *     {
 *         morvanite_part component;
 *         morvanite_point at;
 *         uint32_t cursor = 0;
 *
 *         while (morvanite_next_component(owner, &cursor, &component) == MORVANITE_OK) {
 *             if (morvanite_get_point(&component, LAYOUT_PROPERTY_pos, &at) == MORVANITE_OK)
 *                 draw(component.number, at.x, at.y);
 *             draw_all(&component); // layout.levels is the depth of this recursion
 *         }
 *     }
 *
 *     if (morvanite_find_item(&resources, ID_LAYOUT_START, &item) == MORVANITE_OK &&
 *         morvanite_open_layout(&item, &layout) == MORVANITE_OK)
 *         draw_all(&layout.top);
 *
 * docs/layout-format.md describes the bytes.
 */
#ifndef MORVANITE_LAYOUT_H
#define MORVANITE_LAYOUT_H

#include "morvanite_device.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The kinds of parts. A part of any other type is from a newer version and can be skipped. */
typedef enum morvanite_part_type
{
    MORVANITE_COMPONENT = 1, /* number: its class; contains its properties and sub-components */
    MORVANITE_GROUP = 2,     /* a structure; number: the property; contains its members */
    MORVANITE_NAME = 3,      /* the name of the component that contains it */
    MORVANITE_CLASS_NAME = 4,
    MORVANITE_UNNUMBERED = 5, /* a property that the table of numbers doesn't have */
    MORVANITE_BOOL = 16,      /* this and all below are values; number: the property */
    MORVANITE_S32 = 17,
    MORVANITE_U32 = 18,
    MORVANITE_MSEC = 19,
    MORVANITE_FLOAT = 20,
    MORVANITE_COLOR = 21,
    MORVANITE_ENUMERATOR = 22,
    MORVANITE_REFERENCE = 23,
    MORVANITE_STRING = 24,
    MORVANITE_IMAGE = 25,
    MORVANITE_POINT = 26,
    MORVANITE_SIZE = 27,
    MORVANITE_FPOINT = 28,
    MORVANITE_RECT = 29,
    MORVANITE_STATE_IMAGE = 30,
    MORVANITE_TEXT = 31
} morvanite_part_type;

/* A component, a structure or a value. */
typedef struct morvanite_part
{
    uint16_t number; /* LAYOUT_CLASS_ of a component, otherwise LAYOUT_PROPERTY_; 0: not in the table */
    uint8_t type;    /* morvanite_part_type */
    uint8_t depth;   /* 0 for a layout's top, 1 for the parts in it */
    const uint8_t *data;
    uint32_t size;
} morvanite_part;

/* An open layout. */
typedef struct morvanite_layout
{
    morvanite_part top; /* contains the outermost components */
    uint32_t table;     /* LAYOUT_TABLE of the numbers that it was made with; 0: it was made without numbers */
    uint32_t levels;    /* the nesting depth of components and structures */
} morvanite_layout;

typedef struct morvanite_point
{
    int32_t x;
    int32_t y;
} morvanite_point;

typedef struct morvanite_size
{
    int32_t width;
    int32_t height;
} morvanite_size;

typedef struct morvanite_fpoint
{
    float x;
    float y;
} morvanite_fpoint;

typedef struct morvanite_rect
{
    int32_t left;
    int32_t top;
    int32_t width;
    int32_t height;
} morvanite_rect;

/* The IDs of images, 0 for none. */
typedef struct morvanite_state_image
{
    uint32_t normal;
    uint32_t pressed;
    uint32_t disabled;
    uint32_t highlight;
} morvanite_state_image;

/* Opens an item. MORVANITE_NOT_FOUND: it isn't a layout, or its version is unknown to this reader. MORVANITE_DAMAGED:
 * its header doesn't match its size, or it was made with the numbers of another ResID.h, so that its ID differs from
 * its item's. */
morvanite_result morvanite_open_layout(const morvanite_item *item, morvanite_layout *layout);

/* The parts of a layout's top, a component or a structure, in their order: values and structures before components.
 * Start with `*cursor` 0 and continue until MORVANITE_NOT_FOUND. MORVANITE_DAMAGED: the part isn't within its owner;
 * `*cursor` isn't changed, and the following parts can't be found. A value has no parts. */
morvanite_result morvanite_next_part(const morvanite_part *owner, uint32_t *cursor, morvanite_part *part);

/* The same, but only components: the first one, then its siblings. */
morvanite_result morvanite_next_component(const morvanite_part *owner, uint32_t *cursor, morvanite_part *component);

/* The value or structure of the property with that number, LAYOUT_PROPERTY_ of LayoutID.h. MORVANITE_NOT_FOUND: it
 * isn't set. */
morvanite_result morvanite_find_property(const morvanite_part *owner, uint32_t number, morvanite_part *property);

/* The component's name, or the empty text; never null. */
const char *morvanite_component_name(const morvanite_part *component);

/* The name of a class that the table of numbers doesn't have, otherwise the empty text; never null. */
const char *morvanite_component_class_name(const morvanite_part *component);

/* The name and the text of a property that the table of numbers doesn't have. MORVANITE_OTHER_TYPE: it isn't
 * MORVANITE_UNNUMBERED. */
morvanite_result morvanite_unnumbered(const morvanite_part *part, const char **name, const char **text);

/* The property's value. MORVANITE_NOT_FOUND: it isn't set. MORVANITE_OTHER_TYPE: its value has a type that the function
 * doesn't support. MORVANITE_DAMAGED: it, or a part before it, is damaged. */

/* 0 or 1. */
morvanite_result morvanite_get_bool(const morvanite_part *owner, uint32_t number, int *value);
morvanite_result morvanite_get_s32(const morvanite_part *owner, uint32_t number, int32_t *value);
/* A number, or a time in milliseconds. */
morvanite_result morvanite_get_u32(const morvanite_part *owner, uint32_t number, uint32_t *value);
morvanite_result morvanite_get_float(const morvanite_part *owner, uint32_t number, float *value);
/* 0xAARRGGBB. */
morvanite_result morvanite_get_color(const morvanite_part *owner, uint32_t number, uint32_t *value);
/* The index of the enumerator in its enumeration, from 0: LAYOUT_ENUM_. */
morvanite_result morvanite_get_enumerator(const morvanite_part *owner, uint32_t number, uint32_t *value);
/* The ID of a string, an image or another resource; 0 for none. */
morvanite_result morvanite_get_reference(const morvanite_part *owner, uint32_t number, uint32_t *value);
morvanite_result morvanite_get_point(const morvanite_part *owner, uint32_t number, morvanite_point *value);
morvanite_result morvanite_get_size(const morvanite_part *owner, uint32_t number, morvanite_size *value);
morvanite_result morvanite_get_fpoint(const morvanite_part *owner, uint32_t number, morvanite_fpoint *value);
morvanite_result morvanite_get_rect(const morvanite_part *owner, uint32_t number, morvanite_rect *value);
morvanite_result morvanite_get_state_image(const morvanite_part *owner, uint32_t number, morvanite_state_image *value);
/* A text in the layout itself, in the project's code page, ended by a zero byte. */
morvanite_result morvanite_get_text(const morvanite_part *owner, uint32_t number, const char **value);

#ifdef __cplusplus
}
#endif

#endif
