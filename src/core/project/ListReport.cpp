// SPDX-License-Identifier: MIT
#include "ListReport.h"

#include "CResDoc.h"
#include "ProjectLayouts.h"

using namespace Qt::StringLiterals;

namespace
{

/// Returns the number of elements in an element, including itself.
int CountElements(const TiXmlElement &element)
{
    int count = 1;
    ForEachChild(element, [&count](const TiXmlElement &child) { count += CountElements(child); });
    return count;
}

} // namespace

const char *TextOf(const TiXmlElement &element)
{
    const char *text = element.GetText();
    return text ? text : "";
}

int LineOf(const TiXmlElement &element)
{
    return RowOf(element) + 1;
}

QByteArray WithoutOuterQuotes(QByteArray text)
{
    if (text.startsWith('"'))
        text.remove(0, 1);
    if (text.endsWith('"'))
        text.chop(1);
    return text;
}

ListReport::ListReport(const ProjectContext &context)
    : doc(context.doc), env(context.env), list(context.Absolute(context.ResourcePath())),
      unread([this](int row, const QString &text, bool isComment) { AddUnread(row, text, isComment); })
{
}

void ListReport::AddUnread(int row, const QString &text, bool isComment)
{
    if (isComment)
        return doc.findings.AddComment({"list.comment", Severity::Warning, list, row, {}, text});
    ++env.DroppedCount;
    const Finding finding{"list.unread", Severity::Error, list, row, {}, text};
    doc.findings.Add(finding);
    env.Note(finding);
}

Finding ListReport::About(const TiXmlElement &element, const char *code, Severity severity, const QString &text)
{
    Finding finding{code, severity, list, RowOf(element), {}, text};
    if (text.isEmpty() && env.found.IsEmpty())
        return finding; // the ID isn't used, and there can be 100,000 findings
    finding.id = QString::fromUtf8(element.Attribute("id"));
    if (!text.isEmpty())
        doc.findings.Add(finding);
    return finding;
}

Finding ListReport::Dropped(const TiXmlElement &element, const char *code, Severity severity, const QString &why)
{
    env.DroppedCount += CountElements(element);
    NoteLeftOutLayouts(doc, list, element, why);
    return About(element, code, severity, u"<%1> is left out: %2"_s.arg(QString::fromUtf8(element.Value()), why));
}

void ListReport::DropOthers(const TiXmlElement &element, std::initializer_list<const char *> attributes)
{
    unread.Look(element, attributes, UnreadContent::Text::IsRead);
    ForEachChild(element, [&](const TiXmlElement &child) {
        env.Note(Dropped(child, "list.element-inside", Severity::Error,
                         u"<%1> can contain only a text"_s.arg(QString::fromUtf8(element.Value()))));
    });
}

void ListReport::DropTexts(const TiXmlElement &element, std::initializer_list<const char *> attributes)
{
    unread.Look(element, attributes, UnreadContent::Text::IsNone);
}

void ListReport::DropAround(const TiXmlDocument &document, const TiXmlElement &app)
{
    unread.LookAround(document);
    for (auto *other = app.NextSiblingElement(); other; other = other->NextSiblingElement())
        env.Note(Dropped(*other, "list.element-behind", Severity::Error,
                         u"a resource list has only one outermost element, the first one"_s));
}

void ListReport::DropUnknown(const TiXmlElement &element)
{
    const bool isSwitchedOff = element.ValueStr() == "LAYOUT" && !doc.root.FindFolder(KIND_LAYOUTS, 1);
    env.Report(Dropped(element, isSwitchedOff ? "list.layouts-off" : "list.tag-unknown", Severity::Warning,
                       isSwitchedOff ? u"the settings turn layouts off (section Layout, key folders)"_s
                                     : u"an element of that name is not known here"_s),
               "unknown XML tag [%s] discarded (Line %d).", element.Value(), LineOf(element));
}

NarrowText ListReport::Narrow(const TiXmlElement &element, const QByteArray &utf8)
{
    NarrowText text = FromXml(env, utf8);
    if (!IsKeptByCodePage(env, utf8)) {
        ++env.DroppedCount;
        env.Note(About(element, "list.code-page", Severity::Error, NoFormText(QString::fromUtf8(utf8))));
    }
    return text;
}
