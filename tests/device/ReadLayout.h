// SPDX-License-Identifier: MIT
#pragma once

#include "ReadEverything.h"

#include "morvanite_layout.h"

#include <sstream>

/// Returns the value of the getter for that part's type as text, or the name of a result that isn't MORVANITE_OK.
inline std::string ShowProperty(const morvanite_part &owner, const morvanite_part &part)
{
    std::ostringstream text;
    const auto show = [&text](morvanite_result result, const auto &...values) {
        if (result == MORVANITE_OK)
            ((text << ' ' << values), ...);
        else
            text << (result == MORVANITE_DAMAGED ? " damaged" : " of another type");
        return text.str();
    };
    const auto told = [&]<typename Value, typename... Member>(
                          morvanite_result (*get)(const morvanite_part *, std::uint32_t, Value *), Member... members) {
        Value value{};
        const morvanite_result result = get(&owner, part.number, &value);
        if constexpr (sizeof...(members) == 0)
            return show(result, value);
        else
            return show(result, value.*members...);
    };
    const char *string = "";
    const char *name = "";
    switch (part.type) {
    case MORVANITE_UNNUMBERED:
        return show(morvanite_unnumbered(&part, &name, &string), name, string);
    case MORVANITE_BOOL:
        return told(morvanite_get_bool);
    case MORVANITE_S32:
        return told(morvanite_get_s32);
    case MORVANITE_U32:
    case MORVANITE_MSEC:
        return told(morvanite_get_u32);
    case MORVANITE_FLOAT:
        return told(morvanite_get_float);
    case MORVANITE_COLOR:
        text << std::hex;
        return told(morvanite_get_color);
    case MORVANITE_ENUMERATOR:
        return told(morvanite_get_enumerator);
    case MORVANITE_REFERENCE:
    case MORVANITE_STRING:
    case MORVANITE_IMAGE:
        return " @" + told(morvanite_get_reference);
    case MORVANITE_POINT:
        return told(morvanite_get_point, &morvanite_point::x, &morvanite_point::y);
    case MORVANITE_SIZE:
        return told(morvanite_get_size, &morvanite_size::width, &morvanite_size::height);
    case MORVANITE_FPOINT:
        return told(morvanite_get_fpoint, &morvanite_fpoint::x, &morvanite_fpoint::y);
    case MORVANITE_RECT:
        return told(morvanite_get_rect, &morvanite_rect::left, &morvanite_rect::top, &morvanite_rect::width,
                    &morvanite_rect::height);
    case MORVANITE_STATE_IMAGE:
        return told(morvanite_get_state_image, &morvanite_state_image::normal, &morvanite_state_image::pressed,
                    &morvanite_state_image::disabled, &morvanite_state_image::highlight);
    case MORVANITE_TEXT:
        return told(morvanite_get_text);
    default:
        return " is unknown";
    }
}

/// Appends a line for each part of an owner. Throws if an iteration over components differs from one over all parts.
inline void ReadParts(const morvanite_part &owner, std::string &text)
{
    constexpr std::size_t Enough = 1U << 20;
    std::uint32_t cursor = 0;
    std::uint32_t components = 0;
    morvanite_part part;
    morvanite_result result;
    const std::string indent(2U * owner.depth, ' ');
    while ((result = morvanite_next_part(&owner, &cursor, &part)) == MORVANITE_OK && text.size() < Enough) {
        const std::string line = indent + std::to_string(part.number);
        if (part.type == MORVANITE_COMPONENT) {
            morvanite_part same;
            if (morvanite_next_component(&owner, &components, &same) != MORVANITE_OK || same.data != part.data)
                throw std::logic_error("a walk of components finds another one");
            text += line + ": " + morvanite_component_class_name(&part) + ' ' + morvanite_component_name(&part) + '\n';
            ReadParts(part, text);
        } else if (part.type == MORVANITE_GROUP) {
            text += line + " {\n";
            ReadParts(part, text);
        } else if (part.type != MORVANITE_NAME && part.type != MORVANITE_CLASS_NAME) {
            text += line + " =" + ShowProperty(owner, part) + '\n';
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
    ReadParts(layout.top, text); // adds nothing if the layout couldn't be opened
    return text;
}
