#pragma once

#include "Text.h"

#include <tinyxml.h>

class Environment;

/// Reads an XML file into `document`. The only way in: the file is turned into UTF-8, and nesting (256), attributes of
/// an element (128), the number of tags (4 million) and size (256 MiB) are bounded before the parser sees it. 0; -1
/// when it can't be opened (errno tells why); -2 when it isn't well-formed, and then `document.ErrorRow()` tells where.
/// That row is 0 for an empty file and one that isn't there.
[[nodiscard]] int LoadXml(const Environment &env, const QString &path, TiXmlDocument &document);
[[nodiscard]] int ParseXml(const Environment &env, QByteArrayView bytes, TiXmlDocument &document);

/// The row in which an element of a document that was read begins, from 1. The parser's own count is switched off.
[[nodiscard]] int RowOf(const TiXmlElement &element);

/// Calls `function(element)` for each element in an element, in order, and `other(node)` for what is neither that nor a
/// comment.
template <typename Function, typename Other>
void ForEachChild(const TiXmlElement &parent, Function &&function, Other &&other)
{
    for (const TiXmlNode *node = parent.FirstChild(); node; node = node->NextSibling()) {
        if (const TiXmlElement *const element = node->ToElement())
            function(*element);
        else if (!node->ToComment())
            other(*node);
    }
}
template <typename Function> void ForEachChild(const TiXmlElement &parent, Function &&function)
{
    ForEachChild(parent, function, [](const TiXmlNode &) {});
}

/// Text of the document (UTF-8) in the ANSI code page, and back. Bytes that are no UTF-8 stay as they are where the
/// parser would read them as such, and become U+FFFD where it wouldn't.
[[nodiscard]] NarrowText FromXml(const Environment &env, const char *text);
[[nodiscard]] NarrowText FromXml(const Environment &env, const QByteArray &text);
[[nodiscard]] QByteArray ToXml(const Environment &env, const NarrowText &text);

/// Says whether a text of the document (UTF-8) is the same again after `FromXml` and `ToXml`. False for one that the
/// code page has no form of, and where the file had bytes that no text of its encoding has.
[[nodiscard]] bool IsKeptByCodePage(const Environment &env, const QByteArray &text);

/// Says whether the parser takes a text (UTF-8) for the name of an element or an attribute.
[[nodiscard]] bool IsXmlName(QByteArrayView name);

/// Says whether a document (UTF-8) keeps the bounds of LoadXml, so that what is written can be read again.
[[nodiscard]] bool KeepsXmlBounds(QByteArrayView text);

/// White space condensing of the parser, a switch of the whole process.
void CondenseWhiteSpace(bool on);
