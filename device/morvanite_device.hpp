// SPDX-License-Identifier: MIT
/// The device's reader (morvanite_device.h) for C++11 and later: no exceptions, no allocation, no standard library.
///
///     morvanite::payload resources;
///     morvanite::language english;
///
///     if (resources.open(flash_address, flash_size) == MORVANITE_OK) {
///         if (const auto logo = resources.find(ID_IMAGE_LOGO))
///             draw(logo->data().data(), logo->data().size());
///         if (english.open(resources, 0) == MORVANITE_OK)
///             if (const auto title = english.find(ID_STRING_TITLE))
///                 for (const char16_t unit : *title)
///                     print(unit);
///     }
///
/// Every object is a view: it has no more than the structure of the C reader, copies nothing, and is valid as long as
/// the payload is. Objects can be copied. The rules for threads are those of morvanite_device.h.
#ifndef MORVANITE_DEVICE_HPP
#define MORVANITE_DEVICE_HPP

#include "morvanite_device.h"

namespace morvanite
{

/// What a look-up returns: a value, or the reason why there is none.
template <typename Value> class found
{
public:
    found(morvanite_result result, const Value &value) noexcept : m_result(result), m_value(value) {}

    explicit operator bool() const noexcept { return m_result == MORVANITE_OK; }
    morvanite_result result() const noexcept { return m_result; }

    /// Without a result of MORVANITE_OK the value is empty; after MORVANITE_DAMAGED in a walk it has its key, ID or
    /// name.
    const Value &operator*() const &noexcept { return m_value; }
    Value operator*() &&noexcept { return m_value; } ///< so that a loop over it keeps it
    const Value *operator->() const noexcept { return &m_value; }

private:
    morvanite_result m_result;
    Value m_value;
};

/// Bytes of the payload.
class bytes
{
public:
    bytes(const uint8_t *data, uint32_t size) noexcept : m_data(data), m_size(size) {}

    const uint8_t *data() const noexcept { return m_data; }
    uint32_t size() const noexcept { return m_size; }
    bool empty() const noexcept { return m_size == 0; }
    const uint8_t *begin() const noexcept { return m_data; }
    const uint8_t *end() const noexcept { return m_data + m_size; }
    uint8_t operator[](uint32_t i) const noexcept { return m_data[i]; } ///< `i` is less than `size()`

private:
    const uint8_t *m_data;
    uint32_t m_size;
};

/// Goes through the parts of an owner, which has `at(position)` and `size()`.
template <typename Owner, typename Part> class walk
{
public:
    walk(const Owner &owner, uint32_t position) noexcept : m_owner(&owner), m_position(position) {}

    Part operator*() const noexcept { return m_owner->at(m_position); }
    walk &operator++() noexcept
    {
        ++m_position;
        return *this;
    }
    bool operator!=(const walk &other) const noexcept { return m_position != other.m_position; }

private:
    const Owner *m_owner;
    uint32_t m_position;
};

/// A string: code units of UTF-16.
class text
{
public:
    explicit text(const morvanite_string &string = morvanite_string()) noexcept : m_string(string) {}

    uint32_t id() const noexcept { return m_string.id; }
    uint32_t size() const noexcept { return m_string.length; } ///< in code units
    bool empty() const noexcept { return m_string.length == 0; }
    char16_t at(uint32_t i) const noexcept { return morvanite_string_unit(&m_string, i); } ///< 0 from `size()` on
    char16_t operator[](uint32_t i) const noexcept { return at(i); }
    walk<text, char16_t> begin() const noexcept { return {*this, 0}; }
    walk<text, char16_t> end() const noexcept { return {*this, size()}; }

    /// See morvanite_string_utf8.
    uint32_t utf8(char *buffer, uint32_t room) const noexcept { return morvanite_string_utf8(&m_string, buffer, room); }
    template <uint32_t Room> uint32_t utf8(char (&buffer)[Room]) const noexcept { return utf8(buffer, Room); }

    const morvanite_string &c() const noexcept { return m_string; }

private:
    morvanite_string m_string;
};

/// A file, an image, a layout or a language's strings.
class item
{
public:
    explicit item(const morvanite_item &of = morvanite_item()) noexcept : m_item(of) {}

    uint32_t key() const noexcept { return m_item.key; }
    bytes data() const noexcept { return {m_item.data, m_item.size}; }
    bool is_language() const noexcept { return MORVANITE_IS_LANGUAGE(m_item.key); }

