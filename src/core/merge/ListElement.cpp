// SPDX-License-Identifier: MIT
#include "ListElement.h"

#include "Environment.h"
#include "Xml.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

/// What a resource list can have.
struct KnownElement
{
    const char *tag;
    const char *parent; ///< empty for the outermost element
    bool hasText;       ///< if not, it has elements
    std::initializer_list<const char *> key;
    std::initializer_list<const char *> others; ///< the attributes that it has beside those of the key
};

const KnownElement KNOWN[] = {
    {"APP", "", false, {}, {"id"}},
    {"FILE", "APP", true, {"id"}, {"type"}},
    {"IMAGE", "APP", true, {"id"}, {"type"}},
    {"STRING", "APP", true, {}, {}},
    {"RESOLUTION", "APP", false, {"width", "height", "class"}, {}},
    {"IMAGE", "RESOLUTION", true, {"id"}, {"type"}},
    {"LAYOUT", "RESOLUTION", true, {}, {}},
    {"COMPONENT", "APP", false, {"id"}, {}},
    {"IMAGE", "COMPONENT", true, {"id"}, {}},
};

const KnownElement *Find(const QByteArray &tag, const QByteArray &parent)
{
    const auto *const found = std::find_if(std::begin(KNOWN), std::end(KNOWN), [&](const KnownElement &known) {
        return tag == known.tag && parent == known.parent;
    });
    return found == std::end(KNOWN) ? nullptr : found;
}

/// Converts the parser's elements, and notes the first one that a merge can't keep.
class ListReading
{
public:
    QString problem; // with its line; empty if there is none

    void Refuse(int row, const QString &why)
    {
        if (problem.isEmpty())
            problem = u"line %1: %2"_s.arg(row).arg(why);
    }

    /// `row` is the place of a node that isn't a comment.
    void RefuseNode(const TiXmlNode &node, int row)
    {
        const QString what = Cut(QString::fromUtf8(node.Value()).simplified());
        Refuse(node.ToComment() ? RowOf(node) : row,
               node.ToComment() ? u"the comment \"%1\" would be lost, as in a save of the project"_s.arg(what)
                                : u"the text \"%1\" does not belong to a resource"_s.arg(what));
    }

    ListElement Take(const TiXmlElement &from, const QByteArray &parent)
    {
        ListElement element;
        element.tag = QByteArray::fromStdString(from.ValueStr());
        element.row = RowOf(from);
        const KnownElement *const known = Find(element.tag, parent);
        if (!known) {
            Refuse(element.row, u"<%1> isn't known here"_s.arg(Cut(QString::fromUtf8(element.tag))));
            return element;
        }
        TakeAttributes(from, *known, element);
        TakeNodes(from, *known, element);
        return element;
    }

private:
    void TakeAttributes(const TiXmlElement &from, const KnownElement &known, ListElement &element)
    {
        element.key = element.tag;
        for (const char *name : known.key) {
            const std::string *value = from.Attribute(std::string(name));
            if (!value)
                Refuse(element.row,
                       u"<%1> has no attribute \"%2\""_s.arg(QLatin1String(known.tag), QLatin1String(name)));
            else
                element.key += '\n' + QByteArray::fromStdString(*value);
        }
        for (auto *attribute = from.FirstAttribute(); attribute; attribute = attribute->Next()) {
            const auto isName = [&](const char *name) { return attribute->NameTStr() == name; };
            if (std::none_of(known.key.begin(), known.key.end(), isName) &&
                std::none_of(known.others.begin(), known.others.end(), isName))
                Refuse(element.row, u"<%1> has no attribute \"%2\", which would be lost"_s.arg(
                                        QLatin1String(known.tag), Cut(QString::fromUtf8(attribute->Name()))));
            element.attributes.emplace_back(attribute->Name(), QByteArray::fromStdString(attribute->ValueStr()));
        }
    }

    void TakeNodes(const TiXmlElement &from, const KnownElement &known, ListElement &element)
    {
        QHash<QByteArray, int> rows;
        ForEachChild(
            from,
            [&](const TiXmlElement &child) {
                ListElement taken = Take(child, known.hasText ? QByteArray("a text") : element.tag);
                if (const int other = rows.value(taken.key); other > 0)
                    Refuse(taken.row,
                           u"<%1> is in line %2 too; keep one of the two"_s.arg(
                               Cut(QString::fromUtf8(taken.key).replace(u'\n', u' ')), QString::number(other)));
                rows.insert(taken.key, taken.row);
                element.children.push_back(std::move(taken));
            },
            [&](const TiXmlNode &node) {
                if (!known.hasText || !node.ToText() || &node != from.FirstChild())
                    return RefuseNode(node, element.row);
                element.text = QByteArray::fromStdString(node.ValueStr());
            });
        for (const TiXmlNode *node = from.FirstChild(); node; node = node->NextSibling()) {
            if (node->ToComment())
                RefuseNode(*node, element.row);
        }
    }
};

/// Returns whether no character is lost when the list is converted to UTF-8 and back.
bool IsWhole(const Environment &env, const QByteArray &bytes)
{
    if (bytes.contains('\0'))
        return false;
    if (env.codePage.IsUtf8() || bytes.startsWith("\xEF\xBB\xBF"))
        return bytes.isValidUtf8();
    return env.WideToNarrow(env.NarrowToWide(bytes)) == bytes;
}

} // namespace

const QByteArray *ListElement::Attribute(const QByteArray &name) const
{
    const auto found = std::find_if(attributes.begin(), attributes.end(),
                                    [&](const auto &attribute) { return attribute.first == name; });
    return found == attributes.end() ? nullptr : &found->second;
}

bool ListElement::operator==(const ListElement &other) const
{
    return tag == other.tag && attributes == other.attributes && text == other.text && children == other.children;
}

bool HasText(const QByteArray &tag)
{
    return std::any_of(std::begin(KNOWN), std::end(KNOWN),
                       [&](const KnownElement &known) { return tag == known.tag && known.hasText; });
}

QString ReadList(const Environment &env, const QByteArray &bytes, ListElement &list)
{
    if (!IsWhole(env, bytes))
        return u"the file has bytes that are no text in its encoding"_s;
    CondenseWhiteSpace(true); // as for a load
    TiXmlDocument document;
    if (ParseXml(env, bytes, document) != 0)
        return u"line %1: the list isn't well-formed XML"_s.arg(std::max(document.ErrorRow(), 1));
    ListReading reading;
    bool hasRoot = false;
    for (const TiXmlNode *node = document.FirstChild(); node; node = node->NextSibling()) {
        if (node->ToElement() && !hasRoot)
            list = reading.Take(*node->ToElement(), {});
        else if (node->ToElement())
            reading.Refuse(RowOf(*node->ToElement()), u"a resource list has only one outermost element"_s);
        else if (!node->ToDeclaration() || hasRoot)
            reading.RefuseNode(*node, 1);
        hasRoot = hasRoot || node->ToElement();
    }
    if (!hasRoot)
        return u"line 1: <APP> is expected, so this isn't a resource list"_s;
    return reading.problem;
}
