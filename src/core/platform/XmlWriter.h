// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <tinyxml.h>

#include <vector>

class Environment;

/// Writes an XML file element by element, in the form in which the parser prints it, without a tree of it in memory.
///
///     XmlWriter list(env);
///     list.Begin(app);    // an element with its attributes; its content follows
///     list.Put(file);     // a whole element
///     list.End();
///     if (!list.Save(path)) ...
class XmlWriter
{
public:
    explicit XmlWriter(Environment &environment) : env(environment) {}

    void Begin(const TiXmlElement &element);
    /// Writes a whole element. Each element in it may contain either one text or other elements.
    void Put(const TiXmlElement &element);
    void End();

    // The same without an element of the parser: call Attribute for each attribute right after BeginElement. Names must
    // be valid (IsXmlName). All texts are UTF-8.
    void BeginElement(const QByteArray &name);
    void Attribute(QByteArrayView name, QByteArrayView value);
    /// Ends an element that has only this text.
    void EndWithText(QByteArrayView text);

    /// Writes a line that isn't XML, such as a marker of a merge.
    void Line(QByteArrayView line);

    /// The text that has been written, in UTF-8.
    [[nodiscard]] QByteArrayView Text() const { return QByteArrayView(buffer).first(used); }
    /// The bytes that Save writes: the text in the code page.
    [[nodiscard]] QByteArray Bytes() const;
    /// Replaces the file at `path` with the text. False when it couldn't be written.
    [[nodiscard]] bool Save(const QString &path);

private:
    /// Makes room for `size` more bytes and returns a pointer to the first of them.
    char *Room(qsizetype size);
    void Add(QByteArrayView piece);
    void Indent();
    void CloseTag();
    void Encode(QByteArrayView plain);

    Environment &env;
    QByteArray buffer; // a layout has millions of pieces; each is only copied into its place
    qsizetype used = 0;
    std::vector<QByteArray> open; // names, outermost first
    bool inTag = false;           // the innermost start tag isn't closed yet: "/>" or ">" depends on its content
};
