// SPDX-License-Identifier: MIT
#pragma once

#include "Xml.h"

#include <vector>

/// An XML file with very many elements in its outermost one, which are read one after another. The parser makes each of
/// them when it is asked for, so that only one is in memory at a time. Each element is the same as after LoadXml.
///
/// In a file with other content than plain elements, such as comments, the parser makes all elements at once.
///
///     XmlElements xml;
///     if (const int code = xml.Load(env, path)) ... // xml.Document().ErrorRow()
///     const TiXmlElement *outermost = xml.Document().FirstChildElement();
///     while (const TiXmlElement *element = xml.Next()) ...
class XmlElements
{
public:
    XmlElements();
    XmlElements(const XmlElements &) = delete;
    XmlElements &operator=(const XmlElements &) = delete;

    /// Reads and checks a file. Returns the same as LoadXml. Call it once.
    [[nodiscard]] int Load(const Environment &env, const QString &path);
    /// The document. It may lack the elements in the outermost one, but has everything else.
    [[nodiscard]] const TiXmlDocument &Document() const { return document; }
    /// Returns the next element in the outermost one, or null. It is valid until the next call.
    [[nodiscard]] const TiXmlElement *Next();

private:
    /// The place of an element in the text.
    struct Piece
    {
        char *begin;
        char *end; ///< behind its end tag
    };
    class Finder;

    QByteArray text;
    TiXmlDocument document;
    TiXmlElement *current = nullptr; // in the document, if all elements are in it

    bool isInPieces = false;
    std::vector<Piece> pieces;
    size_t next = 0;               // in `pieces`
    TiXmlDocument made;            // the element that was made last
    const char *counted = nullptr; // in the text
    qintptr row = 1;               // of the place `counted`
};
