// SPDX-License-Identifier: MIT
#include "CLayoutRes.h"
#include "TestCatalogue.h"
#include "TestModel.h"

#include <rapidcheck.h>

#include <algorithm>

namespace
{

const char DEFINITIONS[] = "<structure name='Insets'><member name='left' type='ZulS32'/></structure>"
                           "<class name='Base'><member name='text' type='ZulWString'/></class>"
                           "<class name='Panel' base='Base'><member name='pos' type='ZulPoint'/>"
                           "<member name='border' type='Insets'/></class>";

using Objects = std::vector<CZulClass *>;

/// Returns the objects and all their descendants, depth first.
Objects AllOf(const std::vector<std::unique_ptr<CZulClass>> &objects)
{
    Objects all;
    for (const auto &object : objects) {
        const Objects below = AllOf(object->subComponents);
        all.push_back(object.get());
        all.insert(all.end(), below.begin(), below.end());
    }
    return all;
}

bool LiesIn(const CZulClass *object, const CZulClass *other)
{
    while (object && object != other)
        object = object->parent;
    return object;
}

/// Checks that the typed objects match the components one to one, and each value its attribute. Below an unknown class
/// only components that were added later have objects.
void CheckStep(const std::vector<std::unique_ptr<CZulClass>> &objects,
               const std::vector<std::unique_ptr<ComponentObject>> &components, const CZulClass *parent)
{
    const bool isKnown = !parent || parent->descriptor;
    size_t place = 0;
    for (const auto &component : components) {
        if (!component->GetAttribute("prop").isEmpty())
            continue; // the component of a value
        if (!isKnown && (place == objects.size() || objects[place]->component != component.get()))
            continue;
        RC_ASSERT(place < objects.size());
        const CZulClass &object = *objects[place++];
        RC_ASSERT(object.component == component.get());
        RC_ASSERT(object.parent == parent);
        RC_ASSERT(object.typeName == component->className);
        RC_ASSERT(object.propName == component->name);
        for (const AttributeRecord &attribute : component->attributes) {
            if (auto *value = dynamic_cast<CZulBase *>(object.FindMember(attribute.name)))
                RC_ASSERT(value->attr == &attribute);
        }
        CheckStep(object.subComponents, component->children, &object);
    }
    RC_ASSERT(place == objects.size());
}

QByteArray DumpOf(const LayoutObject &layout)
{
    QByteArray text = layout.Id()->name;
    for (const auto &component : layout.components)
        text += '\n' + component->name + ' ' + Dump(*component);
    return text;
}

/// A layout, and the operations of an editor on it.
struct Editor
{
    Editor()
    {
        IDRecord *record = pool.Allocate("ID_A", 1);
        res = CLayoutRes::CreateEmpty(record, file, catalogue);
        record->Release();
    }

    void Step()
    {
        const Objects all = AllOf(res->Components());
        const auto any = [&] { return all[*rc::gen::inRange<size_t>(0, all.size())]; };
        const int action = all.empty() ? 0 : *rc::gen::inRange(0, 6);
        if (action == 0) {
            const auto className = *rc::gen::element<std::string>("Panel", "Base", "Unknown");
            RC_ASSERT(res->AddComponent(*program.env,
                                        Component(QByteArray::fromStdString(className), {{"text", "x"}, {"other", "y"}},
                                                  Component("Panel", {{"pos", "(1,2)"}}))));
        } else if (action == 1) {
            CZulClass *const object = any();
            RC_ASSERT(!object->DeleteSubComponent(object)); // it isn't a child of itself
            if (object->parent)
                RC_ASSERT(object->parent->DeleteSubComponent(object));
            else
                RC_ASSERT(res->DeleteComponent(object));
        } else if (action <= 3) {
            CZulClass *const object = any();
            CZulClass *const to = action == 2 ? any() : nullptr;
            const bool stays = to == object->parent;
            RC_ASSERT(res->MoveComponent(to, object) == (stays || !LiesIn(to, object)));
            if (object->parent == to && !stays)
                RC_ASSERT((to ? to->subComponents : res->Components()).back().get() == object);
        } else if (action == 4) {
            CZulClass *const object = any();
            object->SetName("cp0" + QByteArray::number(*rc::gen::inRange(0, 6)));
            RC_ASSERT(object->component->name == object->propName);
        } else {
            SetOne(*any());
            RC_ASSERT(res->Rename(pool, "ID_" + QByteArray::number(*rc::gen::inRange(0, 9))));
        }
    }

