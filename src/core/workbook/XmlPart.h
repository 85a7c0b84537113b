#pragma once

#include "Workbook.h"

#include <expat.h>

#include <array>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

class ZipFile;

/// The attributes of an element, as expat tells them.
class XmlAttributes
{
public:
    explicit XmlAttributes(const XML_Char *const *pairs) : list(pairs) {}
    /// The value of one of that name; nothing when there is none.
    [[nodiscard]] std::optional<std::string_view> Find(std::string_view name) const;

private:
    const XML_Char *const *list; // name, value, ..., null
};

/// An element that counts: `name` within the element at `parent` leads to `place`. Any other element is passed over,
/// with all that stands in it.
struct XmlStep
{
    int parent;
    std::string_view name;
    int place;
};

/// What elements a part is read for.
struct XmlGrammar
{
    static constexpr int DOCUMENT = 0; ///< where the root stands

    std::array<std::string_view, 2> namespaces; ///< of the elements, and as the strict variant of the format has it
    std::span<const XmlStep> steps;
    WorkbookFault otherRoot; ///< the fault when another element is the root
};

/// Reads one part of a package, piece by piece. What reads a certain kind of part derives from it and is told of the
/// elements that its grammar names. A document type, and with it any entity, is refused.
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
    /// The grammar has to stay.
    explicit XmlPart(const XmlGrammar &what) : grammar(what) {}

    virtual void Enter(int place, const XmlAttributes &attributes) = 0;
    /// `text` is what was read since the last element was entered, in UTF-8: of an element without others within it,
    /// all.
    virtual void Leave(int place, QByteArrayView text) = 0;

    /// Ends the reading.
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
    std::vector<int> places; // of the elements that are open
    int passedOver = 0;      // how many elements are open within them that don't count
    QByteArray gathered;
    qint64 fed = 0;
};
