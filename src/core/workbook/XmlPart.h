// SPDX-License-Identifier: MIT
#pragma once

#include "Workbook.h"

#include <expat.h>

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class ZipFile;

/// The attributes of an element, in the form in which expat passes them.
class XmlAttributes
{
public:
    explicit XmlAttributes(const XML_Char *const *pairs) : list(pairs) {}
    /// Returns the value of the attribute of that name; nullopt when there is none.
    [[nodiscard]] std::optional<std::string_view> Find(std::string_view name) const;

private:
    const XML_Char *const *list; // name, value, ..., null
};

/// An element that is read: the element `name` within the element at the place `parent` has the place `place`. All
/// other elements and their content are skipped.
struct XmlStep
{
    int parent;
    std::string_view name;
    int place;
};

/// The elements of a part that are read.
struct XmlGrammar
{
    static constexpr int DOCUMENT = 0; ///< the place that contains the root element

    std::array<std::string_view, 2> namespaces; ///< the namespace of the elements, and that of the strict variant
    std::span<const XmlStep> steps;
    WorkbookFault otherRoot; ///< the fault when another element is the root
};

/// Reads one part of a package, piece by piece. The readers of particular kinds of parts derive from it; Enter and
/// Leave are called for the elements in their grammars. A document type, and with it any entity, is refused.
///
///     WorkbookPart part;
///     const WorkbookResult result = part.Read(zip, "xl/workbook.xml");
class XmlPart
{
public:
    virtual ~XmlPart() = default;
    XmlPart(const XmlPart &) = delete;
    XmlPart &operator=(const XmlPart &) = delete;

    [[nodiscard]] WorkbookResult Read(const ZipFile &zip, const QByteArray &name);

protected:
    /// The grammar must outlive this object.
    explicit XmlPart(const XmlGrammar &what) : grammar(what) {}

    virtual void Enter(int place, const XmlAttributes &attributes) = 0;
    /// `text` is the text, in UTF-8, that was read since the last element was entered: the whole text of an element
    /// that contains no others.
    virtual void Leave(int place, QByteArrayView text) = 0;

    /// Stops the reading with a failure.
    void Fail(WorkbookFault fault, const QString &reason);

private:
    struct Handlers;

    [[nodiscard]] bool Take(QByteArrayView piece);
    [[nodiscard]] const XmlStep *FindStep(std::string_view name) const;
    void FailAtLine(WorkbookFault fault, const QString &what);

    const XmlGrammar &grammar;
    XML_Parser parser = nullptr;
    QString partName;
    WorkbookResult outcome;
    std::vector<int> places; // of the open elements
    int passedOver = 0;      // the number of open elements within them that are skipped
    std::string gathered;
    qint64 fed = 0;
};
