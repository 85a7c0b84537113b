#include "LayoutSurvey.h"

#include "CResDoc.h"
#include "CatalogueFile.h"
#include "Environment.h"
#include "Paths.h"
#include "ProjectLayouts.h"

namespace
{

QString HostForm(const NarrowText &path, const Environment &env)
{
    return env.NarrowToWide(path).replace(u'\\', u'/');
}

/// Calls `function(folder)` for each resolution's folder.
template <typename Function> void ForEachResolution(const CResDoc &doc, const Function &function)
{
    const CResFolder *const all = doc.root.FindFolder(KIND_LAYOUTS, 1);
    if (!all)
        return;
    for (const auto &folder : all->subfolders)
        function(*folder);
}

QString SizeOf(const CResFolder &folder, const CResDoc &doc)
{
    if (folder.index < 0)
        return QStringLiteral("Default");
    const CResoEntry &entry = doc.tables.resolutions.At(folder.index);
    return QStringLiteral("%1x%2").arg(entry.width).arg(entry.height);
}

QString CatalogueOf(const CResDoc &doc)
{
    QString file = doc.env.settings.String("Layout", "catalogue");
    if (!file.isEmpty())
        MakeAbsolute(file, doc.env.ProgramDir());
    return file;
}

} // namespace

ReferenceKind ReferenceKindOf(IDPool &ids, const NarrowText &id, qint16 resolution)
{
    const IDRecord *record = id.isEmpty() ? nullptr : ids.Find(id, resolution);
    if (!record && !id.isEmpty())
        record = ids.Find(id, ANY_RESOLUTION);
    const CBaseRes *const holder = record ? record->holders : nullptr;
    if (!holder)
        return ReferenceKind::NONE;
    if (dynamic_cast<const CStringRes *>(holder))
        return ReferenceKind::STRING;
    const CResFolder *const folder = holder->Folder();
    return folder && (folder->kind & KIND_ROOT) == KIND_IMAGES ? ReferenceKind::IMAGE : ReferenceKind::OTHER;
}

std::vector<ListedLayout> ListLayouts(const CResDoc &doc)
{
    std::vector<ListedLayout> layouts;
    ForEachResolution(doc, [&](const CResFolder &resolution) {
        const QString size = SizeOf(resolution, doc);
        for (const auto &own : resolution.subfolders) {
            for (const CBaseRes *res : own->resources) {
                const auto *const layout = static_cast<const CLayoutRes *>(res);
                layouts.push_back({size, HostForm(layout->File()->path, doc.env), &layout->Layout()});
            }
        }
    });
    return layouts;
}

bool NamesCatalogue(const CResDoc &doc)
{
    return !CatalogueOf(doc).isEmpty();
}

std::vector<ProjectLayoutFinding> CheckLayoutsOf(const CResDoc &doc)
{
    std::vector<ProjectLayoutFinding> findings;
    if (!doc.classes->loaded && NamesCatalogue(doc)) {
        ClassCatalogue catalogue;
        std::vector<Finding> errors;
        (void)LoadCatalogue(doc.env, CatalogueOf(doc), catalogue, errors);
        for (const QString &error : CatalogueErrors(errors))
            findings.push_back({{}, 0, error});
    }
    // A look-up changes nothing in the pool.
    IDPool &ids = const_cast<IDPool &>(doc.ids);
    ForEachResolution(doc, [&](const CResFolder &resolution) {
        const auto untouched = doc.untouchedLayouts.find(resolution.index);
        QByteArrayList files = untouched == doc.untouchedLayouts.end() ? QByteArrayList() : untouched->second;
        if (const LayoutFileRef file = LayoutFileOf(resolution); file && !files.contains(file->path))
            files.prepend(file->path);
        const auto find = [&](const NarrowText &id) { return ReferenceKindOf(ids, id, qint16(resolution.index)); };
        for (const NarrowText &file : files) {
            QString path = doc.env.NarrowToWide(file);
            MakeAbsolute(path, DirectoryOf(doc.PathName()));
            for (const Finding &found : CheckLayoutFile(doc.env, path, *doc.classes, find))
                findings.push_back({HostForm(file, doc.env), found.line, found.text});
        }
    });
    return findings;
}
