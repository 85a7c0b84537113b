// SPDX-License-Identifier: MIT
// A layout file of any bytes: the loaded components are saved, read back equal, and accept typed objects.

#include "../project/FuzzFolder.h"
#include "CLayoutRes.h"
#include "CatalogueFile.h"

namespace
{

QByteArray Dump(const ComponentObject &component)
{
    QByteArray text = component.className + " " + component.name;
    for (const AttributeRecord &attribute : component.attributes)
        text += '\1' + attribute.name + '=' + attribute.value;
    for (const auto &child : component.children)
        text += "\2" + Dump(*child) + '\3';
    return text;
}

QByteArray Dump(const LayoutFileObject &file)
{
    QByteArray text;
    for (const auto &layout : file.All()) {
        text += "\4" + layout->Id()->name;
        for (const auto &component : layout->components)
            text += "\2" + Dump(*component) + '\3';
    }
    return text;
}

ClassCatalogue Classes(const Environment &env)
{
    ClassCatalogue catalogue;
    std::vector<Finding> errors;
    if (!ParseCatalogue(
            env,
            "<catalogue version='1'><structure name='Insets'><member name='left' type='ZulS32'/></structure>"
            "<class name='Base'><member name='pos' type='ZulPoint'/><member name='c' type='ZulColor'/></class>"
            "<class name='Panel' base='Base'><member name='border' type='Insets'/>"
            "<member name='i' type='ZrpStateImage'/><member name='in' type='Base'/></class></catalogue>",
            QStringLiteral("classes"), catalogue, errors)) {
        std::abort();
    }
    return catalogue;
}

/// Opens each layout, adds a component to it and moves the first one into that.
void Edit(Environment &env, const LayoutFileRef &file, const ClassCatalogue &catalogue)
{
    std::vector<LayoutObject *> layouts;
    for (const auto &layout : file->All())
        layouts.push_back(layout.get());
    std::vector<std::unique_ptr<CLayoutRes>> opened;
    for (LayoutObject *layout : layouts) {
        auto res = CLayoutRes::Create(file, layout, catalogue);
        if (!res)
            continue;
        auto panel = std::make_unique<ComponentObject>();
        panel->className = "Panel";
        CZulClass *const added = res->AddComponent(env, std::move(panel));
        if (auto *pos = dynamic_cast<CZulBase *>(added->FindMember("pos")))
            pos->SetText("(1,2)");
        res->MoveComponent(added, res->Components().front().get());
        opened.push_back(std::move(res));
    }
    const int code = file->Save(file->path);
    if (code != 0 && code != LAYOUT_CANT_BE_READ_BACK) // the layout has one more level now
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const quint8 *data, size_t size)
{
    static const FuzzFolder folder;
    static const auto env = folder.Program({});
    static const ClassCatalogue catalogue = Classes(*env);
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    folder.Put("in.xml", bytes);
    IDPool pool;
    LayoutFileObject first(*env, pool, 0);
    (void)first.Load(folder.Path("in.xml").toUtf8()); // the part before the fault has been read
    if (first.Save(folder.Path("out.xml").toUtf8()) != 0)
        std::abort();
    IDPool otherPool;
    const auto second = std::make_shared<LayoutFileObject>(*env, otherPool, 0);
    const int code = second->Load(folder.Path("out.xml").toUtf8());
    // Names that aren't valid text may become equal.
    if (bytes.isValidUtf8() && (code != 0 || Dump(first) != Dump(*second)))
        std::abort();
    if (code == 0)
        Edit(*env, second, catalogue);
    return 0;
}
