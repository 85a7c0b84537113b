// SPDX-License-Identifier: MIT
#include "LayoutFileObject.h"

#include "Environment.h"
#include "Xml.h"
#include "XmlWriter.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace
{

constexpr char ROOT[] = "TarvoXML";
constexpr char LAYOUT[] = "Layout";
constexpr char ID[] = "id";
constexpr char NAME[] = "name";
constexpr char RECT[] = "rect"; // of old files; not used

} // namespace

/// Turns elements into components. Equal names share their bytes, since a file has few different ones.
class ComponentReader
{
public:
    ComponentReader(const Environment &environment, LayoutFileObject &layoutFile) : env(environment), file(layoutFile)
    {
    }

    /// Converts a text to the code page. Notes a text that changes by that.
    NarrowText Narrow(const TiXmlElement &element, const char *text)
    {
        constexpr size_t MOST = 100;
        if (!IsKeptByCodePage(env, QByteArray::fromRawData(text, qsizetype(std::strlen(text))))) {
            ++file.lostTexts;
            if (file.lost.size() < MOST)
                file.lost.push_back({RowOf(element), QString::fromUtf8(text)});
        }
        return FromXml(env, text);
    }

    /// The nesting is bounded, since LoadXml has read the file.
    std::unique_ptr<ComponentObject> Read(const TiXmlElement &element)
    {
        auto component = std::make_unique<ComponentObject>();
        component->className = Shared(element, element.ValueStr());
        for (auto *attribute = element.FirstAttribute(); attribute; attribute = attribute->Next()) {
            const std::string &attributeName = attribute->NameTStr();
            if (attributeName == NAME)
                component->name = Narrow(element, attribute->Value());
            else if (attributeName != RECT)
                component->AddAttribute(Shared(element, attributeName), Narrow(element, attribute->Value()));
        }
        for (auto *child = element.FirstChildElement(); child; child = child->NextSiblingElement())
            component->children.push_back(Read(*child));
        return component;
    }

private:
    const NarrowText &Shared(const TiXmlElement &element, const std::string &text)
    {
        const auto [place, isNew] = names.try_emplace(text);
        if (isNew)
            place->second = Narrow(element, text.c_str());
        return place->second;
    }

    const Environment &env;
    LayoutFileObject &file;
    std::unordered_map<std::string, NarrowText> names;
};

namespace
{

/// Prints the layouts of a file.
class LayoutPrinter
{
public:
    explicit LayoutPrinter(Environment &environment) : env(environment), xml(environment) {}

    /// Returns false for layouts that a file can't hold.
    bool Print(const LayoutFileObject::Layouts &layouts)
    {
        xml.BeginElement(ROOT);
        for (const auto &layout : layouts) {
            xml.BeginElement(LAYOUT);
            xml.Attribute(ID, ToXml(env, layout->Id()->name));
            for (const auto &component : layout->components) {
                if (!Print(*component, 1))
                    return false;
            }
            xml.End();
        }
        xml.End();
        return KeepsXmlBounds(xml.Text());
    }

    bool Save(const QString &path) { return xml.Save(path); }

private:
    bool Print(const ComponentObject &component, int depth)
    {
        constexpr int DEEPEST = 256; // checked before the other bounds, since this recurses
        const QByteArray &className = XmlName(component.className);
        if (className.isEmpty() || depth > DEEPEST)
            return false;
        xml.BeginElement(className);
        for (auto record = component.attributes.begin(); record != component.attributes.end(); ++record) {
            if (!Print(component, record))
                return false;
        }
        if (!component.name.isEmpty())
            xml.Attribute(NAME, ToXml(env, component.name));
        for (const auto &child : component.children) {
            if (!Print(*child, depth + 1))
                return false;
        }
        xml.End();
        return true;
    }

    /// An attribute is printed at the first place of its name, with the last value. The component's name is printed
    /// separately.
    bool Print(const ComponentObject &component, std::list<AttributeRecord>::const_iterator record)
    {
        const auto isSame = [&](const AttributeRecord &other) {
            return other.name.constData() == record->name.constData() || other.name == record->name;
        };
        if (record->name == NAME && !component.name.isEmpty())
            return true;
        const auto first = std::find_if(component.attributes.begin(), record, isSame);
        if (first != record)
            return true;
        const NarrowText *value = &record->value;
        for (auto later = std::next(record); later != component.attributes.end(); ++later) {
            if (isSame(*later))
                value = &later->value;
        }
        const QByteArray &name = XmlName(record->name);
        if (name.isEmpty())
            return false;
        xml.Attribute(name, ToXml(env, *value));
        return true;
    }

