// SPDX-License-Identifier: MIT
#include "ListMerge.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

const ListElement NO_ELEMENT;

/// Returns whether two elements have the same content, whatever the order of their attributes and children is.
bool HasSameContent(const ListElement &one, const ListElement &other)
{
    if (one.text != other.text || one.attributes.size() != other.attributes.size() ||
        one.children.size() != other.children.size())
        return false;
    const bool hasAttributes = std::all_of(one.attributes.begin(), one.attributes.end(), [&](const auto &attribute) {
        const QByteArray *const value = other.Attribute(attribute.first);
        return value && *value == attribute.second;
    });
    QHash<QByteArray, const ListElement *> children;
    for (const ListElement &child : other.children)
        children.insert(child.key, &child);
    return hasAttributes && std::all_of(one.children.begin(), one.children.end(), [&](const ListElement &child) {
               const ListElement *const same = children.value(child.key);
               return same && HasSameContent(child, *same);
           });
}

/// Returns the value that both sides agree on, or that only one of them has changed; nothing for a conflict.
template <typename Value> std::optional<Value> Resolve(const Value &base, const Value &ours, const Value &theirs)
{
    if (ours == theirs || theirs == base)
        return ours;
    if (ours == base)
        return theirs;
    return std::nullopt; // not in the line above, where it would become the missing value of an attribute
}

void SetAttribute(ListElement &element, const QByteArray &name, const std::optional<QByteArray> &value)
{
    const auto found = std::find_if(element.attributes.begin(), element.attributes.end(),
                                    [&](const auto &attribute) { return attribute.first == name; });
    if (found == element.attributes.end()) {
        if (value)
            element.attributes.emplace_back(name, *value);
    } else if (value) {
        found->second = *value;
    } else {
        element.attributes.erase(found);
    }
}

std::optional<QByteArray> AttributeOf(const ListElement &element, const QByteArray &name)
{
    const QByteArray *const value = element.Attribute(name);
    return value ? std::optional(*value) : std::nullopt;
}

} // namespace

ListElement ListMerge::Merge(const ListElement &base, const ListElement &ours, const ListElement &theirs)
{
    ListElement merged;
    merged.tag = ours.tag;
    merged.key = ours.key;
    merged.attributes = ours.attributes;
    ListElement other = theirs;
    QStringList inConflict; // can only have the name of the application, which nothing reads: ours stays
    MergeAttributes(base, merged, other, inConflict);
    MergeChildren(base, ours, theirs, merged);
    return merged;
}

void ListMerge::MergeAttributes(const ListElement &base, ListElement &ours, ListElement &theirs,
                                QStringList &inConflict) const
{
    std::vector<QByteArray> names;
    for (const ListElement *element : {&ours, &theirs}) {
        for (const auto &[name, value] : element->attributes) {
            if (std::find(names.begin(), names.end(), name) == names.end())
                names.push_back(name);
        }
    }
    for (const QByteArray &name : names) {
        const std::optional<std::optional<QByteArray>> value =
            Resolve(AttributeOf(base, name), AttributeOf(ours, name), AttributeOf(theirs, name));
        if (!value) {
            inConflict.append(QString::fromUtf8(name));
            continue;
        }
        SetAttribute(ours, name, *value);
        SetAttribute(theirs, name, *value);
    }
}

void ListMerge::MergeChildren(const ListElement &base, const ListElement &ours, const ListElement &theirs,
                              ListElement &merged)
{
    QHash<QByteArray, int> known;
    std::vector<Versions> matched;
    MergeLists orders;
    const Versions parents{&base, &ours, &theirs};
    for (size_t side = BASE; side < MERGE_SIDES; ++side) {
        for (const ListElement &child : parents[side]->children) {
            const auto place = known.constFind(child.key);
            const int index = place == known.cend() ? int(matched.size()) : *place;
            if (place == known.cend()) {
                known.insert(child.key, index);
                matched.push_back({});
            }
            matched[size_t(index)][side] = &child;
            orders[side].push_back(index);
        }
    }
    std::vector<bool> isKept;
    for (const auto &[before, our, their] : matched) {
        const ListElement *const only = our ? our : their;
        isKept.push_back(only && (!before || (our && their) || !HasSameContent(*only, *before)));
    }
    for (const int index : MergeOrder(orders, isKept)) {
        ListElement child = MergeChild(matched[size_t(index)]);
        if (!child.tag.isEmpty() || !child.children.empty())
            merged.children.push_back(std::move(child));
    }
}

ListElement ListMerge::MergeChild(const Versions &versions)
{
    const auto [base, ours, theirs] = versions;
    if (!base && !(ours && theirs))
        return ours ? *ours : *theirs;
    if (!ours)
        return Conflict(versions, u"deleted in ours, changed in theirs"_s);
    if (!theirs)
        return Conflict(versions, u"deleted in theirs, changed in ours"_s);
    return HasText(ours->tag) ? MergeLeaf(versions) : Merge(base ? *base : NO_ELEMENT, *ours, *theirs);
}

/// Merges an element with a text, which both sides have.
ListElement ListMerge::MergeLeaf(const Versions &versions)
{
    const ListElement &base = versions[BASE] ? *versions[BASE] : NO_ELEMENT;
    ListElement ours = *versions[OURS];
    ListElement theirs = *versions[THEIRS];
    QStringList inConflict;
    MergeAttributes(base, ours, theirs, inConflict);
    if (const auto text = Resolve(base.text, ours.text, theirs.text))
        ours.text = theirs.text = *text;
    else
        inConflict.append(u"path"_s);
    if (inConflict.isEmpty())
        return ours;
    return Conflict({versions[BASE], &ours, &theirs}, inConflict.join(u", "));
}

/// Returns the element that stays instead of a conflict, or the conflict.
ListElement ListMerge::Conflict(const Versions &versions, const QString &what)
{
    const auto [base, ours, theirs] = versions;
    if (onConflict == OnConflict::KeepBase)
        return base ? *base : NO_ELEMENT;
    const ListElement &any = ours ? *ours : *theirs;
    conflicts.append(u"%1: %2"_s.arg(Cut(QString::fromUtf8(any.key).replace(u'\n', u' ')), what));
    ListElement conflict;
    conflict.key = any.key;
    conflict.children = {ours ? *ours : NO_ELEMENT, theirs ? *theirs : NO_ELEMENT};
    return conflict;
}
