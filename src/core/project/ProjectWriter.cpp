#include "CResDoc.h"
#include "Environment.h"
#include "HostFiles.h"
#include "Paths.h"
#include "ProjectContext.h"
#include "StringFile.h"
#include "Xml.h"
#include "XmlWriter.h"

namespace
{

/// One writing of a resource list.
class ProjectWriter
{
public:
    explicit ProjectWriter(const ProjectContext &projectContext)
        : context(projectContext), doc(context.doc), env(context.env), list(env)
    {
    }

    /// Writes the whole list, and the string file.
    int WriteAll()
    {
        TiXmlElement app("APP");
        app.SetAttribute("id", (QStringLiteral("APP_") + context.name).toUtf8().constData());
        list.Begin(app);
        const int code = Write(doc.root);
        list.End();
        return code;
    }

    bool Save(const QString &path) { return list.Save(path); }

    QString writtenStrings;  ///< the string file, if the project has strings and they were written
    QString obsoleteStrings; ///< the string file that it no longer has, if it has none

private:
    /// Writes the elements of a folder and of those below it: subfolders before the folder's own resources.
    int Write(const CResFolder &folder)
    {
        if (folder.kind & KIND_FLAG_OFF)
            return 0;
        switch (folder.kind) {
        case KIND_STRINGS:
            return WriteStrings(folder);
        case KIND_LAYOUT:
            return 0;
        case KIND_COMPONENT:
            WriteComponent(folder);
            return 0;
        case KIND_RESO_IMAGES:
            WriteImages(folder);
            return 0;
        case KIND_AUDIO:
        case KIND_VIDEO:
        case KIND_BINARY:
            PutFiles(folder, "FILE");
            return 0;
        default:
            break;
        }
        for (const auto &subfolder : folder.subfolders) {
            if (const int code = Write(*subfolder))
                return code;
        }
        return 0;
    }

    void Put(TiXmlElement &element, const QByteArray &text)
    {
        element.LinkEndChild(new TiXmlText(text.constData()));
        list.Put(element);
    }

    void PutFiles(const CResFolder &folder, const char *tag)
    {
        for (const CBaseRes *res : folder.resources) {
            TiXmlElement element(tag);
            element.SetAttribute("id", ToXml(env, res->Id()->name).constData());
            element.SetAttribute("type", res->Id()->push ? "Push" : "Normal");
            Put(element, ToXml(env, static_cast<const CFileRes *>(res)->path));
        }
    }

    void WriteImages(const CResFolder &folder)
    {
        if (folder.index < 0) {
            PutFiles(folder, "IMAGE");
            return;
        }
        const CResoEntry &resolution = doc.tables.resolutions.At(folder.index);
        TiXmlElement element("RESOLUTION");
        element.SetAttribute("width", resolution.width);
        element.SetAttribute("height", resolution.height);
        element.SetAttribute("class", "image");
        list.Begin(element);
        PutFiles(folder, "IMAGE");
        list.End();
    }

    void WriteComponent(const CResFolder &component)
    {
        TiXmlElement element("COMPONENT");
        element.SetAttribute("id", component.title.toUtf8().constData());
        list.Begin(element);
        for (const CBaseRes *res : component.resources) {
            const auto &image = static_cast<const CFileRes &>(*res);
            if (!image.inUse)
                continue;
            TiXmlElement child("IMAGE");
            child.SetAttribute("id", ToXml(env, image.Id()->name).constData());
            const bool stock = EqualsNoCase(env.NarrowToWide(image.path), env.NarrowToWide(image.defaultPath));
            Put(child, stock ? QByteArray() : ToXml(env, image.path));
        }
        list.End();
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
        TiXmlElement element("STRING");
        Put(element, path.toUtf8());
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
    XmlWriter list;
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
    int code = writer.WriteAll();
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
