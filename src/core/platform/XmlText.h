// SPDX-License-Identifier: MIT
#pragma once

#include "Xml.h"

/// The text of an XML file, as the functions of Xml.h give it to the parser.

/// Converts the bytes of an XML file to the text that the parser reads: UTF-8, with a line feed at the end of each
/// line, up to the first zero byte. A few zero bytes follow, because the parser reads past an incomplete character.
[[nodiscard]] QByteArray XmlText(const Environment &env, QByteArray bytes);

/// Reads a file and converts its bytes. Returns 0, or -1 as LoadXml does.
[[nodiscard]] int ReadXmlText(const Environment &env, const QString &path, QByteArray &text, TiXmlDocument &document);

/// Returns such a text without the zero bytes.
[[nodiscard]] QByteArrayView ContentOf(const QByteArray &text);

/// Reads such a text into `document`, and sets the row of each element (RowOf). Returns 0, or -2 as ParseXml does.
[[nodiscard]] int ParseXmlText(const QByteArray &text, TiXmlDocument &document);

/// Returns whether the parser accepts a character (UTF-8) as the first one of a name.
[[nodiscard]] bool BeginsXmlName(char c);