    /// A name in the form of the file; empty if the text isn't a valid name.
    const QByteArray &XmlName(const NarrowText &name)
    {
        const auto [place, isNew] = names.try_emplace(name.constData());
        if (isNew) {
            const QByteArray text = ToXml(env, name);
            place->second = IsXmlName(text) ? text : QByteArray();
        }
        return place->second;
    }

    const Environment &env;
    XmlWriter xml;
    std::unordered_map<const char *, QByteArray> names; // by the address of their bytes, which equal names share
};

} // namespace

int LayoutObject::AddComponent(Environment &env, std::unique_ptr<ComponentObject> component)
{
    if (!component) {
        env.DebugTrace("NULL pointer\n");
        return -1;
    }
    components.push_back(std::move(component));
    return 0;
}

int LayoutFileObject::Load(const NarrowText &file)
{
    env.DebugTrace("Parsing Layout xml file: %s\n", env.Shown(file).constData());
    TiXmlDocument document;
    if (const int code = LoadXml(env, env.NarrowToWide(file), document)) {
        env.DebugTrace("Parse Layout Xml file fail: %s\n", env.Shown(file).constData());
        return code;
    }
    path = file;
    return Convert(document);
}

int LayoutFileObject::Convert(TiXmlDocument &document)
{
    env.DebugTrace("Convert Layout XML DS to Layout DS\n");
    TiXmlElement *root = document.FirstChildElement();
    if (!root)
        return LAYOUT_NO_ROOT;
    if (root->ValueStr() != ROOT) {
        env.DebugTrace("File format error: \"%s\" should be \"%s\"\n", root->Value(), ROOT);
        return LAYOUT_WRONG_ROOT;
    }
    ComponentReader components(env, *this);
    // Each layout is removed from the parser's tree as soon as it is converted, but not earlier: components allocated
    // in the gaps of that tree are far apart, and take twice as long to save.
    while (TiXmlNode *node = root->FirstChild()) {
        if (const TiXmlElement *element = node->ToElement()) {
            if (element->ValueStr() != LAYOUT) {
                env.DebugTrace("unknown type when parsing LayoutXML\n");
                return LAYOUT_WRONG_CHILD;
            }
            if (const int code = ConvertLayout(*element, components))
                return code;
        }
        root->RemoveChild(node);
    }
    loaded = true;
    return 0;
}

int LayoutFileObject::ConvertLayout(const TiXmlElement &element, ComponentReader &components)
{
    const char *id = element.Attribute(ID);
    if (!id) {
        env.DebugTrace("Not Enough Memory when new LayoutObject"); // the same message for this
        return LAYOUT_NO_ID;
    }
    IDRecord *record = pool.Allocate(components.Narrow(element, id), resolution);
    if (!record) {
        env.DebugTrace("Allocate ID from idpool fail\n");
        return LAYOUT_ID_REFUSED;
    }
    auto made = std::make_unique<LayoutObject>(record);
    LayoutObject &layout = *made;
    Add(std::move(made));
    record->Release();
    for (auto *child = element.FirstChildElement(); child; child = child->NextSiblingElement())
        layout.AddComponent(env, components.Read(*child));
    return 0;
}

int LayoutFileObject::Save(const NarrowText &file)
{
    LayoutPrinter printer(env);
    if (!printer.Print(layouts)) {
        env.DebugTrace("Merge to XmlDS fail\n");
        return LAYOUT_CANT_BE_READ_BACK;
    }
    const int code = file.isEmpty() ? LAYOUT_NO_PATH : !printer.Save(env.NarrowToWide(file)) ? LAYOUT_NOT_WRITTEN : 0;
    if (code != 0)
        env.DebugTrace("Save to xml file fail : %s\n", env.Shown(file).constData());
    return code;
}

int LayoutFileObject::Add(std::unique_ptr<LayoutObject> layout)
{
    const auto [place, isNew] = byId.try_emplace(layout->Id());
    if (!isNew)
        return -1;
    place->second = layouts.insert(layouts.end(), std::move(layout));
    return 0;
}

LayoutObject *LayoutFileObject::Find(const IDRecord *id) const
{
    const auto found = byId.find(id);
    return found == byId.end() ? nullptr : found->second->get();
}

void LayoutFileObject::Remove(const IDRecord *id)
{
    const auto found = byId.find(id);
    if (found == byId.end())
        return;
    layouts.erase(found->second);
    byId.erase(found);
}
