#pragma once

#include "Text.h"

#include <tinyxml.h>

#include <vector>

class Environment;

/// Writes an XML file element by element, so that no tree of it stands in memory.
///
///     XmlWriter list(env);
///     list.Begin(app);    // an element with its attributes; what it holds follows
///     list.Put(file);     // a whole one
///     list.End();
///     if (!list.Save(path)) ...
class XmlWriter
{
public:
    explicit XmlWriter(const Environment &environment) : env(environment) {}

    void Begin(const TiXmlElement &element);
    void Put(const TiXmlElement &element);
    void End();

    /// Replaces the file. False when it couldn't be written.
    [[nodiscard]] bool Save(const QString &path);

private:
    void PrintPending();

    const Environment &env;
    TiXmlPrinter printer;
    std::vector<TiXmlElement> open; // outermost first
    bool pending = false;           // the innermost isn't printed yet: its form depends on whether it holds anything
};
