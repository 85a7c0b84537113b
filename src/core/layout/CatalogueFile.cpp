// SPDX-License-Identifier: MIT
#include "CatalogueFile.h"

#include "Environment.h"
#include "Paths.h"
#include "Xml.h"
#include "ZulType.h"

#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <string_view>

using namespace Qt::StringLiterals;

namespace
{

constexpr char UNREADABLE[] = "catalogue.unreadable";
constexpr int MOST_ERRORS = 1000; // reported
constexpr qsizetype LONGEST_NAME = 64;
constexpr int MOST_VALUES = 1000; // of an object, including those of its base and its members

/// Attributes that every component has, or that aren't kept.
constexpr QByteArrayView RESERVED[] = {"name", "prop", "rect"};

bool IsIdentifier(QByteArrayView name)
{
    const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; };
    return !name.isEmpty() && name.size() <= LONGEST_NAME && isLetter(name[0]) &&
           std::all_of(name.begin(), name.end(), [&](char c) { return isLetter(c) || (c >= '0' && c <= '9'); });
}

/// Reads one catalogue file.
class CatalogueReader
{
public:
    CatalogueReader(const QString &filePath, std::vector<Finding> &errorList) : file(filePath), errors(errorList) {}

    void Read(const TiXmlDocument &document)
    {
        const TiXmlElement *root = nullptr;
        for (const TiXmlNode *node = document.FirstChild(); node; node = node->NextSibling()) {
            if (const TiXmlElement *element = node->ToElement(); element && !root)
                root = element;
            else if (element)
                Error(*element, QStringLiteral("only one element <catalogue> is expected"));
            else if (node->ToText())
                Error(root ? RowOf(*root) : 1, QStringLiteral("there is text outside <catalogue>"));
        }
        if (!root) {
            Error(1, QStringLiteral("there is no element <catalogue>"));
            return;
        }
        if (root->ValueStr() != "catalogue") {
            Error(*root, QStringLiteral("<%1> should be <catalogue>").arg(Text(root->Value())));
            return;
        }
        AllowAttributes(*root, {"version"});
        const char *version = root->Attribute("version");
        if (!version || QByteArrayView(version) != "1")
            Error(*root, QStringLiteral("the catalogue's version should be \"1\""));
        ReadChildren(*root, [this](const TiXmlElement &element) { ReadDefinition(element); });
        for (const Definition &definition : definitions)
            CheckReferences(definition);
        for (Definition &definition : definitions)
            Measure(definition, 1);
    }

    [[nodiscard]] bool IsFine() const { return count == 0; }

    std::vector<std::unique_ptr<ClassDescriptor>> Take()
    {
        std::vector<std::unique_ptr<ClassDescriptor>> taken;
        taken.reserve(definitions.size());
        for (Definition &definition : definitions)
            taken.push_back(std::move(definition.descriptor));
        return taken;
    }

    void Error(int line, const QString &text, const char *code = "catalogue.definition")
    {
        if (++count <= MOST_ERRORS)
            errors.push_back({code, Severity::Error, file, line, {}, text});
    }

    /// Adds a line with the number of errors that weren't reported.
    void Close()
    {
        if (count > MOST_ERRORS)
            errors.push_back(
                {"catalogue.definition",
                 Severity::Error,
                 file,
                 0,
                 {},
                 QStringLiteral("the catalogue has more errors, which are not listed: %1").arg(count - MOST_ERRORS)});
    }

private:
    struct Definition
    {
        std::unique_ptr<ClassDescriptor> descriptor;
        int line = 0;
        std::vector<int> itemLines;
        enum
        {
            NEW,
            UNDER_WAY,
            DONE,
        } state = NEW;
        int levels = 0; // of nesting: itself and the deepest type that it has as a member or base
        int values = 0; // of an object of this type
    };

    static QString Text(const char *text) { return QString::fromUtf8(text); }
    static QString Text(const NarrowText &text) { return QString::fromUtf8(text); }

    void Error(const TiXmlElement &element, const QString &text) { Error(RowOf(element), text); }

    void AllowAttributes(const TiXmlElement &element, std::initializer_list<QByteArrayView> allowed)
    {
        for (const TiXmlAttribute *attribute = element.FirstAttribute(); attribute; attribute = attribute->Next()) {
            if (std::find(allowed.begin(), allowed.end(), QByteArrayView(attribute->Name())) == allowed.end())
                Error(
                    element,
                    QStringLiteral("<%1> has no attribute \"%2\"").arg(Text(element.Value()), Text(attribute->Name())));
        }
    }

    template <typename Function> void ReadChildren(const TiXmlElement &element, Function &&function)
    {
        ForEachChild(element, function, [&](const TiXmlNode &) {
            Error(element, QStringLiteral("<%1> contains something that is not an element").arg(Text(element.Value())));
        });
    }

