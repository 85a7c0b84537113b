// SPDX-License-Identifier: MIT
#include "XmlWriter.h"

#include "Environment.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace
{

constexpr qsizetype INDENT = 4; // blanks per level
// To grow the buffer copies it, while memory that isn't written to costs nothing.
constexpr qsizetype FIRST_SIZE = 64 * 1024; // bytes

/// Returns the entity for a character, or null if it needs none.
constexpr const char *EntityOf(char c)
{
    switch (c) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    case '\'':
        return "&apos;";
    default:
        return nullptr;
    }
}

/// For each byte: true if it is written as it is.
constexpr auto IS_PLAIN = [] {
    std::array<bool, 256> plain{};
    for (size_t byte = ' '; byte < plain.size(); ++byte)
        plain[byte] = !EntityOf(char(byte));
    return plain;
}();

} // namespace

char *XmlWriter::Room(qsizetype size)
{
    if (buffer.size() - used < size)
        buffer.resize(std::max(buffer.size() * 4, used + size + FIRST_SIZE));
    return buffer.data() + used;
}

void XmlWriter::Add(QByteArrayView piece)
{
    std::copy(piece.begin(), piece.end(), Room(piece.size())); // an empty piece may have no address
    used += piece.size();
}

void XmlWriter::Indent()
{
    const qsizetype blanks = INDENT * qsizetype(open.size());
    std::memset(Room(blanks), ' ', size_t(blanks));
    used += blanks;
}

void XmlWriter::Encode(QByteArrayView plain)
{
    const char *from = plain.begin();
    for (;;) {
        const char *const at = std::find_if(from, plain.end(), [](char c) { return !IS_PLAIN[quint8(c)]; });
        Add(QByteArrayView(from, at));
        if (at == plain.end())
            return;
        if (const char *entity = EntityOf(*at)) {
            Add(entity);
        } else {
            constexpr char HEX[] = "0123456789ABCDEF";
            const char number[] = {'&', '#', 'x', HEX[*at >> 4], HEX[*at & 15], ';'};
            Add(QByteArrayView(number, sizeof number));
        }
        from = at + 1;
    }
}

void XmlWriter::CloseTag()
{
    if (inTag)
        Add(">\n");
    inTag = false;
}

void XmlWriter::BeginElement(const QByteArray &name)
{
    CloseTag();
    Indent();
    Add("<");
    Add(name);
    open.push_back(name);
    inTag = true;
}

void XmlWriter::Attribute(QByteArrayView name, QByteArrayView value)
{
    const bool hasQuote = value.contains('"');
    Add(" ");
    Add(name);
    Add(hasQuote ? "='" : "=\"");
    Encode(value);
    Add(hasQuote ? "'" : "\"");
}

void XmlWriter::EndWithText(QByteArrayView text)
{
    Add(">");
    Encode(text);
    Add("</");
    Add(open.back());
    Add(">\n");
    open.pop_back();
    inTag = false;
}

void XmlWriter::Begin(const TiXmlElement &element)
{
    BeginElement(QByteArray::fromStdString(element.ValueStr()));
    for (auto *attribute = element.FirstAttribute(); attribute; attribute = attribute->Next())
        Attribute(attribute->Name(), attribute->ValueStr());
}

void XmlWriter::Put(const TiXmlElement &element)
{
    Begin(element);
    const TiXmlNode *only = element.FirstChild() == element.LastChild() ? element.FirstChild() : nullptr;
    if (only && only->ToText()) {
        EndWithText(only->ValueStr());
        return;
    }
    for (auto *child = element.FirstChildElement(); child; child = child->NextSiblingElement())
        Put(*child);
    End();
}

void XmlWriter::End()
{
    const QByteArray name = std::move(open.back());
    open.pop_back();
    if (inTag) {
        Add(" />\n");
    } else {
        Indent();
        Add("</");
        Add(name);
        Add(">\n");
    }
    inTag = false;
}

void XmlWriter::Line(QByteArrayView line)
{
    CloseTag();
    Add(line);
    Add("\n");
}

QByteArray XmlWriter::Bytes() const
{
    return env.codePage.IsUtf8() ? Text().toByteArray() : env.WideToNarrow(QString::fromUtf8(Text()));
}

bool XmlWriter::Save(const QString &path)
{
    if (env.codePage.IsUtf8())
        return env.ReplaceFile(path, Text()) == 0;
    return env.ReplaceFile(path, Bytes()) == 0;
}
