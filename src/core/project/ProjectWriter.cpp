// SPDX-License-Identifier: MIT
#include "CResDoc.h"
#include "Environment.h"
#include "HostFiles.h"
#include "Paths.h"
#include "ProjectContext.h"
#include "ProjectLayouts.h"
#include "StringFile.h"
#include "Xml.h"
#include "XmlWriter.h"

#include <algorithm>

namespace
{

void ReportRefused(Environment &env, const QString &path)
{
    env.Report({"project.write-failed", Severity::Error, ResolvePath(path, CurrentFolder()), 0, {}, {}},
               "failed to write to file \"%s\".", qUtf8Printable(path));
}

/// Writes a resource list; one object for each writing.
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

    /// Writes the list in memory, and no other file.
    QByteArray ListBytes()
    {
        isOnlyList = true;
        (void)WriteAll();
        return list.Bytes();
    }

    bool Save(const QString &path) { return list.Save(path); }

    /// A layout file that was written.
    struct WrittenLayouts
    {
        LayoutFileRef file;
        NarrowText path; ///< as it is in the list
        QString absolute;
    };

    QString writtenStrings; ///< the string file, if the project has strings and they were written
    std::vector<WrittenLayouts> writtenLayouts;
    QStringList obsolete; ///< string and layout files that the project no longer has

private:
    /// Writes the elements of a folder and of its subfolders. The subfolders are before the folder's own resources.
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
        case KIND_RESO_LAYOUTS:
            return WriteResolutionLayouts(folder);
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
        const QByteArray name(tag);
        for (const CBaseRes *res : folder.resources) { // nearly all of a large list, so without the parser's elements
            list.BeginElement(name);
            list.Attribute("id", ToXml(env, res->Id()->name));
            list.Attribute("type", res->Id()->push ? "Push" : "Normal");
            list.EndWithText(ToXml(env, static_cast<const CFileRes *>(res)->path));
        }
    }

    void WriteImages(const CResFolder &folder)
    {
        if (folder.index < 0) {
            PutFiles(folder, "IMAGE");
            return;
        }
        BeginResolution(folder, "image");
        PutFiles(folder, "IMAGE");
        list.End();
    }

    void BeginResolution(const CResFolder &folder, const char *group)
    {
        const CResoEntry &resolution = doc.tables.resolutions.At(folder.index);
        TiXmlElement element("RESOLUTION");
        element.SetAttribute("width", resolution.width);
        element.SetAttribute("height", resolution.height);
        element.SetAttribute("class", group);
        list.Begin(element);
    }

    int WriteResolutionLayouts(const CResFolder &folder)
    {
        if (folder.index < 0)
            return 0;
        BeginResolution(folder, "layout");
        const QByteArrayList &untouched = doc.untouchedLayouts[folder.index];
        for (const NarrowText &path : untouched)
            NameUntouched(path);
        const int code = untouched.empty() ? WriteLayouts(folder) : 0;
        list.End();
        return code;
    }

    void NameUntouched(const NarrowText &path)
    {
        TiXmlElement element("LAYOUT");
        Put(element, ToXml(env, path));
        if (isOnlyList)
            return;
        const QString file = context.Absolute(env.NarrowToWide(path));
        env.Report({"layout.not-saved", Severity::Warning, file, 0, {}, {}},
                   "layout file \"%s\" wasn't loaded whole and is left as it is.", env.Shown(path).constData());
    }

    int WriteLayouts(const CResFolder &folder)
    {
        const LayoutFileRef file = LayoutFileOf(folder);
        if (!file)
            return 0;
        const CResoEntry &resolution = doc.tables.resolutions.At(file->resolution);
        NarrowText path = file->path;
        if (path.isEmpty())
            path = env.WideToNarrow(context.LayoutPath(resolution.width, resolution.height));
        const QString absolute = context.Absolute(env.NarrowToWide(path));
        if (file->All().empty() && !file->path.isEmpty()) {
            obsolete.append(absolute);
            return 0;
        }
        TiXmlElement element("LAYOUT");
        Put(element, ToXml(env, path));
        if (isOnlyList)
            return 0;
        (void)SetCurrentFolder(context.dir); // it could be entered before
        // A list made by hand may name the same file for two resolutions: the second would replace the first.
        const bool isTaken = std::any_of(writtenLayouts.begin(), writtenLayouts.end(),
                                         [&](const auto &other) { return IsSamePath(other.absolute, absolute); });
        const int code = isTaken ? CANNOT_WRITE : file->Save(path);
        if (code != 0)
            ReportRefused(env, env.NarrowToWide(path));
        else
            writtenLayouts.push_back({file, path, absolute});
        return code;
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
            obsolete.append(context.Absolute(path));
            return 0;
        }
        TiXmlElement element("STRING");
        Put(element, path.toUtf8());
        if (isOnlyList)
            return 0;
        (void)SetCurrentFolder(context.dir); // it could be entered before
        writtenStrings = context.Absolute(path);
        const int code = WriteStringFile(path, doc);
        if (code != 0)
            writtenStrings.clear();
        return code;
    }

    const ProjectContext &context;
    CResDoc &doc;
    Environment &env;
    XmlWriter list;
    bool isOnlyList = false;
};

