// SPDX-License-Identifier: MIT
#include "LayoutCheck.h"

#include "Environment.h"
#include "IdNames.h"
#include "Xml.h"
#include "ZulValues.h"

#include <QSet>

#include <algorithm>
#include <map>

namespace
{

// The kinds of findings.
constexpr char ELEMENT[] = "layout.element";
constexpr char NAME[] = "layout.name";
constexpr char CLASS[] = "layout.class";
constexpr char PROPERTY[] = "layout.property";
constexpr char VALUE[] = "layout.value";
constexpr char REFERENCE[] = "layout.reference";

/// True if a member is an element of its own in a file.
bool IsMadeOfMembers(const CZulType &member)
{
    const qint32 id = member.GetTypeId();
    return (id == TYPE_CLASS || id == TYPE_STRUCTURE) && TypeIdOf(member.typeName) != TYPE_STATE_IMAGE;
}

/// Checks one layout file.
class LayoutChecker
{
public:
    LayoutChecker(const Environment &environment, const QString &path, const ClassCatalogue &classes,
                  const FindReference &findReference)
        : env(environment), file(path), catalogue(classes), find(findReference)
    {
    }

    void Check(const TiXmlDocument &document)
    {
        const TiXmlElement *root = document.RootElement();
        if (!root)
            findings.push_back(
                {ELEMENT, Severity::Error, file, 1, {}, QStringLiteral("there is no element <TarvoXML>")});
        else if (root->ValueStr() != "TarvoXML")
            Tell(*root, ELEMENT, QStringLiteral("<%1> should be <TarvoXML>").arg(Text(root->Value())));
        else
            ForEachChild(*root, [this](const TiXmlElement &layout) { CheckLayout(layout); });
    }

    std::vector<Finding> findings;

private:
    static QString Text(const char *text) { return QString::fromUtf8(text); }
    [[nodiscard]] QString Text(const NarrowText &text) const { return env.NarrowToWide(text); }

    void Tell(const TiXmlElement &element, const char *code, const QString &text)
    {
        findings.push_back({code, Severity::Error, file, RowOf(element), layoutId, text});
    }

    void CheckLayout(const TiXmlElement &layout)
    {
        layoutId.clear();
        if (layout.ValueStr() != "Layout") {
            Tell(layout, ELEMENT, QStringLiteral("<%1> should be <Layout>").arg(Text(layout.Value())));
            return;
        }
        CheckLayoutId(layout);
        namesOfLayout.clear();
        ForEachChild(layout, [this](const TiXmlElement &component) {
            if (const char *const prop = component.Attribute("prop"))
                Tell(component, PROPERTY,
                     QStringLiteral("a component directly in the layout can't be the value of a property (\"%1\")")
                         .arg(Text(prop)));
            CheckComponent(component);
        });
    }

    void CheckLayoutId(const TiXmlElement &layout)
    {
        const char *const id = layout.Attribute("id");
        layoutId = id ? Text(FromXml(env, id)) : QString();
        if (!id) {
            Tell(layout, NAME, QStringLiteral("<Layout> needs the attribute \"id\""));
            return;
        }
        const QString name = Text(FromXml(env, id));
        const ReferenceKind kind = find(FromXml(env, id));
        if (!IsValidIdName(name))
            Tell(layout, NAME,
                 QStringLiteral("\"%1\" is not a valid ID: an ID has at most 64 letters, digits and \"_\", and doesn't "
                                "begin with a digit")
                     .arg(name));
        else if (ids.contains(ToUpperSimple(name)))
            Tell(layout, NAME,
                 QStringLiteral("the layout \"%1\" occurs twice; upper and lower case don't make a difference")
                     .arg(name));
        else if (kind == ReferenceKind::STRING || kind == ReferenceKind::IMAGE)
            Tell(layout, NAME, QStringLiteral("another resource has the ID \"%1\"").arg(name));
        ids.insert(ToUpperSimple(name));
    }

