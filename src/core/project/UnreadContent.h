// SPDX-License-Identifier: MIT
#pragma once

#include "Xml.h"

#include <QString>

#include <functional>
#include <initializer_list>

/// Finds what a load of an XML file doesn't read, so that the next save loses it: comments, loose text and unknown
/// attributes.
class UnreadContent
{
public:
    /// Called for each thing that is found, with a sentence about it, its row from 1, and whether it is a comment. A
    /// comment or a text has the row of the element after it, or else of the element before or around it, because the
    /// parser knows the rows of elements only.
    using Tell = std::function<void(int row, const QString &text, bool isComment)>;

    enum class Text
    {
        IsRead, ///< the element has a text: what GetText returns
        IsNone, ///< the element has other elements, or nothing
    };

    explicit UnreadContent(Tell tellOf) : tell(std::move(tellOf)) {}

    /// Searches an element, but not the elements in it.
    void Look(const TiXmlElement &element, std::initializer_list<const char *> attributes, Text text) const;
    /// Searches what is around the outermost element.
    void LookAround(const TiXmlDocument &document) const;

private:
    void LookAtNodes(const TiXmlNode &parent, int row, Text text) const;

    Tell tell;
};
