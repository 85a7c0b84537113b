// SPDX-License-Identifier: MIT
#pragma once

#include "ComponentNames.h"
#include "LayoutFileObject.h"
#include "Resources.h"
#include "ZulType.h"

/// A layout in the resource tree: its components and the typed objects bound to them. Both trees have the same
/// structure.
///
/// Owns the layout through the file: destroying it takes the layout out of the file.
class CLayoutRes : public CBaseRes
{
public:
    ~CLayoutRes() override;

    /// Opens a layout of a file. If the type of a component isn't a class, returns null and removes the layout from the
    /// file.
    [[nodiscard]] static std::unique_ptr<CLayoutRes> Create(const LayoutFileRef &file, LayoutObject *layout,
                                                            const ClassCatalogue &catalogue);
    /// Makes a layout without components and adds it to the file. Returns null if the file has a layout with that ID.
    [[nodiscard]] static std::unique_ptr<CLayoutRes> CreateEmpty(IDRecord *record, const LayoutFileRef &file,
                                                                 const ClassCatalogue &catalogue);

    [[nodiscard]] LayoutObject &Layout() const { return *layout; }
    [[nodiscard]] const LayoutFileRef &File() const { return file; }
    /// The top level. It changes only together with the layout's own, through the operations below.
    [[nodiscard]] const std::vector<std::unique_ptr<CZulClass>> &Components() const { return components; }

    /// Appends a component with all its sub-components to the top level. Returns null, and destroys the component, if
    /// its type isn't a class.
    CZulClass *AddComponent(Environment &env, std::unique_ptr<ComponentObject> component);
    /// Destroys a component of the top level with all its sub-components. Does nothing if `object` isn't one.
    bool DeleteComponent(CZulClass *object);
    /// Moves a component to the end of another, or of the top level if `newParent` is null. Returns false, and changes
    /// nothing, if `newParent` is inside of the component.
    bool MoveComponent(CZulClass *newParent, CZulClass *object);
    /// The first component with that name, searching a component before its sub-components; null if there is none. The
    /// time doesn't depend on the size of the layout, except for the empty name and a name that several components
    /// have.
    [[nodiscard]] CZulClass *FindComponent(const NarrowText &name) const;
    /// Returns an unused name for a new component. Increments `counter`, at least once, until the name is free.
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
    mutable std::unique_ptr<ComponentNames> names; // null until it is needed: only an editor looks up names
};