    void CheckComponent(const TiXmlElement &component)
    {
        const char *const name = component.Attribute("name");
        if (name && *name) {
            int &line = namesOfLayout[QByteArray(name)];
            if (line != 0)
                Tell(component, NAME,
                     QStringLiteral("the name \"%1\" is already used in line %2").arg(Text(name)).arg(line));
            else
                line = RowOf(component);
        }
        const CZulType *type = TypeOf(component);
        if (type && type->GetTypeId() != TYPE_CLASS) {
            Tell(component, CLASS, QStringLiteral("\"%1\" is not a class").arg(Text(component.Value())));
            type = nullptr;
        }
        CheckContent(component, static_cast<const CZulClass *>(type));
    }

    /// An object of the element's type, shared by all elements of that type. Null, with a finding, if there is no such
    /// type.
    const CZulType *TypeOf(const TiXmlElement &element)
    {
        if (catalogue.entries.empty())
            return nullptr;
        const NarrowText name = FromXml(env, element.Value());
        const auto known = types.find(name);
        if (known != types.end()) {
            if (!known->second)
                Tell(element, CLASS, QStringLiteral("unknown class \"%1\"").arg(Text(name)));
            return known->second.get();
        }
        std::unique_ptr<CZulType> &type = types[name];
        if (TypeIdOf(name) != TYPE_UNKNOWN || catalogue.Find(name))
            type = CreateType(catalogue, {}, name);
        else
            Tell(element, CLASS, QStringLiteral("unknown class \"%1\"").arg(Text(name)));
        return type.get();
    }

    /// `type` is null if nothing is known about the element.
    void CheckContent(const TiXmlElement &element, const CZulCustom *type)
    {
        for (const TiXmlAttribute *attribute = element.FirstAttribute(); attribute; attribute = attribute->Next()) {
            const std::string &name = attribute->NameTStr();
            if (name != "name" && name != "prop" && name != "rect")
                CheckProperty(element, *attribute, type);
        }
        QSet<QByteArray> members;
        ForEachChild(element, [&](const TiXmlElement &child) {
            const char *const prop = child.Attribute("prop");
            const CZulType *const member = prop && *prop && type ? type->FindMember(FromXml(env, prop)) : nullptr;
            if (member) {
                CheckMember(child, *member);
                if (members.contains(member->propName))
                    Tell(child, PROPERTY, QStringLiteral("the property \"%1\" occurs twice").arg(Text(prop)));
                members.insert(member->propName);
                return;
            }
            if (prop && *prop && type)
                Tell(child, PROPERTY,
                     QStringLiteral("\"%1\" has no property \"%2\"").arg(Text(type->typeName), Text(prop)));
            if (type && type->GetTypeId() == TYPE_STRUCTURE)
                Tell(child, ELEMENT,
                     QStringLiteral("the structure \"%1\" can't contain components").arg(Text(type->typeName)));
            CheckComponent(child);
        });
    }

    void CheckMember(const TiXmlElement &element, const CZulType &member)
    {
        if (!IsMadeOfMembers(member)) {
            Tell(element, PROPERTY,
                 QStringLiteral("the property \"%1\" must be an attribute, not an element").arg(Text(member.propName)));
            return;
        }
        if (FromXml(env, element.Value()) != member.typeName) {
            Tell(element, CLASS,
                 QStringLiteral("<%1> should be <%2>, the type of \"%3\"")
                     .arg(Text(element.Value()), Text(member.typeName), Text(member.propName)));
            return;
        }
        CheckContent(element, static_cast<const CZulCustom *>(&member));
    }

