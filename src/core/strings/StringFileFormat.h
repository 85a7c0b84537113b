// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

/// The fixed words of a string file. Lines end with "\r\n"; fields are separated by tabs.
///
/// | line | fields |
/// |---|---|
/// | 1 | COUNT_WORD (after the byte order mark), the number of languages |
/// | 2 | ID_WORD, TYPE_WORD, DESCRIPTION_WORD, then "name(number)" for each language |
/// | rows | the ID, PUSH_WORD or NORMAL_WORD, the description, then the text of each language |
/// | last | END_WORD, the number of rows |
namespace StringFileFormat
{

inline constexpr QStringView COUNT_WORD = u"Number of Language";
inline constexpr QStringView ID_WORD = u"String ID";
inline constexpr QStringView TYPE_WORD = u"Resource Type";
inline constexpr QStringView DESCRIPTION_WORD = u"Description";
inline constexpr QStringView PUSH_WORD = u"Push";
inline constexpr QStringView NORMAL_WORD = u"Normal";
inline constexpr QStringView END_WORD = u"##number";
inline constexpr char16_t BYTE_ORDER_MARK = 0xFEFF;

inline constexpr qint32 DESCRIPTION = -1; ///< the language number of the Description folder

/// The codes of failures; the load and the save of a project return them.
enum Code : int
{
    OK = 0,
    WRONG_HEADER = 11,
    CANT_OPEN = 110,
    CANT_READ_LINE = 1012,
    CANT_WRITE = 1013,
    UNKNOWN_LANGUAGE = 1608,
};

} // namespace StringFileFormat
