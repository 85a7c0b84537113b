#pragma once

#include "ReadEverything.h"

#include "morvanite_layout.h"

#include <sstream>

/// What the getter of that part's type says, as text; the names of results that aren't MORVANITE_OK.
inline std::string ShowProperty(const morvanite_part &owner, const morvanite_part &part)
{
    const std::uint32_t number = part.number;
    std::ostringstream text;
    const auto told = [&](morvanite_result result, const auto &...values) {
        if (result == MORVANITE_OK)
            ((text << ' ' << values), ...);
        else
            text << (result == MORVANITE_DAMAGED ? " damaged" : " of another type");
    };
    int truth = 0;
    std::int32_t s32 = 0;
    std::uint32_t u32 = 0;
    float real = 0;
    morvanite_point point = {};
    morvanite_size size = {};
    morvanite_fpoint place = {};
    morvanite_rect rect = {};
    morvanite_state_image images = {};
    const char *string = "";
    const char *name = "";
    switch (part.type) {
    case MORVANITE_UNNUMBERED:
        told(morvanite_unnumbered(&part, &name, &string), name, string);
        break;
    case MORVANITE_BOOL:
        told(morvanite_get_bool(&owner, number, &truth), truth);
        break;
    case MORVANITE_S32:
        told(morvanite_get_s32(&owner, number, &s32), s32);
        break;
    case MORVANITE_U32:
    case MORVANITE_MSEC:
        told(morvanite_get_u32(&owner, number, &u32), u32);
        break;
    case MORVANITE_FLOAT:
        told(morvanite_get_float(&owner, number, &real), real);
        break;
    case MORVANITE_COLOR:
        text << std::hex;
        told(morvanite_get_color(&owner, number, &u32), u32);
        break;
    case MORVANITE_ENUMERATOR:
        told(morvanite_get_enumerator(&owner, number, &u32), u32);
        break;
    case MORVANITE_REFERENCE:
    case MORVANITE_STRING:
    case MORVANITE_IMAGE:
        told(morvanite_get_reference(&owner, number, &u32), '@', u32);
        break;
    case MORVANITE_POINT:
        told(morvanite_get_point(&owner, number, &point), point.x, point.y);
        break;
    case MORVANITE_SIZE:
        told(morvanite_get_size(&owner, number, &size), size.width, size.height);
        break;
    case MORVANITE_FPOINT:
        told(morvanite_get_fpoint(&owner, number, &place), place.x, place.y);
        break;
    case MORVANITE_RECT:
        told(morvanite_get_rect(&owner, number, &rect), rect.left, rect.top, rect.width, rect.height);
        break;
    case MORVANITE_STATE_IMAGE:
        told(morvanite_get_state_image(&owner, number, &images), images.normal, images.pressed, images.disabled,
             images.highlight);
        break;
    case MORVANITE_TEXT:
        told(morvanite_get_text(&owner, number, &string), string);
        break;
    default:
        return " is unknown";
    }
    return text.str();
}

/// All that stands in an owner, a line for each part. Throws when a walk of components meets others than a walk of all.
inline void ReadParts(const morvanite_part &owner, std::string &text)
{
    constexpr std::size_t Enough = 1U << 20;
    std::uint32_t cursor = 0;
    std::uint32_t components = 0;
    morvanite_part part;
    morvanite_result result;
    const std::string indent(2U * owner.depth, ' ');
    while ((result = morvanite_next_part(&owner, &cursor, &part)) == MORVANITE_OK && text.size() < Enough) {
        text += indent + std::to_string(part.number);
        if (part.type == MORVANITE_COMPONENT) {
            morvanite_part same;
            if (morvanite_next_component(&owner, &components, &same) != MORVANITE_OK || same.data != part.data)
                throw std::logic_error("a walk of components finds another one");
            text += ": " + std::string(morvanite_component_class_name(&part)) + ' ' + morvanite_component_name(&part) +
                    '\n';
            ReadParts(part, text);
        } else if (part.type == MORVANITE_GROUP) {
            text += " {\n";
            ReadParts(part, text);
        } else if (part.type != MORVANITE_NAME && part.type != MORVANITE_CLASS_NAME) {
            text += " =" + ShowProperty(owner, part) + '\n';
        } else {
            text.resize(text.size() - std::to_string(part.number).size() - indent.size());
        }
    }
    if (result == MORVANITE_DAMAGED)
        text += indent + "damaged\n";
}

inline std::string ReadLayout(const std::string &bytes, std::uint32_t key)
{
    const ExactBytes memory(bytes);
    const morvanite_item item{key, memory.Data(), memory.Size()};
    morvanite_layout layout;
    const morvanite_result result = morvanite_open_layout(&item, &layout);
    std::string text = result == MORVANITE_OK ? "" : result == MORVANITE_NOT_FOUND ? "no layout" : "damaged";
    ReadParts(layout.top, text); // nothing, when it isn't open
    return text;
}
