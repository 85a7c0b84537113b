#pragma once

#include "ComponentNames.h"
#include "LayoutFileObject.h"
#include "Resources.h"
#include "ZulType.h"

/// A layout in the resource tree: its components and the typed objects that lie over them, which have the same places
/// in both trees.
///
/// Owns the layout through the file: destroying it takes the layout out of the file.
class CLayoutRes : public CBaseRes
{
public:
    ~CLayoutRes() override;

    /// Opens a layout of a file. Null, and the layout is gone from the file, when a component is of a type that is no
    /// class.
    [[nodiscard]] static std::unique_ptr<CLayoutRes> Create(const LayoutFileRef &file, LayoutObject *layout,
                                                            const ClassCatalogue &catalogue);
    /// Makes a layout without components and enters it in the file. Null when the file has one of that ID.
    [[nodiscard]] static std::unique_ptr<CLayoutRes> CreateEmpty(IDRecord *record, const LayoutFileRef &file,
                                                                 const ClassCatalogue &catalogue);

    [[nodiscard]] LayoutObject &Layout() const { return *layout; }
    [[nodiscard]] const LayoutFileRef &File() const { return file; }
    /// The top level; changes only together with the layout's, through the operations below.
    [[nodiscard]] const std::vector<std::unique_ptr<CZulClass>> &Components() const { return components; }

    /// Appends a component with all that lies in it to the top level. Null, and the component is gone, when it is of a
    /// type that is no class.
    CZulClass *AddComponent(Environment &env, std::unique_ptr<ComponentObject> component);
    /// Destroys a component of the top level with all that lies in it. Nothing happens when it is none.
    bool DeleteComponent(CZulClass *object);
    /// Moves a component to the end of another, or of the top level when `newParent` is null. False, and no change,
    /// when that lies in it.
    bool MoveComponent(CZulClass *newParent, CZulClass *object);
    /// The first component of that name, each before those that lie in it; null when there is none. The time doesn't
    /// grow with the layout, but for a name that several have, and for the empty one.
    [[nodiscard]] CZulClass *FindComponent(const NarrowText &name) const;
    /// A name for a new component that none has: counts `counter` up to the next that is free, at least by one.
    [[nodiscard]] NarrowText NewName(quint32 &counter) const;

private:
    CLayoutRes(LayoutFileRef fileRef, LayoutObject *object, const ClassCatalogue &types);
    [[nodiscard]] std::unique_ptr<CZulClass> MakeObject(const NarrowText &className) const;
    [[nodiscard]] CZulClass::Detached Detach(CZulClass *object);
    [[nodiscard]] ComponentNames &Names() const;

    const ClassCatalogue &catalogue;
    LayoutFileRef file;
    LayoutObject *layout; // the file owns it
    std::vector<std::unique_ptr<CZulClass>> components;
    mutable std::unique_ptr<ComponentNames> names; // null until it is needed: only an editor looks for names
};
