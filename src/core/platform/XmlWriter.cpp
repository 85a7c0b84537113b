#include "XmlWriter.h"

#include "Environment.h"

namespace
{

constexpr qsizetype INDENT = 4; // blanks a level

/// What stands for a character, or nothing.
const char *EntityOf(char c)
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

} // namespace

void XmlWriter::Encode(QByteArrayView plain)
{
    const char *from = plain.begin();
    for (const char *at = from; at < plain.end(); ++at) {
        const bool control = quint8(*at) < ' ';
        const char *entity = control ? nullptr : EntityOf(*at);
        if (!control && !entity)
            continue;
        text.append(from, at - from);
        if (entity) {
            text.append(entity);
        } else {
            constexpr char HEX[] = "0123456789ABCDEF";
            text.append("&#x").append(HEX[*at >> 4]).append(HEX[*at & 15]).append(';');
        }
        from = at + 1;
    }
    text.append(from, plain.end() - from);
}

void XmlWriter::EndTag()
{
    if (inTag)
        text.append(">\n");
    inTag = false;
}

void XmlWriter::BeginElement(const QByteArray &name)
{
    EndTag();
    text.append(INDENT * qsizetype(open.size()), ' ').append('<').append(name);
    open.push_back(name);
    inTag = true;
}

void XmlWriter::Attribute(QByteArrayView name, QByteArrayView value)
{
    const char quote = value.contains('"') ? '\'' : '"';
    text.append(' ').append(name).append('=').append(quote);
    Encode(value);
    text.append(quote);
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
        text.append('>');
        Encode(only->ValueStr());
        text.append("</").append(open.back()).append(">\n");
        open.pop_back();
        inTag = false;
        return;
    }
    for (auto *child = element.FirstChildElement(); child; child = child->NextSiblingElement())
        Put(*child);
    End();
}

void XmlWriter::End()
{
    if (inTag)
        text.append(" />\n");
    else
        text.append(INDENT * qsizetype(open.size() - 1), ' ').append("</").append(open.back()).append(">\n");
    inTag = false;
    open.pop_back();
}

bool XmlWriter::Save(const QString &path)
{
    if (env.codePage.IsUtf8())
        return env.ReplaceFile(path, text) == 0;
    return env.ReplaceFile(path, env.WideToNarrow(QString::fromUtf8(text))) == 0;
}
