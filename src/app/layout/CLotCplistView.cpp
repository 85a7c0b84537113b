// SPDX-License-Identifier: MIT
#include "CLotCplistView.h"

#include "CLayoutRes.h"
#include "CResDoc.h"
#include "CellLine.h"
#include "CopyGuard.h"
#include "LinedTree.h"
#include "LiteralTip.h"
#include "ViewHost.h"

#include <QScopedValueRollback>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace
{

constexpr int MARGIN = 6; // pixels

/// The item of a component. It gets its label from the component, so that a new name is shown at the next paint.
class ComponentItem : public QTreeWidgetItem
{
public:
    ComponentItem(const Environment &environment, CZulClass &component) : env(environment), shown(component) {}

    [[nodiscard]] QVariant data(int column, int role) const override
    {
        switch (role) {
        case Qt::DisplayRole:
            return CellLine(ComponentLabel(env, shown), LONGEST_SHOWN);
        case Qt::ToolTipRole:
            return LiteralTip(ComponentLabel(env, shown));
        case Qt::UserRole:
            return QVariant::fromValue(static_cast<void *>(&shown));
        default:
            return QTreeWidgetItem::data(column, role);
        }
    }

private:
    const Environment &env;
    CZulClass &shown;
};

CZulClass *ComponentOf(const QTreeWidgetItem *item)
{
    return item ? static_cast<CZulClass *>(item->data(0, Qt::UserRole).value<void *>()) : nullptr;
}

} // namespace

CLotCplistView::CLotCplistView(CResDoc &projectDocument, IViewHost &viewHost)
    : document(projectDocument), host(viewHost), tree(new LinedTree)
{
    tree->setHeaderHidden(true);
    tree->setUniformRowHeights(true);
    tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tree->setAccessibleName(QStringLiteral("Components"));
    tree->ShowWholeLabels();
    new CopyGuard(*tree);
    auto *const all = new QVBoxLayout(this);
    all->setContentsMargins(MARGIN, MARGIN, MARGIN, MARGIN);
    all->addWidget(tree);
    setFocusProxy(tree);
    connect(tree, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem *item) {
        if (!isFilling)
            Choose(ComponentOf(item));
    });
}

void CLotCplistView::ShowLayout(CLayoutRes *layoutRes)
{
    layout = layoutRes;
    RebuildList();
}

void CLotCplistView::RebuildList()
{
    const std::vector<ListedComponent> components = layout ? ComponentsOf(*layout) : std::vector<ListedComponent>();
    {
        const QScopedValueRollback filling(isFilling, true);
        const int scrolled = tree->verticalScrollBar()->value();
        tree->setUpdatesEnabled(false);
        // If components were only added at the end, or renamed, the existing items are kept.
        if (shown.size() > components.size() || !std::equal(shown.begin(), shown.end(), components.begin()))
            Empty();
        Append(components, shown.size());
        tree->FitColumn();
        tree->verticalScrollBar()->setValue(scrolled);
        tree->setUpdatesEnabled(true);
    }
    if (components.empty()) {
        selected = nullptr;
        selectionChanged(nullptr);
    } else if (!selected || !SelectComponent(selected)) {
        tree->setCurrentItem(tree->topLevelItem(0));
    }
}

void CLotCplistView::Append(const std::vector<ListedComponent> &components, size_t from)
{
    QList<QTreeWidgetItem *> roots; // added to the tree in one call, with their children
    const bool isAll = from == 0;
    for (size_t place = from; place < components.size(); ++place) {
        CZulClass &component = *components[place].component;
        auto *const item = new ComponentItem(document.env, component);
        items.insert(&component, item);
        if (QTreeWidgetItem *const above = items.value(component.parent)) {
            above->addChild(item);
            if (!isAll)
                above->setExpanded(true);
        } else {
            roots.append(item);
        }
        shown.push_back(components[place]);
    }
    tree->addTopLevelItems(roots);
    if (isAll)
        tree->expandAll();
}

void CLotCplistView::Empty()
{
    const QScopedValueRollback filling(isFilling, true);
    tree->clear();
    items.clear();
    shown.clear();
}

void CLotCplistView::Choose(CZulClass *component)
{
    if (component == selected)
        return;
    selected = component;
    selectionChanged(component);
}

bool CLotCplistView::SelectComponent(const CZulClass *component)
{
    QTreeWidgetItem *const item = items.value(component);
    if (!item)
        return false;
    tree->setCurrentItem(item);
    return true;
}

void CLotCplistView::LetGo()
{
    selected = nullptr;
    layout = nullptr;
    Empty();
}

void CLotCplistView::AddComponent(const ClassDescriptor &type)
{
    if (!layout)
        return;
    const CZulClass *const added = layout->AddComponent(document.env, NewComponent(type, *layout, nameCounter));
    if (!added)
        return;
    document.UpdateAllViews(document.selection ? document.selection->ProjView() : nullptr);
    (void)SelectComponent(added);
}

std::optional<ActionState> CLotCplistView::StateOf(ActionId id) const
{
    return id == ACTION_DELETE ? std::optional(ActionState{selected != nullptr}) : std::nullopt;
}

void CLotCplistView::Run(ActionId id)
{
    if (id == ACTION_DELETE)
        DeleteSelected();
}

void CLotCplistView::DeleteSelected()
{
    CZulClass *const going = selected;
    if (!going || !host.Boxes().AskYesNo(DeleteQuestion()) || selected != going)
        return;
    componentsGo();
    selected = nullptr;
    Empty();
    DeleteComponent(*layout, *going);
    treeChanged();
}
