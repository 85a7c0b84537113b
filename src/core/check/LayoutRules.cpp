// SPDX-License-Identifier: MIT
#include "LayoutRules.h"

#include "CLayoutRes.h"
#include "CResDoc.h"
#include "CheckFacts.h"
#include "CheckInput.h"
#include "Environment.h"
#include "LayoutFrames.h"
#include "Paths.h"
#include "RuleReport.h"
#include "TextHash.h"
#include "Xml.h"

using namespace Qt::StringLiterals;

namespace
{

/// Adds the findings in layout files with one of the codes.
void AddWithCodes(std::initializer_list<const char *> codes, const CheckInput &input, RuleReport &report)
{
    for (const Finding &finding : input.facts->LayoutFindings(input)) {
        for (const char *code : codes) {
            if (qstrcmp(code, finding.code) == 0)
                report.Add(finding);
        }
    }
}

/// Returns the first component below an element with that name, or null.
const TiXmlElement *FindNamed(const TiXmlElement &element, const QByteArray &name)
{
    for (auto *child = element.FirstChildElement(); child; child = child->NextSiblingElement()) {
        const char *const own = child->Attribute("name");
        if (own && name == own)
            return child;
        if (const TiXmlElement *const found = FindNamed(*child, name))
            return found;
    }
    return nullptr;
}

/// Finds the components of one screen's layouts that are partly or wholly outside of it.
class OutsideSearch
{
public:
    OutsideSearch(const CheckInput &checkInput, const CResFolder &layouts, RuleReport &ruleReport)
        : input(checkInput), env(input.document.env), folder(layouts), report(ruleReport),
          screen(input.document.tables.resolutions.At(folder.index))
    {
    }

    void Search()
    {
        PreviewEntries entries;
        for (const auto &own : folder.subfolders) {
            for (const CBaseRes *res : own->resources) {
                const auto &layout = static_cast<const CLayoutRes &>(*res);
                entries = EntriesOf(layout, std::move(entries));
                Look(layout, entries);
            }
        }
    }

private:
    void Look(const CLayoutRes &layout, const PreviewEntries &entries)
    {
        int outside = -1; // the depth of the reported component, whose sub-components are skipped; -1: none
        for (const PreviewEntry &entry : entries) {
            if (outside >= 0 && entry.depth > outside)
                continue;
            outside = -1;
            if (IsInside(entry.rect))
                continue;
            outside = entry.depth;
            Add(layout, entry);
        }
    }

    [[nodiscard]] bool IsInside(const PreviewRect &rect) const
    {
        const bool isEmpty = rect.left >= rect.right || rect.top >= rect.bottom;
        return isEmpty ||
               (rect.left >= 0 && rect.top >= 0 && rect.right <= screen.width && rect.bottom <= screen.height);
    }

    void Add(const CLayoutRes &layout, const PreviewEntry &entry)
    {
        const NarrowText &name = entry.component->propName;
        const QString what = name.isEmpty()
                                 ? u"a component of the class %1"_s.arg(env.NarrowToWide(entry.component->typeName))
                                 : u"the component \"%1\""_s.arg(env.NarrowToWide(name));
        const QString text = u"%1 is from %2,%3 to %4,%5, and the screen has %6x%7"_s.arg(what)
                                 .arg(entry.rect.left)
                                 .arg(entry.rect.top)
                                 .arg(entry.rect.right)
                                 .arg(entry.rect.bottom)
                                 .arg(screen.width)
                                 .arg(screen.height);
        const QString id = env.NarrowToWide(layout.Id()->name);
        QString file = env.NarrowToWide(layout.File()->path);
        MakeAbsolute(file, DirectoryOf(input.document.PathName()));
        report.Add({.file = file, .line = RowIn(file, layout, name), .id = id, .text = text, .basis = HashOf(text)});
    }

    /// Returns the row of a component; of the layout if the component has no name.
    int RowIn(const QString &file, const CLayoutRes &layout, const NarrowText &name)
    {
        if (!isRead) {
            isRead = true;
            (void)LoadXml(env, file, xml);
        }
        const TiXmlElement *const root = xml.RootElement();
        for (auto *element = root ? root->FirstChildElement() : nullptr; element;
             element = element->NextSiblingElement()) {
            const char *const id = element->Attribute("id");
            if (!id || FromXml(env, id) != layout.Id()->name)
                continue;
            const TiXmlElement *const found = name.isEmpty() ? nullptr : FindNamed(*element, ToXml(env, name));
            return RowOf(found ? *found : *element);
        }
        return 0;
    }

    const CheckInput &input;
    const Environment &env;
    const CResFolder &folder;
    RuleReport &report;
    const CResoEntry &screen;
    TiXmlDocument xml; // all layouts of a screen are in one file
    bool isRead = false;
};

} // namespace

void LayoutClass(const CheckInput &input, RuleReport &report)
{
    AddWithCodes({"layout.class", "layout.element"}, input, report);
}

void LayoutProperty(const CheckInput &input, RuleReport &report)
{
    AddWithCodes({"layout.property"}, input, report);
}

void LayoutValue(const CheckInput &input, RuleReport &report)
{
    AddWithCodes({"layout.value"}, input, report);
}

void LayoutReference(const CheckInput &input, RuleReport &report)
{
    AddWithCodes({"layout.reference"}, input, report);
}

void LayoutName(const CheckInput &input, RuleReport &report)
{
    AddWithCodes({"layout.name"}, input, report);
}

void LayoutOutside(const CheckInput &input, RuleReport &report)
{
    const CResFolder *const all = input.document.root.FindFolder(KIND_LAYOUTS, 1);
    if (!all)
        return;
    for (const auto &folder : all->subfolders) {
        if (folder->index >= 0 && ChecksScreen(input, folder->index))
            OutsideSearch(input, *folder, report).Search();
    }
}
