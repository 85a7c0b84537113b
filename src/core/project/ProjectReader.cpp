// SPDX-License-Identifier: MIT
#include "CResDoc.h"
#include "Environment.h"
#include "FileElements.h"
#include "FileFault.h"
#include "HostFiles.h"
#include "ListReport.h"
#include "Paths.h"
#include "ProjectContext.h"
#include "ProjectLayouts.h"
#include "StringFile.h"
#include "XmlElements.h"

#include <cerrno>
#include <cstring>

using namespace Qt::StringLiterals;

namespace
{

constexpr int CANNOT_OPEN = -1;
constexpr int WRONG_FORMAT = 11;

/// Reads a resource list; one object for each reading.
class ProjectReader
{
public:
    explicit ProjectReader(const ProjectContext &projectContext)
        : context(projectContext), doc(context.doc), env(context.env), report(context), fileElements(context, report)
    {
    }

    int Read(XmlElements &xml)
    {
        const TiXmlElement &app = *xml.Document().FirstChildElement();
        report.DropAround(xml.Document(), app);
        report.DropTexts(app, {"id"});
        while (const TiXmlElement *element = xml.Next()) {
            if (const int code = ReadElement(*element))
                return code;
        }
        return 0;
    }

private:
    int ReadElement(const TiXmlElement &element)
    {
        const std::string &tag = element.ValueStr();
        if (tag == "FILE")
            fileElements.ReadFile(element);
        else if (tag == "IMAGE")
            fileElements.ReadDefaultImage(element);
        else if (tag == "RESOLUTION")
            ReadResolution(element);
        else if (tag == "STRING")
            return ReadStrings(element);
        else if (tag == "COMPONENT")
            ReadComponent(element);
        else
            report.DropUnknown(element);
        return 0;
    }

    void ReadResolution(const TiXmlElement &element)
    {
        const char *widthText = element.Attribute("width");
        const char *heightText = element.Attribute("height");
        const int width = widthText ? LeadingNumber(QString::fromUtf8(widthText)) : 0;
        const int height = heightText ? LeadingNumber(QString::fromUtf8(heightText)) : 0;
        if (width < 1 || height < 1) {
            env.Report(report.Dropped(element, "list.size-invalid", Severity::Error,
                                      u"its width and height must be above 0"_s),
                       "invalid resolution tag (Line %d).", LineOf(element));
            return;
        }
        const qint16 index = doc.tables.resolutions.IndexOf(width, height);
        if (index < 0) {
            env.Report(report.Dropped(element, "list.size-unlisted", Severity::Warning,
                                      u"the list of screen sizes doesn't contain %1x%2"_s.arg(width).arg(height)),
                       "unsupported resolution (%dx%d) discarded.", width, height);
            return;
        }
        report.DropTexts(element, {"width", "height", "class"});
        const char *group = element.Attribute("class");
        CResFolder *images = group && std::strstr(group, "image") ? doc.UseResolutionImages(index) : nullptr;
        CResFolder *layouts = group && std::strstr(group, "layout") ? doc.UseResolutionLayouts(index) : nullptr;
        for (auto *child = element.FirstChildElement(); child; child = child->NextSiblingElement()) {
            if (images && child->ValueStr() == "IMAGE")
                fileElements.ReadImage(*child, images, index);
            else if (layouts && child->ValueStr() == "LAYOUT")
                ReadLayouts(*child, *layouts);
            else
                report.DropUnknown(*child);
        }
    }

    void ReadLayouts(const TiXmlElement &element, CResFolder &folder)
    {
        QByteArray text = TextOf(element);
        if (text.isEmpty()) {
            env.Report(report.Dropped(element, "list.no-layout-file", Severity::Error, NO_FILE), LineStart::Warning,
                       "layout file not found.");
            return;
        }
        report.DropOthers(element, {});
        text.replace('"', "");
        (void)SetCurrentFolder(context.dir); // it could be entered before
        const QString absolute = context.Absolute(QString::fromUtf8(text));
        doc.NoteFile(absolute);
        LoadLayoutFile(doc, folder, report.Narrow(element, text));
        doc.WatchFile(absolute, WATCH_LAYOUT);
    }

    int ReadStrings(const TiXmlElement &element)
    {
        QByteArray text = TextOf(element);
        if (text.isEmpty()) {
            env.Report(report.Dropped(element, "list.no-string-file", Severity::Warning, NO_FILE),
                       "ref_list not found (Line %d).", LineOf(element));
            return 0;
        }
        report.DropOthers(element, {});
        text.replace('"', "");
        (void)SetCurrentFolder(context.dir); // it could be entered before
        const QString path = QString::fromUtf8(text);
        const QString absolute = context.Absolute(path);
        doc.NoteFile(absolute);
        const int code = ReadStringFile(path, doc);
        if (code == 0)
            doc.WatchFile(absolute, WATCH_STRINGS);
        return code;
    }

