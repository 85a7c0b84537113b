#pragma once

#include "Text.h"

#include <tinyxml.h>

#include <vector>

class Environment;

/// Writes an XML file element by element, in the form in which the parser prints, so that no tree of it stands in
/// memory.
///
///     XmlWriter list(env);
///     list.Begin(app);    // an element with its attributes; what it holds follows
///     list.Put(file);     // a whole one
///     list.End();
///     if (!list.Save(path)) ...
class XmlWriter
{
public:
    explicit XmlWriter(Environment &environment) : env(environment) {}

    void Begin(const TiXmlElement &element);
    /// Elements and text only.
    void Put(const TiXmlElement &element);
    void End();

    // The same without an element of the parser's: the attributes follow at once. Names must be such (IsXmlName), all
    // is UTF-8.
    void BeginElement(const QByteArray &name);
    void Attribute(QByteArrayView name, QByteArrayView value);

    /// What has been written, UTF-8.
    [[nodiscard]] QByteArrayView Text() const { return QByteArrayView(buffer).first(used); }
    /// Replaces the file. False when it couldn't be written.
    [[nodiscard]] bool Save(const QString &path);

private:
    /// Room for so many more bytes; the place of the first.
    char *Room(qsizetype size);
    void Add(QByteArrayView piece);
    void Indent();
    void CloseTag();
    void Encode(QByteArrayView plain);

    Environment &env;
    QByteArray buffer; // a layout is some million pieces: each is copied into its place and costs nothing else
    qsizetype used = 0;
    std::vector<QByteArray> open; // names, outermost first
    bool inTag = false;           // how the innermost ends depends on whether it holds anything
};
