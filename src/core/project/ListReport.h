// SPDX-License-Identifier: MIT
#pragma once

#include "ProjectContext.h"
#include "UnreadContent.h"

struct Finding;
enum class Severity;

/// Returns the text of an element; empty when it has none. It is valid as long as the element exists.
[[nodiscard]] const char *TextOf(const TiXmlElement &element);
/// Returns the row of an element as the lines of the report show it, which is the true row plus one.
[[nodiscard]] int LineOf(const TiXmlElement &element);
/// Removes a double quote from the start and from the end of a text.
[[nodiscard]] QByteArray WithoutOuterQuotes(QByteArray text);

/// The reasons why elements of the resource list are left out.
inline const QString NO_ID = QStringLiteral("it has no attribute \"id\"");
inline const QString NO_FILE = QStringLiteral("it does not name a file");

/// Reports what a reading of a resource list finds in the list's elements: what is wrong with them, and what of them
/// the next save will lose.
class ListReport
{
public:
    explicit ListReport(const ProjectContext &context);

    /// Returns a finding about an element. Without `text` the line of the report is its text.
    [[nodiscard]] Finding About(const TiXmlElement &element, const char *code, Severity severity,
                                const QString &text = {});
    /// Returns the finding that an element and its content are left out. `why` is the reason.
    [[nodiscard]] Finding Dropped(const TiXmlElement &element, const char *code, Severity severity, const QString &why);
    /// Reports as left out everything in an element except its text and these attributes.
    void DropOthers(const TiXmlElement &element, std::initializer_list<const char *> attributes);
    /// Reports as left out everything in an element except other elements and these attributes.
    void DropTexts(const TiXmlElement &element, std::initializer_list<const char *> attributes);
    /// Reports as left out everything around the list, whose outermost element is `app`.
    void DropAround(const TiXmlDocument &document, const TiXmlElement &app);
    /// Reports as left out an element whose name is unknown in this place.
    void DropUnknown(const TiXmlElement &element);

    /// Converts a text of an element to the code page. Reports a character that the code page lacks, because the next
    /// save would lose it.
    [[nodiscard]] NarrowText Narrow(const TiXmlElement &element, const QByteArray &utf8);

private:
    void AddUnread(int row, const QString &text, bool isComment);

    CResDoc &doc;
    Environment &env;
    const QString list; // absolute path
    UnreadContent unread;
};
