// SPDX-License-Identifier: MIT
#include "Relationships.h"

#include "XmlPart.h"

#include <QDir>

#include <algorithm>

namespace
{

constexpr size_t MOST_RELATIONSHIPS = 65'536;

enum Place
{
    LIST = XmlGrammar::DOCUMENT + 1,
    ITEM,
};
constexpr XmlStep STEPS[] = {{XmlGrammar::DOCUMENT, "Relationships", LIST}, {LIST, "Relationship", ITEM}};
constexpr std::string_view NAMESPACE = "http://schemas.openxmlformats.org/package/2006/relationships";
constexpr XmlGrammar GRAMMAR = {{NAMESPACE, NAMESPACE}, STEPS, WorkbookFault::Broken};

QByteArray KindOf(std::string_view type)
{
    for (const std::string_view known : {"http://schemas.openxmlformats.org/officeDocument/2006/relationships/",
                                         "http://purl.oclc.org/ooxml/officeDocument/relationships/"}) {
        if (type.starts_with(known))
            return QByteArray(type.data(), qsizetype(type.size())).mid(qsizetype(known.size()));
    }
    return {};
}

/// Returns the folder of a part, with its "/"; empty for a part at the top.
QByteArray FolderOf(const QByteArray &part)
{
    return part.first(part.lastIndexOf('/') + 1);
}

/// Returns the name of the part that `target` refers to from a part in `folder`.
QByteArray Resolve(const QByteArray &folder, const QByteArray &target)
{
    const QByteArray whole = target.startsWith('/') ? target.mid(1) : folder + target;
    return QDir::cleanPath(QString::fromUtf8(whole)).toUtf8();
}

class RelationshipsPart : public XmlPart
{
public:
    RelationshipsPart(const QByteArray &source, std::vector<Relationship> &result)
        : XmlPart(GRAMMAR), folder(FolderOf(source)), relationships(result)
    {
    }

private:
    void Enter(int place, const XmlAttributes &attributes) override
    {
        if (place != ITEM)
            return;
        if (relationships.size() == MOST_RELATIONSHIPS)
            return Fail(WorkbookFault::TooLarge, QStringLiteral("more than %1 relationships").arg(MOST_RELATIONSHIPS));
        const auto value = [&attributes](std::string_view name) {
            const std::string_view found = attributes.Find(name).value_or(std::string_view());
            return QByteArray(found.data(), qsizetype(found.size()));
        };
        Relationship item{value("Id"), KindOf(attributes.Find("Type").value_or("")), {}};
        if (value("TargetMode") != "External")
            item.target = Resolve(folder, value("Target"));
        relationships.push_back(std::move(item));
    }

    void Leave(int, QByteArrayView) override {}

    const QByteArray folder;
    std::vector<Relationship> &relationships;
};

} // namespace

WorkbookResult ReadRelationships(const ZipFile &zip, const QByteArray &source, std::vector<Relationship> &relationships)
{
    const QByteArray folder = FolderOf(source);
    const QByteArray name = folder + "_rels/" + source.mid(folder.size()) + ".rels";
    return RelationshipsPart(source, relationships).Read(zip, name);
}

const Relationship *FindByKind(const std::vector<Relationship> &relationships, QByteArrayView kind)
{
    const auto found = std::find_if(relationships.begin(), relationships.end(),
                                    [kind](const Relationship &item) { return item.kind == kind; });
    return found != relationships.end() ? &*found : nullptr;
}
