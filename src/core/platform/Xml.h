// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <tinyxml.h>

class Environment;

/// Reads an XML file into `document`. All XML files are read by these functions, and by XmlElements: they convert the
/// file to UTF-8 and check limits before the parser gets it: nesting (256), attributes of an element (128), number of
/// tags (4 million) and size (256 MiB). Returns 0; -1 when the file can't be opened (errno has the reason); -2 when it
/// isn't well-formed, and then `document.ErrorRow()` is the row of the error. That row is 0 for an empty file and for
/// one that doesn't exist.
[[nodiscard]] int LoadXml(const Environment &env, const QString &path, TiXmlDocument &document);
[[nodiscard]] int ParseXml(const Environment &env, QByteArrayView bytes, TiXmlDocument &document);

/// Returns the row, from 1, in which an element or a comment of such a document begins. The parser's own row count is
/// switched off.
[[nodiscard]] int RowOf(const TiXmlNode &node);

/// Calls `function(element)` for each child element of an element, in order, and `other(node)` for each child that is
/// neither an element nor a comment.
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

/// Convert text of a document (UTF-8) to the ANSI code page, and back. Bytes that aren't UTF-8 stay as they are if the
/// parser would read them back unchanged, and become U+FFFD otherwise.
[[nodiscard]] NarrowText FromXml(const Environment &env, const char *text);
[[nodiscard]] NarrowText FromXml(const Environment &env, const QByteArray &text);
[[nodiscard]] QByteArray ToXml(const Environment &env, const NarrowText &text);

/// Returns whether a text of the document (UTF-8) is unchanged after `FromXml` and `ToXml`. False for a text with
/// characters that the code page lacks, and if the file had bytes that are invalid in its encoding.
[[nodiscard]] bool IsKeptByCodePage(const Environment &env, const QByteArray &text);

/// Returns whether the parser accepts a text (UTF-8) as the name of an element or an attribute.
[[nodiscard]] bool IsXmlName(QByteArrayView name);

/// Returns whether a document (UTF-8) is within the limits of LoadXml, so that it can be read again once it is written.
[[nodiscard]] bool KeepsXmlBounds(QByteArrayView text);

/// Switches the parser's condensing of white space on or off, for the whole process.
void CondenseWhiteSpace(bool on);
