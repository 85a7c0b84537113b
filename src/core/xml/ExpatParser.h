// SPDX-License-Identifier: MIT
#pragma once

#include <expat.h>

/// A namespace-aware expat parser that takes at most MOST_MEMORY, whatever its input is. The limit is needed because
/// expat keeps each name in its input and each open element. The handlers get a name as its namespace, SEPARATOR, and
/// the rest.
class ExpatParser
{
public:
    static constexpr char SEPARATOR = '\n';         // no namespace contains it: expat ensures that
    static constexpr size_t MOST_MEMORY = 32 << 20; ///< bytes, for all parsers of a thread

    ExpatParser();
    ~ExpatParser() { XML_ParserFree(parser); }
    ExpatParser(const ExpatParser &) = delete;
    ExpatParser &operator=(const ExpatParser &) = delete;

    operator XML_Parser() const { return parser; }

private:
    XML_Parser parser;
};
