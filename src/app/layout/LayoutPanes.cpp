// SPDX-License-Identifier: MIT
#include "LayoutPanes.h"

#include "CLayoutRes.h"
#include "CLotCplistView.h"
#include "CLotEditorView.h"
#include "CLotScreenView.h"
#include "CResDoc.h"
#include "KeyboardSplitter.h"
#include "ProjectTree.h"
#include "ViewHost.h"

#include <QHideEvent>
#include <QVBoxLayout>

LayoutPanes::LayoutPanes(CResDoc &projectDocument, IViewHost &viewHost)
    : ITreeListener(projectDocument), document(projectDocument), host(viewHost),
      list(new CLotCplistView(projectDocument, viewHost)), preview(new CLotScreenView(projectDocument, viewHost)),
      grid(new CLotEditorView(projectDocument, viewHost)), rows(new KeyboardSplitter(Qt::Vertical)),
      columns(new KeyboardSplitter(Qt::Horizontal))
{
    columns->addWidget(list);
    columns->addWidget(preview);
    rows->addWidget(columns);
    rows->addWidget(grid);
    rows->RestoreSize(document.env.settings.Int("split2nd", "height", 320));
    columns->RestoreSize(document.env.settings.Int("split3rd", "width", 260));
    columns->setFocusProxy(list);
    auto *const all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(rows);
    setFocusProxy(list);
    list->selectionChanged = [this](CZulClass *component) { SelectionChanged(component); };
    list->componentsGo = [this] {
        grid->LetGo();
        preview->LetGo();
    };
    list->treeChanged = [this] { TreeChanged(); };
    preview->picked = [this](CZulClass &component) { (void)list->SelectComponent(&component); };
    grid->changed = [this](Applied applied) { ValueChanged(applied); };
    document.AddView(this);
}

LayoutPanes::~LayoutPanes()
{
    document.RemoveView(this);
}

void LayoutPanes::Rebuild()
{
    const CResFolder *const folder = document.selection ? document.selection->SelectedFolder() : nullptr;
    const bool isLayout = folder && folder->kind == KIND_LAYOUT;
    layout = isLayout ? dynamic_cast<CLayoutRes *>(folder->resources.First()) : nullptr;
    preview->ShowLayout(layout);
    list->ShowLayout(layout);
}

void LayoutPanes::LetGo()
{
    grid->LetGo();
    preview->LetGo();
    list->LetGo();
    layout = nullptr;
    isStale = true;
}

void LayoutPanes::SelectionChanged(CZulClass *component)
{
    grid->ShowComponent(layout, component);
    preview->Select(component);
}

void LayoutPanes::TreeChanged()
{
    preview->ShowLayout(layout);
    list->RebuildList();
}

void LayoutPanes::ValueChanged(Applied applied)
{
    if (!layout)
        return;
    layout->NotifyChanged();
    if (applied == Applied::TreeChanged)
        TreeChanged();
    else
        preview->RefreshEntries(grid->Current());
}

void LayoutPanes::AddComponent(const ClassDescriptor &type)
{
    if (TakeEdit())
        list->AddComponent(type);
}

bool LayoutPanes::TakeEdit()
{
    return grid->TakeEdit();
}

QList<ProfileEntry> LayoutPanes::State() const
{
    const auto size = [](const char *section, const char *key, const KeyboardSplitter &splitter) {
        return ProfileEntry{QString::fromLatin1(section), QString::fromLatin1(key),
                            QString::number(splitter.ChosenSize())};
    };
    return grid->State() + QList{size("split2nd", "height", *rows), size("split3rd", "width", *columns)};
}

void LayoutPanes::TreeGoes(const CResFolder &folder)
{
    const CResFolder *const own = layout ? layout->Folder() : nullptr;
    if (own && GoesWith(*own, folder))
        LetGo();
}

void LayoutPanes::GoTo(const CBaseRes &resource, const RowPart &part)
{
    if (layout == &resource && !part.component.isEmpty())
        (void)list->SelectComponent(layout->FindComponent(part.component));
    list->setFocus();
}

RowPlace LayoutPanes::FocusedRow() const
{
    return {layout};
}

QList<QWidget *> LayoutPanes::Parts() const
{
    return {list, preview, grid};
}

QList<QWidget *> LayoutPanes::Dividers() const
{
    return {columns->handle(1), rows->handle(1)};
}

void LayoutPanes::showEvent(QShowEvent *event)
{
    PaneView::showEvent(event);
    if (!event->spontaneous())
        host.ShowLayoutMode(true);
}

/// Ends the layout mode, but not if only the window around the panes is hidden or minimised.
void LayoutPanes::hideEvent(QHideEvent *event)
{
    PaneView::hideEvent(event);
    if (isHidden())
        host.ShowLayoutMode(false);
}
