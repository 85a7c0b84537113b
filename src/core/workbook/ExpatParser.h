#pragma once

#include <expat.h>

/// A namespace-aware expat parser that doesn't take more memory than MOST_MEMORY, whatever it is given: it keeps each
/// name it meets, and each element that is open. A name reaches the handlers as its namespace, SEPARATOR, and the rest.
class ExpatParser
{
public:
    static constexpr char SEPARATOR = '\n';         // in no namespace: expat sees to it
    static constexpr size_t MOST_MEMORY = 32 << 20; ///< bytes, for all parsers of a thread

    ExpatParser();
    ~ExpatParser() { XML_ParserFree(parser); }
    ExpatParser(const ExpatParser &) = delete;
    ExpatParser &operator=(const ExpatParser &) = delete;

    operator XML_Parser() const { return parser; }

private:
    XML_Parser parser;
};