/// Keeps the copies that are needed and replaces the files. Returns the file that was refused, if any.
std::optional<QString> ReplaceFiles(CResDoc &doc, const ProjectWriter &writer, FileTransaction &files,
                                    const QString &list)
{
    const QStringList replaced = files.Replaced() + writer.obsolete;
    FileStamps before = doc.ComparedFiles();
    for (const QString &file : replaced) {
        if (!before.Have(file)) // it wasn't read
            before.Note(file);
    }
    doc.KeepUnread(QStringList(writer.writtenStrings) + writer.obsolete);
    if (doc.HasToKeep() && !doc.KeepReplaced(replaced))
        return list;
    const auto isUnchanged = [&] {
        const QStringList changed = before.Since().files;
        if (!changed.isEmpty()) {
            doc.env.ExplainFailure(QStringLiteral("another program changed %1 while the project was saved, so nothing "
                                                  "was written; save the project again")
                                       .arg(changed.join(QStringLiteral(", "))));
        }
        return changed.isEmpty();
    };
    if (std::optional<QString> refused = files.Commit(isUnchanged))
        return refused;
    doc.NoteFile(list);
    if (!writer.writtenStrings.isEmpty())
        doc.NoteFile(writer.writtenStrings);
    for (const auto &layouts : writer.writtenLayouts)
        doc.NoteFile(layouts.absolute);
    return std::nullopt;
}

/// Watches the files as they are now. Notifications about the files that they replaced have a handle that is no longer
/// known. A save that fails doesn't change the watches.
void WatchWritten(CResDoc &doc, const ProjectWriter &writer, const ProjectContext &context)
{
    if (!writer.writtenStrings.isEmpty())
        doc.WatchFile(writer.writtenStrings, WATCH_STRINGS);
    for (const auto &layouts : writer.writtenLayouts) {
        layouts.file->path = layouts.path;
        doc.WatchFile(layouts.absolute, WATCH_LAYOUT);
    }
    // This file wasn't written, but closing another project may have ended its watch too.
    doc.WatchFile(context.ConfigPath(), WATCH_CONFIGURATION);
    doc.WatchFile(context.Absolute(context.ResourcePath()), WATCH_RESOURCES);
}

} // namespace

int WriteProject(const QString &path, CResDoc &doc, FileTransaction &files)
{
    const ProjectContext context(path, doc);
    Environment &env = doc.env;
    const QString file = context.ResourcePath();
    const QString absolute = context.Absolute(file);
    if (!SetCurrentFolder(context.dir)) { // it no longer exists
        ReportRefused(env, absolute);
        env.EndReport(context.name, "save");
        return CANNOT_WRITE;
    }
    CondenseWhiteSpace(false);
    ProjectWriter writer(context);
    int code = writer.WriteAll();
    std::optional<QString> refused;
    if (code == 0 && !writer.Save(file)) {
        refused = file;
    } else if (code == 0) {
        // A file with the name of a new layout file belongs to no resource, but may contain somebody's work.
        for (const auto &layouts : writer.writtenLayouts) {
            if (!layouts.file->path.isEmpty() || files.IsUnchanged(layouts.absolute))
                continue;
            MoveToRecycleBin(layouts.absolute);
            if (PathExists(layouts.absolute))
                refused = layouts.absolute; // it couldn't be moved to the trash
        }
        if (!refused)
            refused = ReplaceFiles(doc, writer, files, absolute);
    }
    if (refused) {
        code = CANNOT_WRITE;
        ReportRefused(env, *refused);
    }
    // Only after the list on the disk no longer names them, so that a failed save loses nothing.
    for (const QString &obsolete : code == 0 ? writer.obsolete : QStringList()) {
        doc.UnwatchFile(obsolete, WATCH_LAYOUT);
        MoveToRecycleBin(obsolete);
        doc.NoteFile(obsolete);
    }
    if (code == 0)
        WatchWritten(doc, writer, context);
    env.EndReport(context.name, "save");
    return code;
}

QByteArray MakeResourceList(CResDoc &doc)
{
    const ProjectContext context(doc.PathName(), doc);
    return ProjectWriter(context).ListBytes();
}
