/* SPDX-License-Identifier: MIT */
#include "start_screen.h"

#define LAYOUT_NAMES
#include "LayoutID.h"
#include "ResID.h"
#include "morvanite_layout.h"
#include "picture.h"
#include "text.h"

#include <stdio.h>

enum
{
    TEXT_ROOM = 160,
    DEEPEST = 16, /* more than any of our screens; a damaged layout may be deeper */
    CLASSES = sizeof layout_class_names / sizeof *layout_class_names,
    PROPERTIES = sizeof layout_property_names / sizeof *layout_property_names
};

typedef struct screen
{
    const morvanite_payload *payload;
    const morvanite_language *language;
} screen;

static void show_place(const morvanite_part *component)
{
    char place[32] = "";
    morvanite_point at;
    morvanite_size size;
    if (morvanite_get_point(component, LAYOUT_PROPERTY_pos, &at) == MORVANITE_OK)
        snprintf(place, sizeof place, "(%d, %d)", (int)at.x, (int)at.y);
    text_print(place, 12);
    if (morvanite_get_size(component, LAYOUT_PROPERTY_size, &size) == MORVANITE_OK)
        printf("%3d x %d", (int)size.width, (int)size.height);
}

static void show_image(const screen *where, const char *property, uint32_t id)
{
    morvanite_item image;
    picture_info info;
    if (id == 0)
        return;
    if (morvanite_find_item(where->payload, id, &image) != MORVANITE_OK)
        printf("  %s (missing)", property);
    else if (picture_read(image.data, image.size, &info) == 0)
        printf("  %s %ux%u", property, (unsigned)info.width, (unsigned)info.height);
    else
        printf("  %s %u bytes", property, (unsigned)image.size);
}

/* Prints what a part refers to. The other values are only needed for drawing. */
static void show_value(const screen *where, const morvanite_part *component, const morvanite_part *value)
{
    const char *property = value->number < PROPERTIES ? layout_property_names[value->number] : "?";
    char text[TEXT_ROOM];
    uint32_t id;
    morvanite_state_image images;
    if (value->type == MORVANITE_STATE_IMAGE &&
        morvanite_get_state_image(component, value->number, &images) == MORVANITE_OK) {
        show_image(where, "normal", images.normal);
        show_image(where, "pressed", images.pressed);
        show_image(where, "disabled", images.disabled);
        show_image(where, "highlight", images.highlight);
    } else if (morvanite_get_reference(component, value->number, &id) == MORVANITE_OK) {
        if (value->type == MORVANITE_STRING)
            printf("  %s \"%s\"", property, text_load(where->language, id, text, sizeof text));
        else if (value->type == MORVANITE_IMAGE)
            show_image(where, property, id);
    }
}

static morvanite_result show_component(const screen *where, const morvanite_part *component)
{
    uint32_t cursor = 0;
    morvanite_part value;
    morvanite_result result;
    printf("  %*s", 2 * (component->depth - 1), "");
    text_print(component->number < CLASSES ? layout_class_names[component->number] : "?", 16 - 2 * component->depth);
    text_print(morvanite_component_name(component), 20);
    show_place(component);
    while ((result = morvanite_next_part(component, &cursor, &value)) == MORVANITE_OK) {
        if (value.type != MORVANITE_COMPONENT && value.number != 0)
            show_value(where, component, &value);
    }
    putchar('\n');
    return result == MORVANITE_NOT_FOUND ? MORVANITE_OK : result;
}

static morvanite_result show_components(const screen *where, const morvanite_part *owner)
{
    uint32_t cursor = 0;
    morvanite_part component;
    morvanite_result result = owner->depth < DEEPEST ? MORVANITE_OK : MORVANITE_DAMAGED;
    while (result == MORVANITE_OK && (result = morvanite_next_component(owner, &cursor, &component)) == MORVANITE_OK) {
        result = show_component(where, &component);
        if (result == MORVANITE_OK)
            result = show_components(where, &component);
    }
    return result == MORVANITE_NOT_FOUND ? MORVANITE_OK : result;
}

int start_screen_show(const morvanite_payload *payload, const morvanite_language *language)
{
    const screen where = {payload, language};
    morvanite_item item;
    morvanite_layout layout;
    morvanite_result result = morvanite_find_item(payload, ID_LAYOUT_START, &item);
    if (result == MORVANITE_OK)
        result = morvanite_open_layout(&item, &layout);
    if (result == MORVANITE_OK && layout.table != LAYOUT_TABLE) {
        fputs("weatherclock: the start screen was made with a different catalogue than this program\n", stderr);
        return -1;
    }
    if (result == MORVANITE_OK) {
        printf("\nStart screen: layout %u of %u bytes\n", (unsigned)ID_LAYOUT_START, (unsigned)item.size);
        result = show_components(&where, &layout.top);
    }
    if (result != MORVANITE_OK)
        fprintf(stderr, "weatherclock: ID_LAYOUT_START: %s\n", result == MORVANITE_NOT_FOUND ? "not found" : "damaged");
    return result == MORVANITE_OK ? 0 : -1;
}