    /// The attribute's value. Empty, with an error, if it is missing or isn't an identifier.
    NarrowText Identifier(const TiXmlElement &element, const char *attribute)
    {
        const char *const text = element.Attribute(attribute);
        if (!text) {
            Error(
                element,
                QStringLiteral("<%1> needs the attribute \"%2\"").arg(Text(element.Value()), QLatin1String(attribute)));
            return {};
        }
        if (!IsIdentifier(text)) {
            Error(element, QStringLiteral("\"%1\" is not a valid name: a name has at most %2 letters, digits and "
                                          "\"_\", and doesn't begin with a digit")
                               .arg(Text(text))
                               .arg(LONGEST_NAME));
            return {};
        }
        return text;
    }

    void ReadDefinition(const TiXmlElement &element)
    {
        auto descriptor = std::make_unique<ClassDescriptor>();
        const std::string &tag = element.ValueStr();
        if (tag == "class") {
            AllowAttributes(element, {"name", "base", "excluded"});
            if (element.Attribute("base"))
                descriptor->baseName = Identifier(element, "base");
            descriptor->excluded = ReadExcluded(element);
        } else if (tag == "structure" || tag == "enumeration") {
            AllowAttributes(element, {"name"});
            descriptor->kind = tag == "structure" ? CLASS_STRUCTURE : CLASS_ENUMERATION;
        } else {
            Error(element,
                  QStringLiteral("<%1> should be <class>, <structure> or <enumeration>").arg(Text(tag.c_str())));
            return;
        }
        descriptor->name = Identifier(element, "name");
        Definition definition;
        definition.line = RowOf(element);
        ReadItems(element, *descriptor, definition.itemLines);
        if (descriptor->name.isEmpty())
            return;
        if (TypeIdOf(descriptor->name) != TYPE_UNKNOWN) {
            Error(element, QStringLiteral("\"%1\" is the name of a built-in type").arg(Text(descriptor->name)));
            return;
        }
        if (const auto known = places.constFind(descriptor->name); known != places.constEnd()) {
            Error(element, QStringLiteral("\"%1\" is already defined in line %2")
                               .arg(Text(descriptor->name))
                               .arg(definitions[*known].line));
            return;
        }
        places.insert(descriptor->name, definitions.size());
        definition.descriptor = std::move(descriptor);
        definitions.push_back(std::move(definition));
    }

    bool ReadExcluded(const TiXmlElement &element)
    {
        const QByteArrayView excluded = element.Attribute("excluded");
        if (!excluded.isNull() && excluded != "true" && excluded != "false")
            Error(element, QStringLiteral("\"excluded\" should be \"true\" or \"false\""));
        return excluded == "true";
    }

    void ReadItems(const TiXmlElement &element, ClassDescriptor &descriptor, std::vector<int> &lines)
    {
        const bool isEnumeration = descriptor.kind == CLASS_ENUMERATION;
        const QByteArrayView expected = isEnumeration ? "item" : "member";
        QSet<NarrowText> names;
        ReadChildren(element, [&](const TiXmlElement &child) {
            if (QByteArrayView(child.Value()) != expected) {
                Error(child, QStringLiteral("<%1> should be <%2>").arg(Text(child.Value()), QLatin1String(expected)));
                return;
            }
            ClassDescriptor::Item item;
            item.name = Identifier(child, "name");
            if (isEnumeration) {
                AllowAttributes(child, {"name"});
            } else {
                AllowAttributes(child, {"name", "type"});
                item.typeName = Identifier(child, "type");
                if (std::find(std::begin(RESERVED), std::end(RESERVED), item.name) != std::end(RESERVED))
                    Error(child, QStringLiteral("a member can't have the name \"%1\"").arg(Text(item.name)));
            }
            if (!item.name.isEmpty() && names.contains(item.name))
                Error(child, QStringLiteral("\"%1\" occurs twice in \"%2\"")
                                 .arg(Text(item.name), Text(element.Attribute("name"))));
            names.insert(item.name);
            lines.push_back(RowOf(child));
            descriptor.items.push_back(std::move(item));
            ReadNothing(child);
        });
        if (isEnumeration && descriptor.items.empty())
            Error(element, QStringLiteral("<enumeration> needs an <item>"));
    }

    void ReadNothing(const TiXmlElement &element)
    {
        ReadChildren(element, [this, &element](const TiXmlElement &child) {
            Error(child, QStringLiteral("<%1> is not allowed in <%2>").arg(Text(child.Value()), Text(element.Value())));
        });
    }

    Definition *Find(const NarrowText &type)
    {
        const auto found = places.constFind(type);
        return found == places.constEnd() ? nullptr : &definitions[*found];
    }

    void CheckReferences(const Definition &definition)
    {
        const ClassDescriptor &descriptor = *definition.descriptor;
        if (!descriptor.baseName.isEmpty()) {
            const Definition *base = Find(descriptor.baseName);
            if (!base && TypeIdOf(descriptor.baseName) == TYPE_UNKNOWN)
                Error(definition.line, QStringLiteral("unknown base \"%1\"").arg(Text(descriptor.baseName)));
            else if (!base || base->descriptor->kind != CLASS_CLASS)
                Error(definition.line, QStringLiteral("the base \"%1\" is not a class").arg(Text(descriptor.baseName)));
        }
        if (descriptor.kind == CLASS_ENUMERATION)
            return;
        for (size_t i = 0; i < descriptor.items.size(); ++i) {
            const NarrowText &type = descriptor.items[i].typeName;
            if (!type.isEmpty() && TypeIdOf(type) == TYPE_UNKNOWN && !Find(type))
                Error(definition.itemLines[i], QStringLiteral("unknown type \"%1\"").arg(Text(type)));
        }
    }

