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

/// The list of a layout's components: a tree, in which each component is below the one that it is in. What is selected
/// in it is what preview and property grid show.
class CLotCplistView : public QWidget, public IActionTarget
{
public:
    CLotCplistView(CResDoc &projectDocument, IViewHost &viewHost);

    /// Shows a layout as it is now; null for none.
    void ShowLayout(CLayoutRes *layoutRes);
    /// Takes the tree of components anew. What was selected stays selected, or else the first component is.
    void RebuildList();
    /// Selects the row of a component. False when it has none.
    bool SelectComponent(const CZulClass *component);
    [[nodiscard]] CZulClass *Selected() const { return selected; }
    /// Components are about to be destroyed: shows none until the list is built again.
    void LetGo();
    /// Makes a component of a class, at the end of the layout's top level, and selects it. Nothing without a layout.
    void AddComponent(const ClassDescriptor &type);

    /// Told of another component that is selected; null when none is any more.
    std::function<void(CZulClass *component)> selectionChanged;
    /// Told before components are destroyed, and after the tree of components has changed.
    std::function<void()> componentsGo;
    std::function<void()> treeChanged;

    [[nodiscard]] std::optional<ActionState> StateOf(ActionId id) const override;
    void Run(ActionId id) override;

private:
    void Empty();
    /// Adds items for the components from that one on. Those that are above them have their items.
    void Append(const std::vector<ListedComponent> &components, size_t from);
    void Choose(CZulClass *component);
    void DeleteSelected();

    CResDoc &document;
    IViewHost &host;
    LinedTree *tree;
    CLayoutRes *layout = nullptr;
    CZulClass *selected = nullptr;
    quint32 nameCounter = 0;                           // goes on from layout to layout
    std::vector<ListedComponent> shown;                // those that have items, in the order of the items
    QHash<const CZulClass *, QTreeWidgetItem *> items; // of all of them
    bool isFilling = false;
};