    const morvanite_item &c() const noexcept { return m_item; } ///< for morvanite_open_layout

private:
    morvanite_item m_item;
};

/// A named entry of the directory.
class entry
{
public:
    explicit entry(const morvanite_entry &of = morvanite_entry()) noexcept : m_entry(of) {}

    const char *name() const noexcept { return m_entry.name; } ///< ends with a zero byte
    uint32_t name_size() const noexcept { return m_entry.name_length; }
    bytes data() const noexcept { return {m_entry.data, m_entry.size}; }

    const morvanite_entry &c() const noexcept { return m_entry; }

private:
    morvanite_entry m_entry;
};

class payload;

/// The strings of a language. One that isn't open has none.
class language
{
public:
    /// See morvanite_find_language and morvanite_open_language.
    inline morvanite_result open(const payload &resources, uint32_t number) noexcept;
    morvanite_result open(const item &strings) noexcept { return morvanite_open_language(&strings.c(), &m_language); }

    uint32_t number() const noexcept { return m_language.number; }
    uint32_t size() const noexcept { return m_language.strings.count; } ///< number of strings

    found<text> find(uint32_t id) const noexcept
    {
        morvanite_string string = morvanite_string();
        const morvanite_result result = morvanite_find_string(&m_language, id, &string);
        return {result, text(string)};
    }
    found<text> at(uint32_t position) const noexcept
    {
        morvanite_string string = morvanite_string();
        const morvanite_result result = morvanite_string_at(&m_language, position, &string);
        return {result, text(string)};
    }
    walk<language, found<text>> begin() const noexcept { return {*this, 0}; }
    walk<language, found<text>> end() const noexcept { return {*this, size()}; }

    /// See morvanite_make_index.
    template <uint32_t Room> morvanite_result make_index(uint32_t (&order)[Room]) noexcept
    {
        return morvanite_make_index(&m_language.strings, order, Room);
    }

    const morvanite_language &c() const noexcept { return m_language; }

private:
    morvanite_language m_language = morvanite_language();
};

/// All resources. A walk goes through the items.
class payload
{
public:
    /// See morvanite_open.
    morvanite_result open(const void *data, uint32_t size, uint32_t base = 0) noexcept
    {
        return morvanite_open(&m_payload, data, size, base);
    }

    uint32_t size() const noexcept { return m_payload.items.count; } ///< number of items

    found<item> find(uint32_t key) const noexcept
    {
        morvanite_item of = morvanite_item();
        const morvanite_result result = morvanite_find_item(&m_payload, key, &of);
        return {result, item(of)};
    }
    found<item> at(uint32_t position) const noexcept
    {
        morvanite_item of = morvanite_item();
        const morvanite_result result = morvanite_item_at(&m_payload, position, &of);
        return {result, item(of)};
    }
    walk<payload, found<item>> begin() const noexcept { return {*this, 0}; }
    walk<payload, found<item>> end() const noexcept { return {*this, size()}; }

    found<entry> find_entry(const char *name) const noexcept
    {
        morvanite_entry of = morvanite_entry();
        const morvanite_result result = morvanite_find_entry(&m_payload, name, &of);
        return {result, entry(of)};
    }
    /// See morvanite_next_entry: start with a `cursor` of 0.
    found<entry> next_entry(uint32_t &cursor) const noexcept
    {
        morvanite_entry of = morvanite_entry();
        const morvanite_result result = morvanite_next_entry(&m_payload, &cursor, &of);
        return {result, entry(of)};
    }

    /// See morvanite_find_text. A `language` that is kept open is faster.
    found<text> find_text(uint32_t number, uint32_t id) const noexcept
    {
        morvanite_string string = morvanite_string();
        const morvanite_result result = morvanite_find_text(&m_payload, number, id, &string);
        return {result, text(string)};
    }

    /// See morvanite_make_index.
    template <uint32_t Room> morvanite_result make_index(uint32_t (&order)[Room]) noexcept
    {
        return morvanite_make_index(&m_payload.items, order, Room);
    }

    const morvanite_payload &c() const noexcept { return m_payload; }

private:
    morvanite_payload m_payload = morvanite_payload();
};

inline morvanite_result language::open(const payload &resources, uint32_t number) noexcept
{
    return morvanite_find_language(&resources.c(), number, &m_language);
}

} // namespace morvanite

#endif