    /// Finds types that contain themselves, and types that are too deep or too large. `depth` bounds the recursion.
    void Measure(Definition &definition, int depth)
    {
        if (definition.state != Definition::NEW)
            return;
        definition.state = Definition::UNDER_WAY;
        definition.levels = 1;
        const ClassDescriptor &descriptor = *definition.descriptor;
        if (descriptor.kind != CLASS_ENUMERATION) {
            AddPart(definition, descriptor.baseName, definition.line, depth);
            for (size_t i = 0; i < descriptor.items.size(); ++i) {
                definition.values = std::min(definition.values + 1, TOO_MANY);
                AddPart(definition, descriptor.items[i].typeName, definition.itemLines[i], depth);
            }
        }
        definition.state = Definition::DONE;
        // Types that contain a type that is too large aren't reported again.
        if (definition.values > MOST_VALUES && definition.values < TOO_MANY) {
            Error(definition.line,
                  QStringLiteral("\"%1\" has more than %2 values, including those of its base and members")
                      .arg(Text(descriptor.name))
                      .arg(MOST_VALUES));
            definition.values = TOO_MANY;
        }
    }

    void AddPart(Definition &definition, const NarrowText &type, int line, int depth)
    {
        Definition *const part = Find(type);
        if (!part || part->descriptor->kind == CLASS_ENUMERATION)
            return;
        if (part->state == Definition::UNDER_WAY) {
            Error(line, part == &definition
                            ? QStringLiteral("\"%1\" contains itself or derives from itself").arg(Text(type))
                            : QStringLiteral("\"%1\" contains itself or derives from itself through \"%2\"")
                                  .arg(Text(type), Text(definition.descriptor->name)));
            return;
        }
        if (part->state == Definition::NEW && depth < DEEPEST_TYPE)
            Measure(*part, depth + 1);
        const int levels = part->state == Definition::NEW ? DEEPEST_TYPE : part->levels;
        if (levels >= DEEPEST_TYPE) {
            if (definition.levels <= DEEPEST_TYPE && levels == DEEPEST_TYPE)
                Error(line, QStringLiteral("\"%1\" is nested more than %2 levels deep, including its bases")
                                .arg(Text(definition.descriptor->name))
                                .arg(DEEPEST_TYPE));
        }
        definition.levels = std::max(definition.levels, levels + 1);
        definition.values = std::min(definition.values + part->values, TOO_MANY);
    }

    static constexpr int TOO_MANY = 1 << 24;

    const QString &file;
    std::vector<Finding> &errors;
    int count = 0;
    std::vector<Definition> definitions;
    QHash<NarrowText, size_t> places; // in `definitions`
};

bool Fill(const TiXmlDocument &document, int result, const QString &file, ClassCatalogue &catalogue,
          std::vector<Finding> &errors)
{
    CatalogueReader reader(file, errors);
    if (result == 0)
        reader.Read(document);
    else
        reader.Error(std::max(document.ErrorRow(), 1),
                     QStringLiteral("this is not well-formed XML: %1").arg(QString::fromUtf8(document.ErrorDesc())),
                     "catalogue.malformed");
    reader.Close();
    if (!reader.IsFine())
        return false;
    catalogue = ClassCatalogue();
    catalogue.entries = reader.Take();
    catalogue.loaded = true;
    return true;
}

} // namespace

QString CataloguePath(const Environment &env)
{
    const QString file = env.settings.String("Layout", "catalogue");
    return file.isEmpty() ? file : ResolvePath(file, env.ProgramDir());
}

bool LoadCatalogue(const Environment &env, const QString &path, ClassCatalogue &catalogue, std::vector<Finding> &errors)
{
    TiXmlDocument document;
    const int result = LoadXml(env, path, document);
    if (result == -1) {
        errors.push_back({UNREADABLE, Severity::Error, path, 0, {}, QStringLiteral("can't be opened")});
        return false;
    }
    if (!Fill(document, result, path, catalogue, errors))
        return false;
    catalogue.path = path;
    return true;
}

bool ParseCatalogue(const Environment &env, QByteArrayView bytes, const QString &name, ClassCatalogue &catalogue,
                    std::vector<Finding> &errors)
{
    TiXmlDocument document;
    const int result = ParseXml(env, bytes, document);
    return Fill(document, result, name, catalogue, errors);
}

QStringList CatalogueErrors(const std::vector<Finding> &errors)
{
    QStringList lines;
    for (const Finding &error : errors) {
        // A file that doesn't exist is named with its folder.
        const QString name = std::string_view(error.code) == UNREADABLE ? error.file : QFileInfo(error.file).fileName();
        lines.append((error.line > 0 ? QStringLiteral("%1, line %2: ").arg(name).arg(error.line) : name + u": "_s) +
                     error.text);
    }
    return lines;
}
