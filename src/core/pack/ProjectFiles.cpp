// SPDX-License-Identifier: MIT
#include "ProjectFiles.h"

#include "Environment.h"
#include "HostFiles.h"
#include "IDGen.h"
#include "LayoutExport.h"
#include "ListLines.h"
#include "OutputGuard.h"
#include "Packer.h"
#include "Paths.h"
#include "ResModel.h"
#include "V1ResourceList.h"

#include <unistd.h>

namespace
{

const QString PREVIEW_LIST = QStringLiteral("preview.lst");

/// Compares files by their paths in the project.
class Comparison
{
public:
    Comparison(OutputGuard &outputGuard, const QString &projectFolder) : guard(outputGuard), folder(projectFolder) {}

    void File(const QString &path)
    {
        const QString absolute = ResolvePath(path, folder);
        const QByteArray exact = QString(absolute).replace(u'\\', u'/').toUtf8();
        guard.Compare(access(exact.constData(), F_OK) == 0 ? exact : paths.Resolve(absolute));
    }

    void Images(const CResFolder &from, const Environment &env, bool usedToo)
    {
        for (const CBaseRes *res : from.resources) {
            const auto *image = static_cast<const CFileRes *>(res);
            if (usedToo || !image->inUse)
                File(env.NarrowToWide(image->path));
        }
    }

    /// Compares the files of all resources in a folder and below it.
    void Resources(const CResFolder &from, const Environment &env)
    {
        for (const CBaseRes *res : from.resources) {
            if (const auto *const file = dynamic_cast<const CFileRes *>(res))
                File(env.NarrowToWide(file->path));
        }
        for (const auto &subfolder : from.subfolders)
            Resources(*subfolder, env);
    }

    /// Compares the files that a list beside the project names.
    void Listed(const QString &list, const Environment &env)
    {
        constexpr qint64 LARGEST_LIST = 64 << 20; // bytes
        QByteArray bytes;
        if (ReadFile(ResolvePath(list, folder), bytes, LARGEST_LIST) != 0)
            return;
        for (ListLines lines(bytes); lines.Next();)
            File(env.NarrowToWide(lines.Text()));
    }

private:
    OutputGuard &guard;
    QString folder;
    HostPaths paths;
};

void CompareGenerated(Comparison &comparison, const packinfo &info, const CResModel &document, const QString &folder)
{
    const Settings &settings = document.env.settings;
    const QString headers = ResolvePath(settings.String("Path", "header_output", ".\\ResID"), folder);
    for (const QString &header : IDGen::Headers(headers, document))
        comparison.File(header);
    if (!info.headers.isEmpty())
        comparison.File(HeaderIn(info.headers, settings.String("ResID", "main_header", "ResID.h")));
    const QString tables = DirectoryOf(settings.String("ResID", "layout_include_table", ".\\ResID\\"));
    for (const QString &path : LayoutTableFilesIn(tables))
        comparison.File(path);
    for (const char *key : {"zul_xml_enum_i", "zul_xml_table_i"}) {
        if (const QString table = settings.String("Path", key); !table.isEmpty())
            comparison.File(ResolvePath(table, headers));
    }
}

} // namespace

void CompareProjectFiles(OutputGuard &guard, const packinfo &info, const CResModel &document)
{
    if (!guard.IsNeeded())
        return;
    const QString folder = DirectoryOf(document.PathName());
    Comparison comparison(guard, folder);
    for (const QString &file : info.projectFiles)
        comparison.File(file);
    comparison.File(document.PathName());
    comparison.File(document.env.settings.ProjectFile());
    comparison.File(PREVIEW_LIST);
    comparison.File(V1ListPath(document.PathName()));
    CompareGenerated(comparison, info, document, folder);
    if (const CResFolder *images = document.root.FindFolder(KIND_IMAGES, 2)) {
        for (const auto &resolution : images->subfolders) {
            if (resolution->index != info.scope && resolution->index != ANY_RESOLUTION)
                comparison.Images(*resolution, document.env, true);
        }
    }
    if (const CResFolder *components = document.root.FindFolder(KIND_CPIMAGES, 2)) {
        for (const auto &component : components->subfolders)
            comparison.Images(*component, document.env, false);
    }
}

void CompareAllProjectFiles(OutputGuard &guard, const QStringList &projectFiles, const CResModel &document)
{
    if (!guard.IsNeeded())
        return;
    packinfo info;
    info.projectFiles = projectFiles;
    CompareProjectFiles(guard, info, document);
    Comparison comparison(guard, DirectoryOf(document.PathName()));
    comparison.Resources(document.root, document.env);
    comparison.Listed(PREVIEW_LIST, document.env);
    comparison.Listed(V1ListPath(document.PathName()), document.env);
    comparison.File(document.env.settings.String("Application", "app_icon", "AppLogo.img"));
}
