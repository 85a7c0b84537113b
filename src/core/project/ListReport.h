#pragma once

#include "ProjectContext.h"
#include "UnreadContent.h"

struct Finding;
enum class Severity;

/// The text of an element; empty when it has none. Valid as long as the element.
[[nodiscard]] const char *TextOf(const TiXmlElement &element);
/// The row of an element as the lines of the report have it, which is one more than the true one.
[[nodiscard]] int LineOf(const TiXmlElement &element);
/// A text without a double quote at its start and at its end.
[[nodiscard]] QByteArray WithoutOuterQuotes(QByteArray text);

/// Why elements of the resource list are left out.
inline const QString NO_ID = QStringLiteral("it has no attribute \"id\"");
inline const QString NO_FILE = QStringLiteral("it names no file");

/// What one reading of a resource list says about the list's elements: what is wrong with them, and what of them the
/// next save loses.
class ListReport
{
public:
    explicit ListReport(const ProjectContext &context);

    /// What is wrong with an element. Without a `text` the report's line says it.
    [[nodiscard]] Finding About(const TiXmlElement &element, const char *code, Severity severity,
                                const QString &text = {});
    /// An element and what it holds are left out, and why.
    [[nodiscard]] Finding Dropped(const TiXmlElement &element, const char *code, Severity severity, const QString &why);
    /// Leaves out what an element has beside a text and these attributes.
    void DropOthers(const TiXmlElement &element, std::initializer_list<const char *> attributes);
    /// Leaves out what an element has beside other elements and these attributes.
    void DropTexts(const TiXmlElement &element, std::initializer_list<const char *> attributes);
    /// Leaves out what is around the list, whose outermost element is `app`.
    void DropAround(const TiXmlDocument &document, const TiXmlElement &app);
    /// Leaves out an element of a name that nothing knows in this place.
    void DropUnknown(const TiXmlElement &element);

    /// A text of an element in the code page. Says so when that lacks a character, which the next save would lose.
    [[nodiscard]] NarrowText Narrow(const TiXmlElement &element, const QByteArray &utf8);

private:
    void AddUnread(int row, const QString &text, bool isComment);

    CResDoc &doc;
    Environment &env;
    const QString list; // absolute path
    UnreadContent unread;
};
