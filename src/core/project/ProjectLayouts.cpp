#include "ProjectLayouts.h"

#include "CResDoc.h"
#include "Environment.h"

namespace
{

/// Opens a layout in a folder of its own below `folder`. False when it can't be.
bool AddLayout(CResDoc &doc, CResFolder &folder, const LayoutFileRef &file, LayoutObject *layout)
{
    std::unique_ptr<CLayoutRes> res = CLayoutRes::Create(file, layout, *doc.classes);
    if (!res)
        return false;
    doc.AddLayoutFolder(folder, std::move(res));
    return true;
}

} // namespace

LayoutFileRef LayoutFileOf(const CResFolder &folder)
{
    const CBaseRes *first = folder.subfolders.empty() ? nullptr : folder.subfolders.front()->resources.First();
    return first ? static_cast<const CLayoutRes *>(first)->File() : nullptr;
}

void LoadLayoutFile(CResDoc &doc, CResFolder &folder, const NarrowText &path)
{
    Environment &env = doc.env;
    const auto fail = [&] {
        const int count = ++env.ErrorCount;
        env.WriteOutput("Error %d: failed to load layout file \"%s\".\r\n", count, env.Shown(path).constData());
    };
    if (folder.index < 0) {
        fail();
        return;
    }
    QByteArrayList &untouched = doc.untouchedLayouts[folder.index];
    if (const LayoutFileRef other = LayoutFileOf(folder); other || !untouched.empty()) {
        // A resolution has one file. Neither is overwritten until the list says which.
        if (untouched.empty())
            untouched.append(other->path);
        untouched.append(path);
        fail();
        return;
    }
    env.WriteOutput("Loading layouts from \"%s\"...\r\n", env.Shown(path).constData());
    env.FlushOutput();
    const auto file = std::make_shared<LayoutFileObject>(env, doc.ids, qint16(folder.index));
    if (file->Load(path) != 0) {
        untouched.append(path);
        fail();
        return;
    }
    std::vector<LayoutObject *> layouts;
    for (const auto &layout : file->All())
        layouts.push_back(layout.get());
    for (LayoutObject *layout : layouts) {
        const NarrowText name = layout->Id()->name;
        if (AddLayout(doc, folder, file, layout))
            continue;
        untouched = {path};
        const int count = ++env.ErrorCount;
        env.WriteOutput("Error %d: failed to load layout [%s].\r\n", count, env.Shown(name).constData());
    }
}
