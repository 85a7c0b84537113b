// SPDX-License-Identifier: MIT
#pragma once

#include "ActionTarget.h"
#include "ComponentTree.h"

#include <QHash>
#include <QWidget>

#include <functional>

class CResDoc;
class IViewHost;
class LinedTree;
class QTreeWidgetItem;

/// Shows the components of a layout as a tree: each component is below the component that contains it. The preview
/// marks the component that is selected in the tree, and the property grid shows it.
class CLotCplistView : public QWidget, public IActionTarget
{
public:
    CLotCplistView(CResDoc &projectDocument, IViewHost &viewHost);

    /// Shows a layout as it is now; null for none.
    void ShowLayout(CLayoutRes *layoutRes);
    /// Rebuilds the list from the layout. The selected component stays selected if it still exists; otherwise the first
    /// one is selected.
    void RebuildList();
    /// Selects the row of a component. Returns false if it has none.
    bool SelectComponent(const CZulClass *component);
    [[nodiscard]] CZulClass *Selected() const { return selected; }
    /// Called before components are destroyed: shows none until a layout is shown again.
    void LetGo();
    /// Adds a component of a class at the end of the layout's top level and selects it. Does nothing without a layout.
    void AddComponent(const ClassDescriptor &type);

    /// Called when another component is selected; with null when none is selected any more.
    std::function<void(CZulClass *component)> selectionChanged;
    /// The first is called before components are destroyed, the second after the tree of components has changed.
    std::function<void()> componentsGo;
    std::function<void()> treeChanged;

    [[nodiscard]] std::optional<ActionState> StateOf(ActionId id) const override;
    void Run(ActionId id) override;

private:
    void Empty();
    /// Adds items for the components from index `from` on. A parent must have its item already or be earlier in the
    /// list.
    void Append(const std::vector<ListedComponent> &components, size_t from);
    void Choose(CZulClass *component);
    void DeleteSelected();

    CResDoc &document;
    IViewHost &host;
    LinedTree *tree;
    CLayoutRes *layout = nullptr;
    CZulClass *selected = nullptr;
    quint32 nameCounter = 0;                           // not reset for another layout
    std::vector<ListedComponent> shown;                // the components that have items, in the order of the items
    QHash<const CZulClass *, QTreeWidgetItem *> items; // of all components in `shown`
    bool isFilling = false;
};
