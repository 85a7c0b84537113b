// SPDX-License-Identifier: MIT
#include "LayoutSurvey.h"

#include "CResDoc.h"
#include "CatalogueFile.h"
#include "Environment.h"
#include "Paths.h"
#include "ProjectLayouts.h"

namespace
{

/// Returns a path of the resource list in the host's form.
QString Listed(const NarrowText &path, const Environment &env)
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
                layouts.push_back({size, Listed(layout->File()->path, doc.env), &layout->Layout()});
            }
        }
    });
    return layouts;
}

std::vector<CheckedLayoutFile> CheckLayoutsOf(const CResDoc &doc)
{
    std::vector<CheckedLayoutFile> checked;
    const auto add = [&checked](const QString &listed, qint32 resolution, std::vector<Finding> findings) {
        if (!findings.empty())
            checked.push_back({listed, resolution, std::move(findings)});
    };
    if (const QString path = CataloguePath(doc.env); !doc.classes->loaded && !path.isEmpty()) {
        ClassCatalogue catalogue;
        std::vector<Finding> errors;
        (void)LoadCatalogue(doc.env, path, catalogue, errors);
        add({}, -1, std::move(errors));
    }
    // A look-up doesn't change the pool.
    IDPool &ids = const_cast<IDPool &>(doc.ids);
    ForEachResolution(doc, [&](const CResFolder &resolution) {
        const auto untouched = doc.untouchedLayouts.find(resolution.index);
        QByteArrayList files = untouched == doc.untouchedLayouts.end() ? QByteArrayList() : untouched->second;
        const LayoutFileRef loaded = LayoutFileOf(resolution);
        if (loaded && !loaded->path.isEmpty() && !files.contains(loaded->path))
            files.prepend(loaded->path);
        const auto find = [&](const NarrowText &id) { return ReferenceKindOf(ids, id, qint16(resolution.index)); };
        for (const NarrowText &file : files) {
            QString path = doc.env.NarrowToWide(file);
            MakeAbsolute(path, DirectoryOf(doc.PathName()));
            add(Listed(file, doc.env), resolution.index, CheckLayoutFile(doc.env, path, *doc.classes, find));
        }
    });
    return checked;
}