    void ReadComponent(const TiXmlElement &element)
    {
        const char *id = element.Attribute("id");
        if (!id) {
            env.Report(report.Dropped(element, "list.no-id", Severity::Error, NO_ID),
                       "invalid component tag (Line %d).", LineOf(element));
            return;
        }
        const CResFolder *component = doc.root.FindFolder(KIND_COMPONENT, QString::fromUtf8(id), 2);
        if (!component) {
            env.Report(report.Dropped(element, "list.component-unknown", Severity::Warning,
                                      u"there is no component \"%1\""_s.arg(QString::fromUtf8(id))),
                       "unknow component [%s] discarded.", id);
            return;
        }
        report.DropTexts(element, {"id"});
        for (auto *child = element.FirstChildElement(); child; child = child->NextSiblingElement()) {
            if (child->ValueStr() == "IMAGE")
                ReadComponentImage(*child, *component);
            else
                report.DropUnknown(*child);
        }
    }

    void ReadComponentImage(const TiXmlElement &element, const CResFolder &component)
    {
        const char *id = element.Attribute("id");
        if (!id) {
            env.Report(report.Dropped(element, "list.no-id", Severity::Error, NO_ID),
                       "invalid component image tag (Line %d).", LineOf(element));
            return;
        }
        auto *image = static_cast<CFileRes *>(component.FindResource(FromXml(env, id)));
        if (!image) {
            env.Report(report.Dropped(element, "list.image-unknown", Severity::Warning,
                                      u"the component has no image \"%1\""_s.arg(QString::fromUtf8(id))),
                       "unknown component image [%s] discarded.", id);
            return;
        }
        const QByteArray text = WithoutOuterQuotes(TextOf(element));
        if (!text.isEmpty())
            image->SetPath(report.Narrow(element, text));
        report.DropOthers(element, {"id"});
        image->inUse = true;
        image->NotifyAdded();
    }

    const ProjectContext &context;
    CResDoc &doc;
    Environment &env;
    ListReport report;
    FileElements fileElements;
};

/// Returns why a file is no XML. The row in the message is the true row plus one.
QString WhyNoXml(const QString &path, const TiXmlDocument &document)
{
    const QString file = QString::fromUtf8(HostPath(ResolvePath(path, CurrentFolder())));
    return document.ErrorRow() == 0
               ? QStringLiteral("\"%1\" is empty").arg(file)
               : QStringLiteral("\"%1\", line %2: this is not well-formed XML").arg(file).arg(document.ErrorRow());
}

int ReadInto(const ProjectContext &context, const QString &path)
{
    Environment &env = context.env;
    env.WriteOutput("Loading resource from \"%s\"...\r\n", qUtf8Printable(path));
    env.FlushOutput();
    XmlElements xml;
    const TiXmlDocument &document = xml.Document();
    if (const int code = xml.Load(env, path)) {
        const QString why = code == CANNOT_OPEN ? WhyNotRead(path, errno) : WhyNoXml(path, document);
        env.Report({code == CANNOT_OPEN ? "list.unreadable" : "list.malformed",
                    Severity::Error,
                    ResolvePath(path, CurrentFolder()),
                    document.ErrorRow(),
                    {},
                    why},
                   LineStart::Fatal, "invalid resource format (Line %d).", document.ErrorRow() + 1);
        env.Explain(why);
        return code;
    }
    const TiXmlElement *app = document.FirstChildElement();
    if (!app || app->ValueStr() != "APP") {
        env.Report({"list.root", Severity::Error, ResolvePath(path, CurrentFolder()), app ? RowOf(*app) : 0, {}, {}},
                   "invalid resource format \"%s\".", qUtf8Printable(path));
        return WRONG_FORMAT;
    }
    ProjectReader reader(context);
    return reader.Read(xml);
}

} // namespace

int ReadProject(const QString &path, CResDoc &doc)
{
    const ProjectContext context(path, doc);
    const QString file = context.ResourcePath();
    doc.NoteFile(context.Absolute(file));
    const int code = SetCurrentFolder(context.dir) ? ReadInto(context, file) : CANNOT_OPEN;
    doc.env.EndReport(context.name, "open");
    if (code == 0)
        doc.WatchFile(context.Absolute(file), WATCH_RESOURCES);
    return code;
}