    void CheckProperty(const TiXmlElement &element, const TiXmlAttribute &attribute, const CZulCustom *type)
    {
        const NarrowText value = FromXml(env, attribute.Value());
        const CZulType *const member = type ? type->FindMember(FromXml(env, attribute.Name())) : nullptr;
        if (!member) {
            if (type)
                Tell(element, PROPERTY,
                     QStringLiteral("\"%1\" has no property \"%2\"").arg(Text(type->typeName), Text(attribute.Name())));
            else if (catalogue.entries.empty())
                CheckReference(element, value, TYPE_RES_ID);
            return;
        }
        if (IsMadeOfMembers(*member)) {
            Tell(element, PROPERTY,
                 QStringLiteral("the property \"%1\" must be an element <%2>, not an attribute")
                     .arg(Text(member->propName), Text(member->typeName)));
            return;
        }
        const qint32 id = TypeIdOf(member->typeName);
        if (id == TYPE_STATE_IMAGE) {
            CheckStateImage(element, *member, value);
            return;
        }
        if (!static_cast<const CZulBase *>(member)->IsValid(value) ||
            (id == TYPE_MSEC && !value.isEmpty() && !CZulMsec::HasNumber(value)))
            Refuse(element, *member, value);
        if (id == TYPE_RES_ID || id == TYPE_WSTRING || id == TYPE_IMAGE_SRC)
            CheckReference(element, value, id);
    }

    void Refuse(const TiXmlElement &element, const CZulType &member, const NarrowText &value)
    {
        Tell(element, VALUE,
             QStringLiteral("the value \"%1\" of \"%2\" is not of the type %3")
                 .arg(Text(value), Text(member.propName), Text(member.typeName)));
    }

    void CheckStateImage(const TiXmlElement &element, const CZulType &member, const NarrowText &value)
    {
        if (!CZulStateImg::IsComplete(value)) {
            Refuse(element, member, value);
            return;
        }
        const NarrowText text = value.trimmed();
        for (const QByteArray &token : text.sliced(1).chopped(1).split(','))
            CheckReference(element, token.trimmed(), TYPE_IMAGE_SRC);
    }

    void CheckReference(const TiXmlElement &element, const NarrowText &value, qint32 type)
    {
        if (!value.startsWith('@')) {
            const bool isLiteral = type == TYPE_WSTRING || catalogue.entries.empty();
            if (!isLiteral && !value.isEmpty() && value != "0")
                Tell(element, REFERENCE,
                     QStringLiteral("\"%1\" is not a reference: a reference is \"@\" and an ID, or 0 for none")
                         .arg(Text(value)));
            return;
        }
        const NarrowText id = value.sliced(1);
        const ReferenceKind kind = find(id);
        if (kind == ReferenceKind::NONE)
            Tell(element, REFERENCE, QStringLiteral("no resource has the ID \"%1\"").arg(Text(id)));
        else if (type == TYPE_WSTRING && kind != ReferenceKind::STRING)
            Tell(element, REFERENCE, QStringLiteral("\"%1\" is not a string").arg(Text(id)));
        else if (type == TYPE_IMAGE_SRC && kind != ReferenceKind::IMAGE)
            Tell(element, REFERENCE, QStringLiteral("\"%1\" is not an image").arg(Text(id)));
    }

    const Environment &env;
    const QString &file;
    QString layoutId; // of the current layout
    const ClassCatalogue &catalogue;
    const FindReference &find;
    std::map<NarrowText, std::unique_ptr<CZulType>> types;
    QSet<QString> ids;                    // of the layouts, in capitals
    QHash<QByteArray, int> namesOfLayout; // of the components of the current layout, with their lines
};

} // namespace

std::vector<Finding> CheckLayouts(const Environment &env, const QString &path, const TiXmlDocument &document,
                                  const ClassCatalogue &catalogue, const FindReference &find)
{
    LayoutChecker checker(env, path, catalogue, find);
    checker.Check(document);
    return std::move(checker.findings);
}

std::vector<Finding> CheckLayoutFile(const Environment &env, const QString &path, const ClassCatalogue &catalogue,
                                     const FindReference &find)
{
    TiXmlDocument document;
    const int result = LoadXml(env, path, document);
    if (result == -1)
        return {{"layout.unreadable", Severity::Error, path, 0, {}, QStringLiteral("can't be opened")}};
    if (result != 0)
        return {{"layout.malformed",
                 Severity::Error,
                 path,
                 std::max(document.ErrorRow(), 1),
                 {},
                 QStringLiteral("this is not well-formed XML: %1").arg(QString::fromUtf8(document.ErrorDesc()))}};
    return CheckLayouts(env, path, document, catalogue, find);
}
