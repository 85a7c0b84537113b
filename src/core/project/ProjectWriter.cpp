#include "CResDoc.h"
#include "Environment.h"
#include "HostFiles.h"
#include "Paths.h"
#include "ProjectContext.h"
#include "StringFile.h"
#include "Xml.h"

namespace
{

/// One writing of a resource list.
class ProjectWriter
{
public:
    explicit ProjectWriter(const ProjectContext &projectContext)
        : context(projectContext), doc(context.doc), env(context.env)
    {
        app = document.InsertEndChild(TiXmlElement("APP"))->ToElement();
        app->SetAttribute("id", (QStringLiteral("APP_") + context.name).toUtf8().constData());
    }

    /// Adds the elements of a folder and of those below it: subfolders before the folder's own resources.
    int Write(const CResFolder &folder, TiXmlElement &parent)
    {
        if (folder.kind & KIND_FLAG_OFF)
            return 0;
        TiXmlElement *inner = &parent;
        switch (folder.kind) {
        case KIND_STRINGS:
            return WriteStrings(folder);
        case KIND_LAYOUT:
            return 0;
        case KIND_COMPONENT:
            WriteComponent(folder);
            return 0;
        case KIND_RESO_IMAGES:
            if (folder.index >= 0)
                inner = &AddResolution(folder.index, "image");
            break;
        default:
            break;
        }
        for (const auto &subfolder : folder.subfolders) {
            if (const int code = Write(*subfolder, *inner))
                return code;
        }
        const char *tag = folder.kind == KIND_RESO_IMAGES ? "IMAGE"
                          : folder.kind == KIND_AUDIO || folder.kind == KIND_VIDEO || folder.kind == KIND_BINARY
                              ? "FILE"
                              : nullptr;
        if (tag) {
            for (const CBaseRes *res : folder.resources)
                AddFileRes(*inner, tag, static_cast<const CFileRes &>(*res));
        }
        return 0;
    }

    TiXmlElement &Root() { return *app; }

    bool Save(const QString &path) { return SaveXml(env, document, path); }

    QString writtenStrings;  ///< the string file, if the project has strings and they were written
    QString obsoleteStrings; ///< the string file that it no longer has, if it has none

private:
    static TiXmlElement &AddElement(TiXmlElement &parent, const char *tag)
    {
        auto *element = new TiXmlElement(tag);
        parent.LinkEndChild(element);
        return *element;
    }

    static void AddText(TiXmlElement &element, const QByteArray &text)
    {
        element.LinkEndChild(new TiXmlText(text.constData()));
    }

    TiXmlElement &AddResolution(qint32 index, const char *group)
    {
        const CResoEntry &resolution = doc.tables.resolutions.At(index);
        TiXmlElement &element = AddElement(*app, "RESOLUTION");
        element.SetAttribute("width", resolution.width);
        element.SetAttribute("height", resolution.height);
        element.SetAttribute("class", group);
        return element;
    }

    void AddFileRes(TiXmlElement &parent, const char *tag, const CFileRes &res)
    {
        TiXmlElement &element = AddElement(parent, tag);
        element.SetAttribute("id", ToXml(env, res.Id()->name).constData());
        element.SetAttribute("type", res.Id()->push ? "Push" : "Normal");
        AddText(element, ToXml(env, res.path));
    }

    void WriteComponent(const CResFolder &component)
    {
        TiXmlElement &element = AddElement(*app, "COMPONENT");
        element.SetAttribute("id", component.title.toUtf8().constData());
        for (const CBaseRes *res : component.resources) {
            const auto &image = static_cast<const CFileRes &>(*res);
            if (!image.inUse)
                continue;
            TiXmlElement &child = AddElement(element, "IMAGE");
            child.SetAttribute("id", ToXml(env, image.Id()->name).constData());
            const bool stock = EqualsNoCase(env.NarrowToWide(image.path), env.NarrowToWide(image.defaultPath));
            AddText(child, stock ? QByteArray() : ToXml(env, image.path));
        }
    }

    int WriteStrings(const CResFolder &strings)
    {
        const QString path = context.StringPath();
        const bool nothing = strings.subfolders.size() < 2 &&
                             (strings.subfolders.empty() || strings.subfolders.front()->resources.IsEmpty());
        if (nothing) {
            obsoleteStrings = context.Absolute(path);
            return 0;
        }
        AddText(AddElement(*app, "STRING"), path.toUtf8());
        SetCurrentFolder(context.dir);
        writtenStrings = context.Absolute(path);
        doc.UnwatchFile(writtenStrings, CResDoc::WATCH_STRINGS);
        const int code = WriteStringFile(path, doc);
        if (code != 0)
            writtenStrings.clear();
        return code;
    }

    const ProjectContext &context;
    CResDoc &doc;
    Environment &env;
    TiXmlDocument document;
    TiXmlElement *app;
};

} // namespace

int WriteProject(const QString &path, CResDoc &doc, FileTransaction &files)
{
    const ProjectContext context(path, doc);
    Environment &env = doc.env;
    const QString file = context.ResourcePath();
    const QString absolute = context.Absolute(file);
    doc.UnwatchFile(absolute, CResDoc::WATCH_RESOURCES);
    CondenseWhiteSpace(false);
    ProjectWriter writer(context);
    int code = writer.Write(doc.root, writer.Root());
    std::optional<QString> refused;
    if (code == 0)
        refused = writer.Save(file) ? files.Commit() : file;
    if (refused) {
        code = CANNOT_WRITE;
        const int count = ++env.ErrorCount;
        env.WriteOutput("Error %d: failed to write to file \"%s\".\r\n", count, qUtf8Printable(*refused));
    }
    if (!writer.writtenStrings.isEmpty())
        doc.WatchFile(writer.writtenStrings, CResDoc::WATCH_STRINGS);
    // Only now that the list on disk no longer names it, so that a failed save loses nothing.
    if (code == 0 && !writer.obsoleteStrings.isEmpty())
        MoveToRecycleBin(writer.obsoleteStrings);
    env.WriteOutput("[%s] save - %d error(s), %d warning(s)\r\n", qUtf8Printable(context.name), env.ErrorCount,
                    env.WarningCount);
    doc.WatchFile(absolute, CResDoc::WATCH_RESOURCES);
    return code;
}
