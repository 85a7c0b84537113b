#pragma once

#include "Xml.h"

#include <QString>

#include <functional>
#include <initializer_list>

/// Finds what a load of an XML file doesn't read and the next save so leaves out: comments, loose text and attributes
/// that nothing knows.
class UnreadContent
{
public:
    /// Gets each thing that is found, as a sentence, with its row from 1, and whether it is a comment. A comment or a
    /// text has the row of the element behind it, or else of the one before or around it: the parser gives rows to
    /// elements only.
    using Tell = std::function<void(int row, const QString &text, bool isComment)>;

    enum class Text
    {
        IsRead, ///< the element has a text: what GetText returns
        IsNone, ///< it has other elements, or nothing
    };

    explicit UnreadContent(Tell tellOf) : tell(std::move(tellOf)) {}

    /// Looks at an element, and not at those in it.
    void Look(const TiXmlElement &element, std::initializer_list<const char *> attributes, Text text) const;
    /// Looks around the outermost element.
    void LookAround(const TiXmlDocument &document) const;

private:
    void LookAtNodes(const TiXmlNode &parent, int row, Text text) const;

    Tell tell;
};
