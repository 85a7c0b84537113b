// SPDX-License-Identifier: MIT
#include "PropertyRows.h"

#include "Environment.h"

#include <algorithm>

namespace
{

bool IsComposite(const CZulType &object)
{
    const qint32 id = object.GetTypeId();
    return id == TYPE_CLASS || id == TYPE_STRUCTURE;
}

CZulClass *BaseOf(const CZulCustom &object)
{
    return object.GetTypeId() == TYPE_CLASS ? static_cast<const CZulClass &>(object).super.get() : nullptr;
}

bool IsBase(const CZulType &object)
{
    return object.owner && BaseOf(*object.owner) == &object;
}

bool HasSetMember(const CZulCustom &object);

bool IsSet(const CZulType &property)
{
    if (!IsComposite(property))
        return static_cast<const CZulBase &>(property).attr;
    const auto &composite = static_cast<const CZulCustom &>(property);
    // A composite without a component has no values that are set. The exception is state images, whose values have an
    // attribute. So the time depends on the values that are set, and not on all that the type could have.
    const bool canHaveValues = composite.component || !composite.descriptor;
    return canHaveValues && HasSetMember(composite);
}

/// Recursive, but no deeper than types may nest.
bool HasSetMember(const CZulCustom &object)
{
    const auto &members = object.Members();
    if (std::any_of(members.begin(), members.end(), [](const auto &member) { return IsSet(*member); }))
        return true;
    const CZulClass *base = BaseOf(object);
    return base && HasSetMember(*base);
}

class RowMaker
{
public:
    explicit RowMaker(const Environment &environment) : env(environment) {}

    void Add(const QString &name, int indent, PropertyKind kind, CZulType &target)
    {
        if (rows.size() >= MOST_ROWS)
            return;
        PropertyRow &row = rows.emplace_back();
        row.name = name;
        row.indent = indent;
        row.kind = kind;
        row.target = &target;
        Refresh(env, row);
    }

    /// Recursive, but no deeper than types may nest.
    void AddMembers(const CZulCustom &object, int indent)
    {
        for (const auto &member : object.Members()) {
            if (EndsHere())
                return;
            const bool isComposite = IsComposite(*member);
            Add(env.NarrowToWide(member->propName), indent, isComposite ? PropertyKind::Heading : PropertyKind::Value,
                *member);
            if (isComposite)
                AddMembers(static_cast<const CZulCustom &>(*member), indent + 1);
        }
        CZulClass *base = BaseOf(object);
        if (!base || EndsHere())
            return;
        Add(QStringLiteral("Base Class"), indent, PropertyKind::Heading, *base);
        AddMembers(*base, indent + 1);
    }

    [[nodiscard]] std::vector<PropertyRow> Take() { return std::move(rows); }

private:
    /// Called before the row of each member and base class. Returns true if MOST_ROWS are there already; then the first
    /// call adds the row "...".
    bool EndsHere()
    {
        if (rows.size() == MOST_ROWS) {
            PropertyRow &more = rows.emplace_back();
            more.name = QStringLiteral("...");
            more.kind = PropertyKind::Heading;
        }
        return rows.size() > MOST_ROWS;
    }

    const Environment &env;
    std::vector<PropertyRow> rows;
};

} // namespace

std::vector<PropertyRow> RowsOf(const Environment &env, CZulClass &component)
{
    RowMaker maker(env);
    maker.Add(QStringLiteral("Class"), 0, PropertyKind::Name, component);
    maker.Add(QStringLiteral("Parent Component"), 0, PropertyKind::Parent, component);
    maker.AddMembers(component, 0);
    return maker.Take();
}

void Refresh(const Environment &env, PropertyRow &row)
{
    if (!row.target)
        return;
    const CZulType &target = *row.target;
    row.type = env.NarrowToWide(target.typeName);
    row.isSet = false;
    if (row.kind == PropertyKind::Name) {
        row.value = target.propName.isEmpty() ? QStringLiteral("this") : env.NarrowToWide(target.propName);
    } else if (row.kind == PropertyKind::Parent) {
        const CZulClass *parent = static_cast<const CZulClass &>(target).parent;
        row.value = parent ? env.NarrowToWide(parent->propName) : QStringLiteral("None");
        row.type = parent ? env.NarrowToWide(parent->typeName) : QStringLiteral("---");
    } else if (!IsBase(target)) {
        row.value = env.NarrowToWide(target.GetText());
        row.isSet = IsSet(target);
    }
}

QString ShownName(const PropertyRow &row)
{
    return QString(4 * row.indent, u' ') + row.name;
}

std::vector<int> RowsThatHave(const std::vector<PropertyRow> &rows, const QString &text)
{
    std::vector<int> found;
    int headingIndent = -1; // of the heading that is still missing above the rows found
    for (int number = int(rows.size()) - 1; number >= 0; --number) {
        const PropertyRow &row = rows[size_t(number)];
        const bool isHeading = row.indent == headingIndent && row.kind == PropertyKind::Heading;
        if (isHeading || row.name.contains(text, Qt::CaseInsensitive) ||
            row.value.contains(text, Qt::CaseInsensitive)) {
            found.push_back(number);
            headingIndent = row.indent - 1;
        }
    }
    std::reverse(found.begin(), found.end());
    return found;
}