    /// Compares the search by name with a walk over the tree, for the names of Step and for the empty one.
    void CheckNames() const
    {
        const Objects all = AllOf(res->Components());
        const auto first = [&all](const NarrowText &name) {
            const auto isIt = [&name](const CZulClass *object) { return object->propName == name; };
            const auto found = std::find_if(all.begin(), all.end(), isIt);
            return found == all.end() ? nullptr : *found;
        };
        quint32 counter = 0;
        for (quint32 n = 0; n <= 6; ++n) {
            const NarrowText name = "cp0" + QByteArray::number(n);
            RC_ASSERT(res->FindComponent(name) == first(name));
            if (n > counter && !first(name))
                RC_ASSERT(res->NewName(counter) == name && counter == n);
        }
        RC_ASSERT(res->FindComponent({}) == first({}));
    }

    static void SetOne(CZulClass &object)
    {
        const QByteArray text = "(" + QByteArray::number(*rc::gen::inRange(0, 99)) + ",3)";
        for (const char *name : {"text", "pos"}) {
            if (auto *value = dynamic_cast<CZulBase *>(object.FindMember(name)))
                value->SetText(text);
        }
        if (auto *border = dynamic_cast<CZulCustom *>(object.FindMember("border")))
            Set(*border, "left", "7");
    }

    TestCatalogue catalogue{DEFINITIONS};
    TestProgram program;
    IDPool pool;
    LayoutFileRef file = std::make_shared<LayoutFileObject>(*program.env, pool, 1);
    std::unique_ptr<CLayoutRes> res;
};

} // namespace

TEST(LayoutTrees, StayConsistentAfterAnyOperationAndReload)
{
    EXPECT_TRUE(rc::check([] {
        Editor editor;
        const int steps = *rc::gen::inRange(1, 40);
        const int searchFrom = *rc::gen::inRange(0, 10);
        for (int i = 0; i < steps; ++i) {
            editor.Step();
            CheckStep(editor.res->Components(), editor.res->Layout().components, nullptr);
            if (i >= searchFrom)
                editor.CheckNames();
        }
        const NarrowText path = editor.program.folder.Path("layout.xml").toUtf8();
        RC_ASSERT(editor.file->Save(path) == 0);
        IDPool otherPool;
        const auto again = std::make_shared<LayoutFileObject>(*editor.program.env, otherPool, 1);
        RC_ASSERT(again->Load(path) == 0);
        RC_ASSERT(DumpOf(*again->All().front()) == DumpOf(editor.res->Layout()));
        const auto opened = CLayoutRes::Create(again, again->All().front().get(), editor.catalogue);
        RC_ASSERT(opened != nullptr);
        CheckStep(opened->Components(), opened->Layout().components, nullptr);
    }));
}

TEST(LayoutRes, IsDeletedWithItsLayoutAndTheLastWithTheFile)
{
    TestCatalogue catalogue(DEFINITIONS);
    TestModel model;
    auto file = std::make_shared<LayoutFileObject>(model.env, model.ids, 1);
    model.folder.Put("in.xml", "<TarvoXML><Layout id='ID_A'><Panel/></Layout><Layout id='ID_B'><Base><Insets/></Base>"
                               "</Layout><Layout id='ID_C'><ZulPoint/></Layout></TarvoXML>");
    ASSERT_EQ(file->Load(model.folder.Path("in.xml").toUtf8()), 0);
    auto a = CLayoutRes::Create(file, file->Find(model.ids.FindName("ID_A")), catalogue);
    auto b = CLayoutRes::Create(file, file->Find(model.ids.FindName("ID_B")), catalogue);
    ASSERT_TRUE(a && b) << "a component without a class below the top level exists only in the file";
    EXPECT_EQ(CLayoutRes::Create(file, file->Find(model.ids.FindName("ID_C")), catalogue), nullptr);
    EXPECT_EQ(file->All().size(), 2U) << "it was removed from the file";
    EXPECT_EQ(CLayoutRes::CreateEmpty(a->Id(), file, catalogue), nullptr);
    EXPECT_EQ(CLayoutRes::Create(file, nullptr, catalogue), nullptr);

    CountingObserver observer;
    model.ids.observer = &observer;
    EXPECT_EQ(a->AddComponent(model.env, Component("ZulPoint")), nullptr);
    EXPECT_EQ(observer.changed, 0);
    CZulClass *const panel = a->Components().front().get();
    EXPECT_TRUE(a->MoveComponent(nullptr, panel) && a->DeleteComponent(b->Components().front().get()));
    EXPECT_EQ(observer.changed, 0);
    EXPECT_TRUE(a->DeleteComponent(panel));
    EXPECT_EQ(observer.changed, 1);

    const std::weak_ptr<LayoutFileObject> watch = file;
    file.reset();
    b.reset();
    EXPECT_EQ(model.ids.FindName("ID_B"), nullptr);
    EXPECT_EQ(watch.lock()->All().size(), 1U);
    a.reset();
    EXPECT_TRUE(watch.expired() && model.ids.IsEmpty());
}
